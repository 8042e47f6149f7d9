// The page from the program's state: the request from the session's
// settings and run, the font from the settings, and the extras from the sky
// of the astronomy library and the user's marking lists (the notes reach the
// page in the render command's tests).
#include "view/page_sources.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>
#include <utility>
#include <vector>

#include "marks/accounts.hpp"
#include "settings/astro_place.hpp"
#include "test_support.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

// The source keeps the last range; another range must not get its sky.
TEST(PageSources, SkyOfAnotherRangeIsComputedAnew) {
    const auto sky = sky_source(settings::astro_place(settings::Settings{}));
    const calendar::DayNumber eclipse = date(2024, 4, 8).number;
    const std::vector<DaySymbols> first = sky(eclipse - 10, eclipse + 10);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    const std::vector<DaySymbols> shifted = sky(eclipse - 9, eclipse + 10);
    ASSERT_EQ(shifted.size(), 20u);
    EXPECT_TRUE(shifted[9].solar_eclipse);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    EXPECT_TRUE(first[10].solar_eclipse);
}

TEST(PageSources, MarkingsOfTheUsersLists) {
    marks::CalendarMarkings bars;
    bars.items = {{date(2024, 3, 1).number, date(2024, 3, 10).number, Rgb{239, 194, 161}}};
    const auto colour = marking_source(bars);
    EXPECT_EQ(colour(date(2024, 2, 29).number), std::nullopt);
    EXPECT_EQ(colour(date(2024, 3, 1).number), (Rgb{239, 194, 161}));
    marks::ShiftMarkings shifts;
    shifts.items = {{date(2024, 3, 5).number, 2, marks::kind_a::kSick}};
    const auto mark = shift_marking_source(shifts);
    const std::optional<ShiftMark> sick = mark(date(2024, 3, 5).number);
    ASSERT_TRUE(sick);
    EXPECT_EQ(std::pair(sick->column, sick->code), std::pair(2, int{marks::kind_a::kSick}));
    EXPECT_FALSE(mark(date(2024, 3, 6).number));
}

// Each display flag of the settings switches its own option of the page and
// no other; columns, model and target hours come along.
TEST(SessionPage, SettingsReachTheRequest) {
    using S = settings::Settings;
    using O = DisplayOptions;
    const std::tuple<int S::*, bool O::*, bool> flags[] = {
        // flag, option, default
        {&S::school_holidays_shown, &O::school_holidays, true},
        {&S::week_numbers_shown, &O::week_numbers, true},
        {&S::moon_phases_shown, &O::moon_phases, false},
        {&S::perihelion_shown, &O::distances, false},
        {&S::vacation_block_shown, &O::vacation_block, true},
    };
    for (std::size_t flipped = 0; flipped <= std::size(flags); ++flipped) {
        session::Session s;
        if (flipped < std::size(flags))
            s.settings.*std::get<0>(flags[flipped]) = std::get<2>(flags[flipped]) ? 0 : 1;
        const O options = page_request(s, date(2024, 3, 1), {}, date(2024, 3, 5)).options;
        for (std::size_t i = 0; i < std::size(flags); ++i)
            EXPECT_EQ(options.*std::get<1>(flags[i]), std::get<2>(flags[i]) != (i == flipped)) << i;
    }
    session::Session s;
    s.settings.columns = 11;
    s.settings.model = 5;
    s.settings.target_hours_38 = 1900.5f;
    const PageRequest r = page_request(s, date(2024, 3, 20), date(2024, 4, 2), date(2024, 3, 5));
    EXPECT_EQ(std::tuple(r.first_year, r.first_month_index, r.columns, r.model, r.target_hours),
              std::tuple(2024, 2, 11, 5, 1900.5f));
}

// Family, size and style of the settings: an empty family is the default
// face; bold widens the regular texts, italic slants them.
TEST(SessionPage, FontOfTheSettings) {
    settings::Settings s;
    EXPECT_EQ(font_spec(s), (FontSpec{"DejaVu Sans", 10, 0}));
    s.font_name = "FreeSans";
    s.font_size = 9;
    s.font_style = 3;
    EXPECT_EQ(font_spec(s), (FontSpec{"FreeSans", 9, 3}));

    const auto page = [](int style) {
        return PageRenderer({"DejaVu Sans", 8, style}).layout(test::request(2024, 3, 1, 0), {});
    };
    const PageLayout regular = page(0), bold = page(1), italic = page(2);
    ASSERT_EQ(regular.texts.size(), bold.texts.size());
    for (std::size_t i = 0; i < regular.texts.size(); ++i) {
        const TextItem& t = regular.texts[i];
        if (t.style == TextStyle::Regular && !t.text.empty()) {
            EXPECT_GT(bold.texts[i].width(), t.width()) << t.text;
        }
    }
    EXPECT_GT(
        test::compare_images(render_image(italic).get(), render_image(regular).get(), 64).differing,
        1000);
}

// The page and the accounts follow the run's vacation order and earliest
// start: "UrlaubZyklus" from the file, then Y, then F. Each time the home
// crew's vacation days on the page are the days that "Den Urlaubsblock als
// Minusstunden berechnen" charges (8 hours, 12 on a Sunday, none on a paid
// holiday).
TEST(SessionPage, KeysYAndFMoveTheBlockOnThePageAndInTheAccounts) {
    sk::test::TempDir dir;
    std::filesystem::create_directories(dir / "Anna");
    sk::test::write_bytes(dir / "Anna" / "Einstellungen.dat",
                          "[Programmeinstellungen]\nSchichtart = 1\nSchichtspalten = 12\n"
                          "UrlaubZyklus = 1\n");
    session::OpenResult opened = session::open_session(
        {.data_root = dir.path(), .user = "Anna", .mode = session::OpenMode::ReadOnly});
    session::Session& s = *opened.session;
    const calendar::Day today = date(2024, 12, 31);
    constexpr std::size_t kHome = 3;
    marks::AccountState state;
    state.hours.home_crew = kHome;
    state.hours.block_as_minus = true;
    PageRenderer renderer(test::test_font());

    // The block's first day and crew on the page, checking the hours on the way.
    const auto block_start = [&] {
        const PageLayout page = renderer.layout(page_request(s, date(2024, 1, 1), {}, today), {});
        std::pair<calendar::DayNumber, int> first{-1, -1};
        double hours = 0;
        for (const DayCell& d : page.days) {
            for (int c = 0; c < d.crews && first.first < 0; ++c) {
                const CellKind kind = d.shifts[static_cast<std::size_t>(c)].kind;
                if (kind == CellKind::Vacation || kind == CellKind::VacationOff)
                    first = {d.day.number, c};
            }
            if (d.shifts[kHome].kind == CellKind::Vacation && !marks::is_paid_holiday(d.day, 1))
                hours += d.day.is_sunday() ? 12 : 8;
        }
        EXPECT_GT(hours, 0);
        EXPECT_EQ(marks::hours_change({}, state, session::plan_context(s), today).block_minus,
                  hours);
        EXPECT_EQ(marks::hours_balance({}, state, session::plan_context(s), today).hours, -hours);
        return first;
    };
    // Order row of 2024 (year mod 5 = 4): 2 3 4 0 1, rotated once by the file.
    EXPECT_EQ(block_start().second, 3);
    session::rotate_vacation_order(s);
    const auto [start, crew] = block_start();
    EXPECT_EQ(crew, 4);
    // F: an earliest start one day after the block's start moves it five weeks on.
    const calendar::Day next = calendar::Day::from_number(start + 1);
    s.vacation_start = {next.month_index + 1, next.mday};
    EXPECT_EQ(block_start(), std::pair(start + 35, 4));
}

}  // namespace
}  // namespace sk::view
