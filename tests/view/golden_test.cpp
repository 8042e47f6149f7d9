// Whole pages compared with committed PNGs: one page per kind of model and a
// page with every extra. Regenerate after a deliberate change of the look
// with SK_UPDATE_GOLDEN=1 and look at the new files before committing them.
#include <gtest/gtest.h>

#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

struct GoldenCase {
    const char* name;
    PageRequest request;
    bool extras;
};

PageRequest with(PageRequest r, auto change) {
    change(r);
    return r;
}

TEST(GoldenPages, MatchCommittedImages) {
    const GoldenCase cases[] = {
        {"model1_vacation_block",
         with(test::request(2024, 5, 3, 1),
              [](PageRequest& r) {
                  r.options.vacation_block = true;
                  r.today = date(2024, 6, 12);
              }),
         false},
        {"model2_two_shifts", test::request(2024, 12, 3, 2), false},
        {"model6_four_crews",
         with(test::request(2025, 3, 3, 6), [](PageRequest& r) { r.options.week_numbers = false; }),
         false},
        {"model5_plan",
         with(test::request(2024, 3, 3, 5), [](PageRequest& r) { r.options.vacation_block = true; }),
         false},
        {"extras_notes_markings_moon",
         with(test::request(2024, 3, 3, 0),
              [](PageRequest& r) {
                  r.options.moon_phases = true;
                  r.options.distances = true;
                  r.today = date(2024, 4, 9);
                  r.cursor = date(2024, 3, 20);
              }),
         true},
    };
    PageRenderer renderer(test::test_font());
    for (const GoldenCase& c : cases) {
        SCOPED_TRACE(c.name);
        const PageLayout layout = renderer.layout(c.request, c.extras ? test::sample_extras() : PageExtras{});
        const std::string problem = test::check_golden(c.name, layout);
        EXPECT_TRUE(problem.empty()) << problem;
    }
}

}  // namespace
}  // namespace sk::view
