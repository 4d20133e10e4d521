// button_test.cpp: looks after any order of events, what is hit, what is drawn.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/button.h"
#include "sound/sound.h"
#include "unit/ui/ui_stage.h"

namespace {

constexpr image sized(i32 width, i32 height) {
    return {.pixels = nullptr, .size = 0, .width = width, .height = height, .runs = nullptr, .run_count = 0};
}

const image normal = sized(32, 22), hover = sized(33, 23), pressed = sized(41, 27);
const image *const LOOKS[] = {&normal, &hover, &pressed};

void count_call(button *, std::intptr_t counter, std::intptr_t step) {
    *reinterpret_cast<int *>(counter) += static_cast<int>(step);
}

button looking_button() {
    button b = {};
    button_set_pictures(&b, LOOKS[0], LOOKS[1], LOOKS[2], nullptr);
    b.x = 100;
    b.y = 200;
    return b;
}

using event = void (*)(button *);
const std::map<char, event> EVENTS = {{'h', button_hover},   {'u', button_unhover},       {'p', button_press},
                                      {'r', button_release}, {'l', button_release_later}, {'t', button_tick}};

TEST(button, look_and_flags_follow_the_events) {
    const struct {
        const char *events;
        i32 look;
        u32 flags;
        int calls;
    } ROWS[] = {
        {"r", BUTTON_LOOK_NORMAL, 0, 0},
        {"ur", BUTTON_LOOK_NORMAL, 0, 0},
        {"ppp", BUTTON_LOOK_PRESSED, BUTTON_PRESSED, 1},
        {"prpr", BUTTON_LOOK_NORMAL, 0, 2},
        {"hpr", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"hph", BUTTON_LOOK_HOVER, BUTTON_HOVER | BUTTON_PRESSED, 1},
        {"hpu", BUTTON_LOOK_NORMAL, BUTTON_PRESSED, 1},
        {"hpru", BUTTON_LOOK_NORMAL, 0, 1},
        {"plttt", BUTTON_LOOK_PRESSED, BUTTON_PRESSED | BUTTON_RELEASE_PENDING, 1},
        {"hpltttt", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"plttltttt", BUTTON_LOOK_NORMAL, 0, 1},
    };
    const ui_stage stage;
    for (const auto &row : ROWS) {
        int calls = 0;
        button b = looking_button();
        button_set_callback(&b, count_call, reinterpret_cast<std::intptr_t>(&calls), 1);
        for (const char *name = row.events; *name != '\0'; ++name)
            EVENTS.at (*name)(&b);
        EXPECT_TRUE(b.state == row.look && b.flags == row.flags && calls == row.calls) << row.events;
        EXPECT_EQ(take_sounds(), sounds(static_cast<std::size_t>(row.calls), SOUND_CLICK)) << row.events;
    }
}

TEST(button, draws_the_look_with_a_centred_label_and_sinks_while_pressed) {
    const image small_label = sized(11, 5), wide_label = sized(36, 30);
    const struct {
        const image *label;
        bool pressed;
        lines now, next, still; // the background never sinks
    } ROWS[] = {
        {&small_label,
         false,
         {"image look 100 200", "image label 111 209"},
         {"restore 100 200 32 22"},
         {"bg look 100 200", "bg label 111 209"}},
        {&small_label,
         true,
         {"image pressed 101 201", "image label 116 212"},
         {"restore 101 201 41 27"},
         {"bg look 100 200", "bg label 111 209"}},
        {&wide_label,
         false,
         {"image look 100 200", "image label 98 196"},
         {"restore 100 200 32 22"},
         {"bg look 100 200", "bg label 98 196"}},
    };
    const ui_stage stage;
    for (const auto &row : ROWS) {
        const picture_names names = {{&normal, "look"}, {&pressed, "pressed"}, {row.label, "label"}};
        button b = looking_button();
        b.label = row.label;
        if (row.pressed)
            button_press(&b);
        button_draw(&b);
        const recording drawn = take_recording(names);
        EXPECT_EQ(drawn.now, row.now);
        EXPECT_EQ(drawn.next, row.next) << "the label lies on the picture";
        button_draw_background(&b);
        EXPECT_EQ(take_recording(names).now, row.still);
    }
}

TEST(button, list_finds_the_last_one_edges_included_and_ticks_all) {
    const ui_stage stage;
    ptr_array<button> *list = ptr_array_create<button>(button_free);
    EXPECT_EQ(fake_fail_each_allocation([list] {
                  const bool added = button_add(list, LOOKS, 10, 10, nullptr) != nullptr;
                  EXPECT_EQ(list->count, added ? 1 : 0);
                  return added;
              }),
              2)
        << "the record and the list's slot";
    button *low = list->items[0];
    button *high = button_add(list, LOOKS, 20, 20, nullptr);
    button *away = button_add(list, LOOKS, 300, 300, nullptr);
    const std::tuple<i32, i32, const button *> ROWS[] = {{25, 25, high},    {15, 15, low},    {10, 10, low},
                                                         {9, 10, nullptr},  {10, 9, nullptr}, {52, 42, high},
                                                         {53, 42, nullptr}, {52, 43, nullptr}};
    for (const auto &[x, y, hit] : ROWS)
        EXPECT_EQ(button_tick_and_find(list, x, y), hit) << x << ", " << y;
    button_hover(high);
    EXPECT_EQ(button_tick_and_find(list, 53, 43), high) << "as large as it looks";
    for (button *b : {low, away}) {
        button_press(b);
        button_release_later(b);
    }
    for (int frame = 0; frame < 4; ++frame)
        button_tick_and_find(list, 25, 25);
    EXPECT_EQ(low->flags | away->flags, 0u);
    ptr_array_destroy(list);
}

} // namespace
