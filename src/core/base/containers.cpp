// containers.cpp: the byte buffer; the list and the table are templates in their headers.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/containers.h"

#include <limits>

buffer *buffer_create() {
    auto *b = static_cast<buffer *>(std::calloc(1, sizeof(buffer)));
    if (b == nullptr)
        log_out_of_memory();
    return b;
}

void buffer_free(buffer *b) {
    if (b == nullptr)
        return;
    std::free(b->data);
    std::free(b);
}

static bool buffer_grow(buffer *b, i32 n) {
    const bool countable = n >= 0 && b->size <= std::numeric_limits<i32>::max() - n;
    void *data =
        countable ? std::realloc(b->data, static_cast<std::size_t>(b->size) + static_cast<std::size_t>(n)) : nullptr;
    if (data == nullptr) {
        log_error("buffer_add (): out of memory\n");
        return false;
    }
    b->data = static_cast<u8 *>(data);
    b->capacity = b->size + n;
    return true;
}

i32 buffer_add(buffer *b, const void *bytes, i32 n) {
    if (n == 0)
        return b->size;
    if ((n < 0 || n > b->capacity - b->size) && !buffer_grow(b, n))
        return -1;
    std::memcpy(b->data + b->size, bytes, static_cast<std::size_t>(n));
    b->size += n;
    return b->size;
}

const u8 *buffer_peek(const buffer *b, i32 *n) {
    if (b->pos >= b->size)
        return nullptr;
    *n = b->size - b->pos;
    return b->data + b->pos;
}
