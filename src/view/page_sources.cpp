#include "view/page_sources.hpp"

#include <memory>

#include "notes/notes_of_day.hpp"
#include "settings/astro_place.hpp"

namespace sk::view {

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

}  // namespace sk::view
