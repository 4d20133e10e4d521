#include "table.h"
int main() {
    return 0;
}
