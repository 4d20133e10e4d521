// strings_test.cpp: owned strings, digits and dates.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/random.h"
#include "core/strings.h"
#include "support/fake_sdl.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

TEST(Strings, SetReplacesAndKeepsOnFailure) {
    fake_scope fakes;
    char *text = nullptr;
    EXPECT_EQ(string_set(&text, "long enough"), 12);
    EXPECT_EQ(string_set(&text, text), 12) << "from itself";
    fake_fail_allocation(1);
    EXPECT_EQ(string_set(&text, "another"), -1);
    fake_fail_allocation(0);
    EXPECT_STREQ(text, "long enough");
    EXPECT_EQ(string_set(&text, nullptr), 1);
    EXPECT_STREQ(text, "");
    std::free(text);
}

TEST(Strings, PrintfGrowsToItsLimitAndMemorys) {
    fake_scope fakes;
    constexpr std::size_t step = 2048, limit = 2 * 1024 * 1024;
    struct row {
        std::size_t length;
        bool fits;
        int failing;      // allocation: the first block, a larger one, the exact one
        const char *left; // after a failure
    };
    for (const row &r : {row{step - 1, true, 0, ""},
                         {step, true, 0, ""},
                         {limit - 1, true, 0, ""},
                         {limit, false, 0, nullptr},
                         {5000, false, 1, "before"},
                         {5000, false, 2, nullptr},
                         {5000, false, 3, nullptr}}) {
        SCOPED_TRACE(testing::Message() << r.length << " " << r.failing);
        const std::string source(r.length, 'x');
        char *text = nullptr;
        string_set(&text, "before");
        fake_fail_allocation(r.failing);
        EXPECT_EQ(string_printf(&text, "%s", source.c_str()), r.fits ? static_cast<i32>(r.length) : -1);
        fake_fail_allocation(0);
        EXPECT_STREQ(text, r.fits ? source.c_str() : r.left);
        std::free(text);
    }
}

TEST(Strings, ShiftDigitsLettersMonths) {
    char text[] = "Ann \x01\x7f\x81\xff";
    const std::string before = text;
    string_shift(text, 128);
    EXPECT_STREQ(text, "\xC1\xEE\xEE\xA0\x81\xFF\x01\x7F");
    string_shift(text, -128);
    EXPECT_EQ(text, before);
    string_shift(nullptr, 1);
    struct row {
        const char *text;
        int value;
    };
    for (const row &r : {row{"EA", 234}, {"8a", 138}, {"zz", 0}, {"g7", 7}, {"f@", 240}, {"fF", 255}})
        EXPECT_EQ(hex_byte(r.text), r.value) << r.text;
    EXPECT_EQ(char_upper('z'), 'Z');
    EXPECT_EQ(char_upper('{'), '{');
    EXPECT_EQ(char_upper('\xE4'), '\xE4') << "ASCII alone";
    EXPECT_EQ(month_abbrev(12), nullptr);
    EXPECT_EQ(month_abbrev(-1), nullptr);
}

TEST(Strings, DatesHaveTheirFixedForm) {
    char *text = nullptr;
    log_timestamp(&text);
    const std::string form = masked_digits(text), month = form.substr(3, 3);
    EXPECT_EQ(form, "00/" + month + "/0000 00:00:00 +0000");
    EXPECT_STREQ(text + form.size() - 6, " +0000") << "the zone is always written so";
    date_stamp(&text);
    EXPECT_EQ(masked_digits(text), "0000-00-00 00:00");
    EXPECT_STREQ(month_abbrev(std::atoi(text + 5) - 1), month.c_str()) << "one counts months from 1";
    std::free(text);
}

TEST(Random, DrawsOnlyWhereThereIsAChoice) {
    fake_scope fakes;
    fake_dice({0, 1, 2, 6});
    EXPECT_EQ(random_range(5, 5), 5);
    EXPECT_EQ(random_range(5, 4), 5);
    EXPECT_EQ(fake_dice_drawn(), 0);
    for (const int expected : {-1, 0, 1, -1}) // both ends are reached, and 6 wraps
        EXPECT_EQ(random_range(-1, 1), expected);
}
