// Text: any characters can be measured, wrapped to any width and drawn anywhere; wrapping only breaks at spaces.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "fuzz/fuzz.h"

#include "graphics/font.h"
#include "graphics/render.h"

int LLVMFuzzerTestOneInput(const u8 *data, std::size_t size) {
    FuzzedDataProvider input(data, size);
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
    return 0;
}
