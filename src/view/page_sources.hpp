// Where a page comes from in the program: the request from the running
// session (its settings and the vacation order and earliest start of the
// run), and the extras: the sky of the astronomy library for the settings'
// place and time zone, the user's notes, and the user's calendar and shift
// markings. Each source refers to its store, which must outlive the
// PageExtras made from it.
#pragma once

#include "astro/day_information.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_store.hpp"
#include "session/session.hpp"
#include "settings/settings.hpp"
#include "view/page_input.hpp"

namespace sk::view {

// The page of the session starting with the month of `first_month`: columns,
// model, display options and target hours from its settings, the vacation
// block from its vacation order and earliest start (so that the keys Y and F
// show at once).
PageRequest page_request(const session::Session& session, const calendar::Day& first_month,
                         std::optional<calendar::Day> cursor, const calendar::Day& today);

// The moon phases, eclipses and apsides of a range of days seen from the
// place, computed for the whole range at once. The source keeps the last
// range it computed, so that
// redrawing the same months (the cursor moved, a note was saved) does not
// compute the sky again.
decltype(PageExtras::sky) sky_source(const astro::Place& place);
// A day has notes when any note of the four kinds applies to it (index
// lookups only, no file is read).
decltype(PageExtras::has_notes) notes_source(const notes::NoteStore& notes);
decltype(PageExtras::marking_colour) marking_source(const marks::CalendarMarkings& markings);
decltype(PageExtras::shift_marking) shift_marking_source(const marks::ShiftMarkings& markings);

// Every extra of a logged-in user: what the window and the clipboard draw.
struct UserStores {
    const notes::NoteStore& notes;
    const marks::CalendarMarkings& calendar_markings;
    const marks::ShiftMarkings& shift_markings;
};
PageExtras page_extras(const settings::Settings& settings, const UserStores& stores);
// The same from the session's stores; the session must outlive the extras.
PageExtras page_extras(const session::Session& session);

}  // namespace sk::view
