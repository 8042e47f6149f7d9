// The texts of the status lines under the page, for the cursor day: what the
// day is (weekday, date, calendar week, holidays and named days, name days,
// school holidays) and the state of the program (shift model, vacation
// block, user), the day's notes in one line, the astronomy line, and the two
// account fields. Plain text from the core's own functions; the window only
// puts it into its fields.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "calendar/colour.hpp"
#include "calendar/dates.hpp"
#include "notes/note_store.hpp"
#include "session/session.hpp"

namespace sk::view {

// Between the parts of the day line: a no-break space, "·" and a blank.
inline constexpr std::string_view kStatusPartSeparator = "\u00A0· ";

// What the day line says about the program beside the day.
struct ProgramState {
    int model = 0;
    bool block_shown =
        true;  // "UrlaubBlockAnzeige"; mentioned only when off in a model with a block
    std::string_view user;
};

// "Montag, 23.11.2026 · KW 48 · Buß- und Bettag · Namenstag: Klemens ·
// Schulferien · Rodenwald PM 1 · Benutzer: Programm" (the parts that apply).
std::string day_status(const calendar::Day& day, const ProgramState& state);

// The notes of the day joined with the one-line separator, line ends inside a
// note turned into blanks (the field holds one line).
std::string notes_status(const notes::NoteStore& store, const calendar::Day& day);

struct StatusTexts {
    std::string day;        // first line
    std::string notes;      // second line
    std::string astronomy;  // third line
    std::string hours;      // 7 characters, right end of the first line; empty in models 6 and 7
    calendar::Rgb hours_colour = calendar::kBlack;
    std::string vacation;  // 3 characters, right end of the second line; empty in models 6 and 7
};

// Every status text for the cursor day. Like a redraw of the page it runs the
// accounts' new-year reset (which writes "Urlaubstage.dat" when it happens).
StatusTexts status_texts(session::Session& session, const calendar::Day& cursor,
                         const calendar::Day& today);

}  // namespace sk::view
