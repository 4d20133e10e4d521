// xpm_test.cpp: written pictures keep their colours on both screen depths and never turn transparent.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::uint32_t pixel(const art::canvas &picture, int x, int y) {
    cairo_surface_flush(picture.surface.get());
    const unsigned char *data = cairo_image_surface_get_data(picture.surface.get());
    const int stride = cairo_image_surface_get_stride(picture.surface.get());
    return reinterpret_cast<const std::uint32_t *>(data + y * stride)[x];
}

void block(const art::canvas &picture, int x, int y, int w, int h, art::rgb colour) {
    cairo_rectangle(picture, x, y, w, h);
    art::fill(picture, colour);
}

art::canvas saved(const art::canvas &picture, const std::string &name, const art::finish &how = {}) {
    art::save(picture, name, how);
    return art::load(name);
}

class Xpm : public ::testing::Test {
protected:
    void SetUp() override { art::set_output(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }
    const std::string folder =
        ::testing::TempDir() + "tavimo-xpm-" + ::testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(Xpm, WrittenColoursSurviveBeingCutToSixteenBits) {
    art::canvas ramp(256, 1);
    for (int v = 0; v < 256; ++v)
        block(ramp, v, 0, 1, 1, {v / 255.0, v / 255.0, v / 255.0});
    const art::canvas back = saved(ramp, "ramp");
    for (int v = 0; v < 256; ++v) {
        const std::uint32_t p = pixel(back, v, 0);
        const auto red = static_cast<int>((p >> 16) & 0xFF), green = static_cast<int>((p >> 8) & 0xFF);
        EXPECT_EQ(red, (red >> 3) << 3 | red >> 5) << "level " << v;
        EXPECT_EQ(green, (green >> 2) << 2 | green >> 6) << "level " << v;
        EXPECT_LE(std::abs(red - v), 4);
        EXPECT_LE(std::abs(green - v), 2);
    }
}

TEST_F(Xpm, DitheringKeepsTheMeanAndStaysOutOfTransparency) {
    const art::rgb between = art::hex(0x888888); // between two 5-bit levels
    art::canvas parted(41, 40), alone(20, 40);
    block(parted, 0, 0, 20, 40, between);
    block(parted, 21, 0, 20, 40, art::hex(0x40C0F3));
    block(alone, 0, 0, 20, 40, between);
    const art::canvas a = saved(parted, "parted", {.dither = true}), b = saved(alone, "alone", {.dither = true});
    double sum = 0;
    for (int y = 0; y < 40; ++y) {
        EXPECT_EQ(pixel(a, 20, y), 0U) << "the gap is transparent";
        for (int x = 0; x < 20; ++x) {
            EXPECT_EQ(pixel(a, x, y), pixel(b, x, y)) << "error has crossed the gap at " << x << ", " << y;
            sum += (pixel(a, x, y) >> 16) & 0xFF;
        }
    }
    EXPECT_NEAR(sum / (20 * 40), 0x88, 0.5);
}

TEST_F(Xpm, NinetyThreeColoursTakeTwoCharacters) {
    for (const int colours : {92, 93}) {
        art::canvas picture(colours, 1);
        for (int i = 0; i < colours; ++i)
            block(picture, i, 0, 1, 1, {(i % 8) * 36 / 255.0, (i / 8) * 17 / 255.0, 0});
        const art::canvas back = saved(picture, "many");
        for (int i = 0; i < colours; ++i)
            EXPECT_NEAR((pixel(back, i, 0) >> 8) & 0xFF, (i / 8) * 17, 2) << colours << " colours, number " << i;
        std::ifstream file(folder + "/xpm/many.xpm");
        std::stringstream content;
        content << file.rdbuf();
        EXPECT_NE(content.str().find("\"" + std::to_string(colours) + " 1 " + std::to_string(colours) +
                                     (colours == 92 ? " 1\"" : " 2\"")),
                  std::string::npos);
    }
}

TEST_F(Xpm, EdgePixelsBecomeOpaqueOnTheirGroundOrTransparent) {
    art::canvas picture(2, 1);
    cairo_rectangle(picture, 0, 0, 0.75, 1);
    cairo_rectangle(picture, 1, 0, 0.25, 1);
    art::fill(picture, {0, 0, 0});
    const art::canvas bare = saved(picture, "bare");
    EXPECT_EQ(pixel(bare, 0, 0), 0xFF000000);
    EXPECT_EQ(pixel(bare, 1, 0), 0U);
    const art::canvas grounded = saved(picture, "grounded", {.ground = art::rgb{1, 1, 1}, .threshold = 0.1});
    EXPECT_NEAR(pixel(grounded, 0, 0) & 0xFF, 0x40, 4);
    EXPECT_NEAR(pixel(grounded, 1, 0) & 0xFF, 0xC0, 4);
}

TEST_F(Xpm, RefusesAnOpaquePixelOfTheTransparentColour) {
    art::canvas picture(3, 2);
    block(picture, 1, 1, 1, 1, art::hex(0xEC0188)); // not the key itself, but the same on 16 bits
    EXPECT_EXIT(art::save(picture, "bad"), ::testing::ExitedWithCode(1), "bad.*\\(1, 1\\)");
}

} // namespace
