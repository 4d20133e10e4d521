// app.cpp: start-up, the main loop and shutdown, each in its one order.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"

#include "core/base/app_state.h"
#include "core/base/log.h"
#include "core/ui/help.h"
#include "core/ui/screen.h"
#include "graphics/blit.h"
#include "graphics/font.h"
#include "graphics/prim.h"
#include "graphics/render.h"
#include "graphics/video.h"
#include "input/cursor.h"
#include "input/input.h"
#include "persist/best_times.h"
#include "persist/best_times_file.h"
#include "persist/prefs.h"
#include "platform/platform.h"
#include "puzzles/background.h"
#include "puzzles/board.h"
#include "resources/archive.h"
#include "screens/dialog.h"
#include "screens/screen_table.h"
#include "sound/sound.h"
#include "sprites/effect.h"

#include <SDL.h>
#include <SDL_thread.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <new>

namespace {

constexpr u32 FRAME_PERIOD = 20; // ms
constexpr i32 EFFECT_VOLUME = 128, MUSIC_VOLUME = 100;
constexpr int EXIT_NO_SDL = 1, EXIT_RUNNING = 1, EXIT_NO_START = -1;
constexpr i32 BOTH_SAVED = 2; // 1 each

// Taken just before a normal exit, for the exit handler; 0 on every other way out.
u32 open_web_page = 0;

std::atomic<bool> two_threads = false; // only the end of the main loop may end the program meanwhile
std::once_flag saved;
std::atomic<bool> save_failed = false;

// --- Shutdown ------------------------------------------------------------------------------------

// On whichever thread the end comes first; another one waits until all is on the disk.
void save() {
    std::call_once(saved, [] { save_failed = prefs_save() + best_times_save() < BOTH_SAVED; });
}

// What could not be saved, for want of room on the disk perhaps, is tried again at the very end.
void save_again() {
    if (save_failed && prefs_save() + best_times_save() < BOTH_SAVED)
        std::fputs("Names and scores could not be saved\n", stderr);
}

void app_state_destroy() {
    if (app == nullptr)
        return;
    board_destroy(app->board);
    std::free(app->player_name);
    std::free(app);
    app = nullptr;
}

// Every step is safe when its start-up step never ran.
void app_exit_handler() {
    // A library has ended the program, as Xlib does when the display goes away, perhaps on the render thread: both
    // threads still use what would be released here, but what was recorded must not be lost. So ends a session: no
    // failure of the program.
    if (two_threads.exchange(false)) {
        save();
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
    screen_shutdown_all();
    effects_shutdown();
    board_free_background();
    save_again();
    best_times_destroy();
    app_state_destroy();
    cursor_shutdown();
    input_shutdown();
    font_shutdown();
    video_shutdown();
    data_archive_close();
    sound_shutdown();
    SDL_Quit();
    if (open_web_page != 0)
        platform_open_web_page(TAVIMO_WEB_PAGE);
}

// --- Start-up ------------------------------------------------------------------------------------

[[noreturn]] void fail_with_sdl_error() {
    std::fprintf(stderr, "Fatal Error: %s\n", SDL_GetError());
    std::exit(EXIT_NO_SDL);
}

i32 set_caption() {
    SDL_WM_SetCaption("Tavimo", nullptr);
    return 1;
}

i32 start_sound() {
    if (sound_init() < 0) {
        log_error("Error initializing audio, sound will unavailable\n");
        return 1;
    }
    sound_set_effect_volume(EFFECT_VOLUME);
    sound_set_music_volume(MUSIC_VOLUME);
    sound_resume();
    return 1;
}

i32 app_state_create() {
    void *block = std::calloc(1, sizeof(app_state));
    if (block == nullptr) {
        log_out_of_memory();
        return -1;
    }
    app = new (block) app_state{}; // starts the life of the atomic flags
    app->puzzle = -1;
    app->board = board_create();
    return app->board != nullptr ? 1 : -1;
}

i32 load_saved() {
    prefs_load();
    best_times_load();
    return 1;
}

i32 start_screens() {
    return screen_init_all(screen_table);
}

// In order. A negative result, which the step has logged, stops the program.
// clang-format off
constexpr i32 (*START_UP[])() = {
    data_archive_open,
    video_init,
    prim_init,
    set_caption,
    blit_init,
    font_init,
    start_sound,
    input_init,
    cursor_init,
    app_state_create,
    best_times_create,
    help_init,
    load_saved,
    board_reset_background,
    effects_init,
    start_screens,
};
// clang-format on

// Two games over one data folder would write over each other's scores.
void refuse_second_game() {
    if (platform_claim_folder("..\\data"))
        return;
    std::fprintf(stderr, "Tavimo is already running\n");
    std::exit(EXIT_RUNNING);
}

// Sound can be done without; sound_init says so.
bool start_sdl() {
    if (SDL_Init(SDL_INIT_TIMER | SDL_INIT_VIDEO | SDL_INIT_JOYSTICK | SDL_INIT_NOPARACHUTE) < 0)
        return false;
    SDL_InitSubSystem(SDL_INIT_AUDIO);
    return true;
}

void start_up() {
    refuse_second_game();
    platform_join_desktop();
    if (!start_sdl()) {
        std::fprintf(stderr, "Fatal Error: %s\nno display\n", SDL_GetError());
        std::exit(EXIT_NO_SDL);
    }
    std::atexit(app_exit_handler);
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    log_set_file("errorlog.log");
    log_set_mode(LOG_FILE);
    for (auto *step : START_UP)
        if (step() < 0)
            std::exit(EXIT_NO_START);
}

// --- Main loop -----------------------------------------------------------------------------------

// The state is polled, so events are only looked at for what polling cannot tell; then the queue is emptied,
// because SDL drops new events, closing the window among them, once it is full.
void handle_events() {
    constexpr u32 OTHER_EVENTS = SDL_ALLEVENTS ^ (SDL_KEYEVENTMASK | SDL_MOUSEEVENTMASK); // those are the poll's
    SDL_Event event;
    if (SDL_PeepEvents(&event, 1, SDL_PEEKEVENT, SDL_VIDEOEXPOSEMASK) > 0)
        screen_request_redraw();
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, OTHER_EVENTS) > 0)
        if (event.type == SDL_QUIT)
            app_request_quit();
}

// SDL's timers are not used, but the thread that would run them wakes a thousand times a second. Its end is waited
// for, which must not delay the first picture.
void stop_sdl_timers() {
    SDL_QuitSubSystem(SDL_INIT_TIMER);
}

void main_loop() {
    for (bool first = true;; first = false) {
        const u32 start = SDL_GetTicks();
        screen_tick();
        screen_update();
        screen_draw();
        screen_end_frame();
        handle_events();
        if (app_has(APP_QUIT))
            return;
        if (first)
            stop_sdl_timers();
        const u32 elapsed = SDL_GetTicks() - start;
        if (elapsed < FRAME_PERIOD)
            SDL_Delay(FRAME_PERIOD - elapsed);
    }
}

} // namespace

void app_run() {
    start_up();
    SDL_Thread *renderer = render_start();
    if (renderer == nullptr)
        fail_with_sdl_error();
    two_threads = true;
    main_loop();
    dialog_record_completed();
    save();
    render_stop(renderer);
    two_threads = false;
    open_web_page = app->flags & APP_OPEN_WEB_PAGE;
    std::exit(EXIT_SUCCESS);
}
