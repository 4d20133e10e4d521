// button_test.cpp: looks after any order of events, what is hit, what is drawn.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/button.h"
#include "sound/sound.h"
#include "unit/ui/ui_stage.h"

static image sized(i32 width, i32 height) {
    image picture = {};
    picture.width = width;
    picture.height = height;
    return picture;
}

static const image NORMAL_PICTURE = sized(32, 22), HOVER_PICTURE = sized(33, 23), PRESSED_PICTURE = sized(41, 27);
static const image *const LOOKS[] = {&NORMAL_PICTURE, &HOVER_PICTURE, &PRESSED_PICTURE};

static void count_call(button *, std::intptr_t counter, std::intptr_t step) {
    *reinterpret_cast<int *>(counter) += static_cast<int>(step);
}

static button looking_button() {
    button b = {};
    button_set_pictures(&b, LOOKS[0], LOOKS[1], LOOKS[2], nullptr);
    b.x = 100;
    b.y = 200;
    return b;
}

static void apply(button *b, char event) {
    switch (event) {
    case 'h':
        return button_hover(b);
    case 'u':
        return button_unhover(b);
    case 'p':
        return button_press(b);
    case 'r':
        return button_release(b);
    case 'l':
        return button_release_later(b);
    default:
        return button_tick(b);
    }
}

TEST(Button, LookAndFlagsFollowTheEvents) {
    const struct {
        const char *events; // h hover, u unhover, p press, r release, l release later, t tick
        i32 look;
        u32 flags;
        int calls;
    } ROWS[] = {
        {"r", BUTTON_LOOK_NORMAL, 0, 0},
        {"ur", BUTTON_LOOK_NORMAL, 0, 0},
        {"h", BUTTON_LOOK_HOVER, BUTTON_HOVER, 0},
        {"hu", BUTTON_LOOK_NORMAL, 0, 0},
        {"ppp", BUTTON_LOOK_PRESSED, BUTTON_PRESSED, 1},
        {"prpr", BUTTON_LOOK_NORMAL, 0, 2},
        {"hpr", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"hph", BUTTON_LOOK_HOVER, BUTTON_HOVER | BUTTON_PRESSED, 1},
        {"hpu", BUTTON_LOOK_NORMAL, BUTTON_PRESSED, 1},
        {"hpru", BUTTON_LOOK_NORMAL, 0, 1},
        {"plttt", BUTTON_LOOK_PRESSED, BUTTON_PRESSED | BUTTON_RELEASE_PENDING, 1},
        {"pltttt", BUTTON_LOOK_NORMAL, 0, 1},
        {"hpltttt", BUTTON_LOOK_HOVER, BUTTON_HOVER, 1},
        {"plttltttt", BUTTON_LOOK_NORMAL, 0, 1},
        {"tttt", BUTTON_LOOK_NORMAL, 0, 0},
    };
    const ui_stage stage;
    for (const auto &row : ROWS) {
        int calls = 0;
        sounds_played.clear();
        button b = looking_button();
        button_set_callback(&b, count_call, reinterpret_cast<std::intptr_t>(&calls), 1);
        for (const char *event = row.events; *event != '\0'; ++event)
            apply(&b, *event);
        EXPECT_EQ(b.state, row.look) << row.events;
        EXPECT_EQ(b.flags, row.flags) << row.events;
        EXPECT_EQ(calls, row.calls) << row.events;
        EXPECT_EQ(sounds_played, std::vector<i32>(static_cast<std::size_t>(row.calls), SOUND_CLICK)) << row.events;
    }
}

TEST(Button, HitIncludesTheFarEdgesOfTheCurrentLook) {
    button b = looking_button();
    EXPECT_TRUE(button_hit(&b, 100, 200));
    EXPECT_TRUE(button_hit(&b, 132, 222));
    EXPECT_FALSE(button_hit(&b, 133, 222));
    EXPECT_FALSE(button_hit(&b, 132, 223));
    EXPECT_FALSE(button_hit(&b, 99, 200));
    EXPECT_FALSE(button_hit(&b, 100, 199));
    button_hover(&b);
    EXPECT_TRUE(button_hit(&b, 133, 223));
}

TEST(Button, DrawsTheLookWithACentredLabelAndSinksWhilePressed) {
    const image small_label = sized(11, 5), wide_label = sized(36, 30);
    const struct {
        const image *label;
        bool pressed;
        i32 x, y, label_x, label_y;
    } ROWS[] = {
        {&small_label, false, 100, 200, 111, 209},
        {&small_label, true, 101, 201, 116, 212},
        {&wide_label, false, 100, 200, 98, 196},
    };
    const ui_stage stage;
    for (const auto &row : ROWS) {
        ui_stage::forget();
        button b = looking_button();
        b.label = row.label;
        if (row.pressed)
            button_press(&b);
        const image *look = LOOKS[b.state];
        button_draw(&b);
        const auto drawn = all_of<DRAW_IMAGE>(ui_stage::now());
        ASSERT_EQ(drawn.size(), 2u);
        EXPECT_EQ(drawn[0].picture, look);
        EXPECT_EQ(drawn[0].x, row.x);
        EXPECT_EQ(drawn[0].y, row.y);
        EXPECT_EQ(drawn[1].picture, row.label);
        EXPECT_EQ(drawn[1].x, row.label_x);
        EXPECT_EQ(drawn[1].y, row.label_y);
        const auto restored = all_of<DRAW_RESTORE>(ui_stage::next());
        ASSERT_EQ(restored.size(), 1u) << "the label lies on the picture";
        EXPECT_EQ(restored[0].area, (rect{row.x, row.y, look->width, look->height}));

        ui_stage::forget();
        button_draw_background(&b);
        const auto still = all_of<DRAW_IMAGE_BG>(ui_stage::now());
        ASSERT_EQ(still.size(), 2u);
        EXPECT_EQ(still[0].picture, &NORMAL_PICTURE);
        EXPECT_EQ(still[0].x, b.x) << "the background never sinks";
    }
}

TEST(Button, TheLastOfTheListIsOnTopAndAllAreTicked) {
    const ui_stage stage;
    ptr_array<button> *list = ptr_array_create<button>(button_free);
    button *low = button_add(list, LOOKS, 10, 10, nullptr);
    button *top = button_add(list, LOOKS, 20, 20, nullptr);
    button *away = button_add(list, LOOKS, 300, 300, nullptr);
    EXPECT_EQ(button_tick_and_find(list, 25, 25), top);
    EXPECT_EQ(button_tick_and_find(list, 15, 15), low);
    EXPECT_EQ(button_tick_and_find(list, 5, 5), nullptr);
    for (button *b : {low, away}) {
        button_press(b);
        button_release_later(b);
    }
    for (int frame = 0; frame < 4; ++frame)
        button_tick_and_find(list, 25, 25);
    EXPECT_EQ(low->flags | away->flags, 0u);
    ptr_array_destroy(list);
}

TEST(Button, NotAddedWhenMemoryIsShort) {
    const ui_stage stage;
    ptr_array<button> *list = ptr_array_create<button>(button_free);
    const int failed = fake_fail_each_allocation([list] {
        const button *added = button_add(list, LOOKS, 0, 0, nullptr);
        EXPECT_EQ(list->count, added != nullptr ? 1 : 0);
        return added != nullptr;
    });
    EXPECT_EQ(failed, 2) << "the record and the list's slot";
    ptr_array_destroy(list);
}
