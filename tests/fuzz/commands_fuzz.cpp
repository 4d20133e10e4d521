// Drawing commands: any list that can be recorded is played without touching a byte outside the buffers.
//
// Opcodes come from the table, pictures from a small set, all other operands from the input: mostly 16-bit numbers,
// some of 24 bits, which is far more than any screen's coordinates.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "graphics/draw_ops.h"
#include "graphics/render.h"

#include <array>

static constexpr int MOST_COMMANDS = 64;
static constexpr i32 FAR = 1 << 24;

using record = std::array<u8, 64>; // of any command
static_assert(sizeof(image_ex_operands) <= sizeof(record));

static bool takes_picture(draw_opcode id) {
    return id == DRAW_IMAGE || id == DRAW_IMAGE_BG || id == DRAW_IMAGE_EX || id == DRAW_IMAGE_CLIPPED ||
           id == DRAW_IMAGE_CLIPPED_BG;
}

static record random_operands(FuzzedDataProvider *input, draw_opcode id) {
    record operands = {};
    const bool far = input->ConsumeIntegralInRange(0, 7) == 0;
    for (std::size_t at = 0; at < static_cast<std::size_t>(DRAW_COMMANDS[id].size); at += sizeof(i32)) {
        const i32 number = far ? input->ConsumeIntegralInRange(-FAR, FAR) : input->ConsumeIntegral<i16>();
        std::memcpy(operands.data() + at, &number, sizeof number);
    }
    return operands;
}

static void add_command(FuzzedDataProvider *input) {
    const auto id = static_cast<draw_opcode>(input->ConsumeIntegralInRange(0, DRAW_OPCODE_COUNT - 1));
    record operands = random_operands(input, id);
    if (takes_picture(id)) {
        const image *picture =
            fuzz_pictures()[input->ConsumeIntegralInRange<std::size_t>(0, fuzz_pictures().size() - 1)];
        std::memcpy(operands.data(), &picture, sizeof picture);
    } else if (id == DRAW_FREE_IMAGE) {
        const image *picture = image_create(input->ConsumeIntegralInRange(0, 9), 3);
        std::memcpy(operands.data(), &picture, sizeof picture);
    } else if (id == DRAW_TEXT) {
        // Recorded by draw_character only, which knows channels.
        const rgb factors = {operands[0], operands[1], operands[4]};
        draw_character(static_cast<char>(operands[8]), static_cast<i8>(operands[0]) * 9,
                       static_cast<i8>(operands[4]) * 7, factors, (operands[12] & 1) != 0);
        return;
    }
    if (input->ConsumeBool())
        draw_list_add(id, operands.data());
    else
        draw_list_add_next(id, operands.data());
}

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    fuzz_use_screen(input.ConsumeBool());
    draw_fill({0, 0, 1, 1}, BLACK, false); // so that something is pending
    for (int i = 0; i < MOST_COMMANDS && input.remaining_bytes() > 0; ++i)
        add_command(&input);
    render_pass();
    draw_fill({0, 0, 1, 1}, BLACK, false);
    render_pass(); // the list that was recorded ahead
    return 0;
}
