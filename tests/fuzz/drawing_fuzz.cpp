// What is drawn: pictures from any text, text of any characters, and any commands.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "graphics/draw_ops.h"
#include "graphics/font.h"
#include "graphics/render.h"
#include "graphics/text.h"
#include "resources/pixel.h"
#include "resources/xpm.h"
#include "support/recorded_pictures.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstring>

// --- A picture, decoded at either depth, gets runs that lie in it, in order and apart, or is refused

static void check_runs(const image &picture) {
    i32 next = 0; // the first pixel, counted in row order, that may be the next run's
    for (i32 i = 0; i < picture.run_count; ++i) {
        const image_run &run = picture.runs[i];
        const i32 first = run.y * picture.width + run.x;
        must(first >= next && run.count > 0 && run.x + run.count <= picture.width && run.y < picture.height);
        next = first + run.count + (run.x + run.count < picture.width ? 1 : 0);
    }
}

void fuzz_xpm(fuzz_input input) {
    if (input.empty())
        return;
    fuzz_use_screen(input.front() % 2 != 0);
    const std::vector<char> text(input.begin() + 1, input.end()); // of its own, so that reading beyond it is seen
    xpm source;
    image *picture = nullptr;
    if (xpm_open(&source, text))
        picture = image_create(source.width, source.height);
    if (picture != nullptr && xpm_read_pixels(&source, picture->pixels)) {
        must(image_build_runs(picture));
        check_runs(*picture);
    }
    image_free(picture);
    xpm_close(&source);
}

// --- Text is measured, wrapped to any width, at spaces only, and drawn anywhere --------------------

void fuzz_text(fuzz_input bytes) {
    FuzzedDataProvider input(bytes.data(), bytes.size());
    fuzz_use_screen(input.ConsumeBool());
    const auto flags = input.ConsumeIntegral<u8>();
    const auto x = input.ConsumeIntegral<i16>(), y = input.ConsumeIntegral<i16>(), width = input.ConsumeIntegral<i16>();
    const rgb colour = {input.ConsumeIntegral<u8>(), input.ConsumeIntegral<u8>(), input.ConsumeIntegral<u8>()};
    const std::string text = input.ConsumeRemainingBytesAsString();
    const std::vector<char> terminated(text.c_str(), text.c_str() + text.size() + 1);
    std::vector<char> wrapped = terminated;
    text_wrap(wrapped.data(), width);
    for (std::size_t i = 0; i < wrapped.size(); ++i)
        must(wrapped[i] == terminated[i] || (wrapped[i] == '\n' && terminated[i] == ' '));
    must(text_measure(wrapped.data()).width <= text_measure(terminated.data()).width);
    text_draw(wrapped.data(), x, y, colour, flags);
    render_pass();
    render_pass(); // plays what was queued for the next frame
}

// --- Commands that can be recorded are played without touching a byte outside the buffers ----------
// Opcodes come from the table, pictures from a small set, all other operands from the input: mostly 16-bit numbers,
// some of 24 bits, which is far more than any screen's coordinates.

static constexpr int MOST_COMMANDS = 64;
static constexpr i32 FAR = 1 << 24;

using record = std::array<u8, 64>; // of any command
static_assert(sizeof(image_ex_operands) <= sizeof(record));

static record random_operands(FuzzedDataProvider *input, draw_opcode id) {
    record operands = {};
    const bool far = input->ConsumeIntegralInRange(0, 7) == 0;
    for (std::size_t at = 0; at < static_cast<std::size_t>(DRAW_COMMANDS[id].size); at += sizeof(i32)) {
        const i32 number = far ? input->ConsumeIntegralInRange(-FAR, FAR) : input->ConsumeIntegral<i16>();
        std::memcpy(operands.data() + at, &number, sizeof number);
    }
    if (TAKES_PICTURE[id]) {
        const auto n = input->ConsumeIntegralInRange<std::size_t>(0, fuzz_pictures().size() - 1);
        const image *picture = id == DRAW_FREE_IMAGE ? image_create(static_cast<i32>(n), 3) : fuzz_pictures()[n];
        std::memcpy(operands.data(), &picture, sizeof picture);
    }
    return operands;
}

static void add_command(FuzzedDataProvider *input) {
    const auto id = static_cast<draw_opcode>(input->ConsumeIntegralInRange(0, DRAW_OPCODE_COUNT - 1));
    record operands = random_operands(input, id);
    if (id == DRAW_TEXT) { // recorded by draw_character only, which knows channels
        const rgb factors = {operands[0], operands[1], operands[4]};
        return draw_character(static_cast<char>(operands[8]), static_cast<i8>(operands[0]) * 9,
                              static_cast<i8>(operands[4]) * 7, factors, (operands[12] & 1) != 0);
    }
    if (input->ConsumeBool())
        draw_list_add(id, operands.data());
    else
        draw_list_add_next(id, operands.data());
}

void fuzz_commands(fuzz_input bytes) {
    FuzzedDataProvider input(bytes.data(), bytes.size());
    fuzz_use_screen(input.ConsumeBool());
    draw_fill({0, 0, 1, 1}, BLACK, false); // so that something is pending
    for (int i = 0; i < MOST_COMMANDS && input.remaining_bytes() > 0; ++i)
        add_command(&input);
    render_pass();
    draw_fill({0, 0, 1, 1}, BLACK, false);
    render_pass(); // the list that was recorded ahead
}
