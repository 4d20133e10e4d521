// tavimo-sheets DATADIR OUTDIR [SET]: shows the finished pictures to a human eye.
//
// Reads DATADIR/xpm/ back and writes one PNG contact sheet per folder (transparency as a chequer, each
// file's name under its picture), and OUTDIR/joint-4x.png: pieces in and beside their cells, put together by
// the game's own placement rules and enlarged four times. SET limits the sheets to folders that begin so.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "assembly.h"
#include "fail.h"
#include "text.h"
#include "written.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int SHEET_WIDTH = 1200, GAP = 8, LABEL_HEIGHT = 14; // pixels
constexpr double LABEL_CAPS = 7;
constexpr int CHEQUER = 4;
constexpr art::rgb SHEET_GROUND = art::hex(0xF4F2EC), CHEQUER_LIGHT = art::hex(0xECE4F0),
                   CHEQUER_DARK = art::hex(0xC9BBD2), LABEL_INK = art::hex(0x403830);

constexpr art::rgb NIGHT_LIGHT = art::hex(0x33415C), NIGHT_DARK = art::hex(0x26324A);
constexpr int SMALL = 24, SMALL_SCALE = 3; // a folder of pictures this small is shown enlarged

struct picture {
    std::string label;
    art::canvas image;
    int x = 0, y = 0; // on its sheet
};

// A copy in which each pixel is a square of `scale` pixels.
art::canvas enlarge(const art::canvas &picture, int scale) {
    art::canvas large(picture.width * scale, picture.height * scale);
    cairo_scale(large, scale, scale);
    cairo_set_source_surface(large, picture.surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(large), CAIRO_FILTER_NEAREST);
    cairo_paint(large);
    cairo_identity_matrix(large);
    return large;
}

void write_png(const art::canvas &sheet, const fs::path &path) {
    fs::create_directories(path.parent_path());
    if (cairo_surface_write_to_png(sheet.surface.get(), path.c_str()) != CAIRO_STATUS_SUCCESS)
        fail("cannot write " + path.string());
}

// Sets the pictures out in rows; returns the height of the sheet.
int lay_out(std::vector<picture> &pictures) {
    int x = GAP, y = GAP, row_height = 0;
    for (picture &p : pictures) {
        const int width =
            std::max(p.image.width, static_cast<int>(art::text_width(art::face::andika, LABEL_CAPS, p.label)));
        if (x > GAP && x + width + GAP > SHEET_WIDTH) {
            x = GAP;
            y += row_height + LABEL_HEIGHT + GAP;
            row_height = 0;
        }
        p.x = x, p.y = y;
        x += width + GAP;
        row_height = std::max(row_height, p.image.height);
    }
    return y + row_height + LABEL_HEIGHT + GAP;
}

void draw_chequer(cairo_t *cr, int x, int y, int width, int height, art::rgb light, art::rgb dark) {
    cairo_save(cr);
    cairo_rectangle(cr, x, y, width, height);
    cairo_clip(cr);
    for (int row = 0; row * CHEQUER < height; ++row) {
        for (int column = 0; column * CHEQUER < width; ++column) {
            cairo_rectangle(cr, x + column * CHEQUER, y + row * CHEQUER, CHEQUER, CHEQUER);
            art::fill(cr, (row + column) % 2 ? dark : light);
        }
    }
    cairo_restore(cr);
}

// White glyphs are shown on a dark chequer.
void write_sheet(std::vector<picture> &pictures, const fs::path &path, bool dark) {
    const int height = lay_out(pictures);
    art::canvas sheet(SHEET_WIDTH, height);
    cairo_rectangle(sheet, 0, 0, SHEET_WIDTH, height);
    art::fill(sheet, SHEET_GROUND);
    for (const picture &p : pictures) {
        draw_chequer(sheet, p.x, p.y, p.image.width, p.image.height, dark ? NIGHT_LIGHT : CHEQUER_LIGHT,
                     dark ? NIGHT_DARK : CHEQUER_DARK);
        art::paste(sheet, p.image, p.x, p.y);
        art::text(sheet, art::face::andika, LABEL_CAPS, p.x, p.y + p.image.height + LABEL_HEIGHT - 3, art::align::left,
                  p.label, LABEL_INK);
    }
    write_png(sheet, path);
}

// The names (relative, without extension) of all pictures below xpm/, by folder, in order.
std::map<std::string, std::vector<std::string>> find_pictures(const fs::path &root, const std::string &set) {
    std::map<std::string, std::vector<std::string>> folders;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != PICTURE_SUFFIX)
            continue;
        const std::string folder = fs::relative(entry.path().parent_path(), root).generic_string();
        if (folder.starts_with(set))
            folders[folder].push_back(entry.path().stem().string());
    }
    for (auto &[folder, names] : folders)
        std::sort(names.begin(), names.end());
    return folders;
}

void write_folder(const std::string &folder, const std::vector<std::string> &names, const fs::path &out) {
    std::vector<picture> pictures;
    int largest = 0;
    for (const std::string &name : names) {
        pictures.push_back({.label = name, .image = art::load(PICTURE_FOLDER + folder + "/" + name + PICTURE_SUFFIX)});
        largest = std::max({largest, pictures.back().image.width, pictures.back().image.height});
    }
    for (picture &p : pictures) {
        if (largest <= SMALL)
            p.image = enlarge(p.image, SMALL_SCALE);
    }
    std::string file = folder;
    std::replace(file.begin(), file.end(), '/', '-');
    write_sheet(pictures, out / (file + ".png"), folder.starts_with("font"));
}

constexpr int JOINT_SCALE = 4;
constexpr int JOINT_TYPE = 0;

int run(int argc, char **argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: tavimo-sheets DATADIR OUTDIR [SET]\n");
        return 2;
    }
    const fs::path root = fs::path(argv[1]) / PICTURE_FOLDER, out = argv[2];
    art::set_output(argv[1]);
    for (const auto &[folder, names] : find_pictures(root, argc > 3 ? argv[3] : ""))
        write_folder(folder, names, out);
    if (fs::exists(root / PUZZLE_LAYOUTS[JOINT_TYPE].dir))
        write_png(enlarge(art::joint_study(JOINT_TYPE), JOINT_SCALE), out / "joint-4x.png");
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    return exit_code_of("tavimo-sheets", [=] { return run(argc, argv); });
}
