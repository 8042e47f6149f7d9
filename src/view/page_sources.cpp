#include "view/page_sources.hpp"

#include <algorithm>
#include <memory>

#include "calendar/shift_model.hpp"
#include "notes/notes_of_day.hpp"
#include "settings/astro_place.hpp"

namespace sk::view {

PageRequest page_request(const session::Session& session, const calendar::Day& first_month,
                         std::optional<calendar::Day> cursor, const calendar::Day& today) {
    const settings::Settings& s = session.settings;
    PageRequest r;
    r.first_year = first_month.year;
    r.first_month_index = first_month.month_index;
    r.columns = calendar::kRenderColumns.clamp(s.columns);
    r.model = calendar::is_valid_model(s.model) ? s.model : 0;
    r.cursor = cursor;
    r.today = today;
    r.options = display_options(s);
    r.vacation_order = session.vacation_order;
    r.vacation_earliest = session.vacation_start;
    r.target_hours = s.target_hours_38;
    return r;
}

decltype(PageExtras::sky) sky_source(const astro::Place& place) {
    struct Last {
        DayRange range;
        std::vector<DaySymbols> sky;
    };
    auto last_page = std::make_shared<Last>();
    return [place, last_page](calendar::DayNumber first, calendar::DayNumber last) {
        if (last_page->range.first == first && last_page->range.last == last) return last_page->sky;
        std::vector<DaySymbols> sky = astro::page_symbols(first, last, place);
        *last_page = {{first, last}, sky};
        return sky;
    };
}

decltype(PageExtras::has_notes) notes_source(const notes::NoteStore& notes) {
    return [&notes](const calendar::Day& day) { return notes::day_has_notes(notes, day); };
}

decltype(PageExtras::marking_colour) marking_source(const marks::CalendarMarkings& markings) {
    return [&markings](calendar::DayNumber d) { return marks::marking_colour_of_day(markings, d); };
}

decltype(PageExtras::shift_marking) shift_marking_source(const marks::ShiftMarkings& markings) {
    return [&markings](calendar::DayNumber d) -> std::optional<ShiftMark> {
        const marks::ShiftMarking* m = marks::shift_marking_of_day(markings, d);
        if (!m) return std::nullopt;
        return ShiftMark{m->column, m->code};
    };
}

PageExtras page_extras(const settings::Settings& settings, const UserStores& stores) {
    PageExtras extras;
    extras.has_notes = notes_source(stores.notes);
    extras.marking_colour = marking_source(stores.calendar_markings);
    extras.shift_marking = shift_marking_source(stores.shift_markings);
    extras.sky = sky_source(settings::astro_place(settings));
    return extras;
}

PageExtras page_extras(const session::Session& session) {
    return page_extras(session.settings,
                       {session.notes, session.calendar_markings, session.shift_markings});
}

}  // namespace sk::view
