// ears.cpp
#include "ears.h"
void ears_check() {}
