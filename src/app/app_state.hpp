// What the window works on: the session (user, settings, notes, markings,
// accounts), the page it shows, the day that counts as today, the page's
// renderer with its font, and the run's page background. One value, owned
// by the application for the life of the window; the commands change it and
// the window shows it.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "calendar/page_state.hpp"
#include "session/session.hpp"
#include "view/colour.hpp"
#include "view/page_output.hpp"

namespace sk::app {

// The room the page has on the screen, in pixels.
struct ScreenSize {
    int width = 0;
    int height = 0;
};

struct AppState {
    session::Session session;
    calendar::PageState page;
    calendar::Day today;
    view::PageRenderer renderer;
    // Key H: the background of the page, for this run only (white when the
    // program starts, as the page is printed).
    view::Rgb background = view::kWhite;
    // The screen the page must fit (the work area of the window's monitor);
    // nullopt when no screen is found. Tests put a screen of their own here.
    std::function<std::optional<ScreenSize>()> screen;
    // The user directory opened at the start: the next start reads its
    // settings, so a new data root is noted there too.
    std::filesystem::path start_user_dir;

    AppState(session::Session s, const calendar::Day& today_);
};

// The page settings of the session made to follow the page: "Schichtspalten"
// and "Schichtart" are written with the settings on exit.
void keep_page_in_settings(AppState& state);

}  // namespace sk::app
