// Whole pages compared with committed PNGs: one page per kind of model and a
// page with every extra. Regenerate after a deliberate change of the look
// with SK_UPDATE_GOLDEN=1 and look at the new files before committing them.
#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "view/page_painter.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

// The page with every extra shown, today and the cursor on it.
PageRequest every_extra() {
    PageRequest r = test::request(2024, 3, 3, 0);
    r.options.moon_phases = r.options.distances = true;
    r.today = date(2024, 4, 9);
    r.cursor = date(2024, 3, 20);
    return r;
}

TEST(GoldenPages, MatchCommittedImages) {
    PageRequest block = test::request(2024, 5, 3, 1);  // with the vacation block, as by default
    block.today = date(2024, 6, 12);
    PageRequest four_crews = test::request(2025, 3, 3, 6);
    four_crews.options.week_numbers = false;
    const std::tuple<const char*, PageRequest, bool> cases[] = {
        {"model1_vacation_block", block, false},
        {"model2_two_shifts", test::request(2024, 12, 3, 2), false},
        {"model6_four_crews", four_crews, false},
        {"model5_plan", test::request(2024, 3, 3, 5), false},
        {"extras_notes_markings_moon", every_extra(), true},
    };
    PageRenderer renderer(test::test_font());
    for (const auto& [name, request, extras] : cases) {
        SCOPED_TRACE(name);
        const PageLayout layout = renderer.layout(request, extras ? test::sample_extras() : PageExtras{});
        const std::string problem = test::check_golden(name, layout);
        EXPECT_TRUE(problem.empty()) << problem;
    }
}

// Images at their natural size are painted by the fast image painter; any
// other target (PDF, a scaled window) by Cairo alone. Both must give the same
// page, up to glyphs placed a pixel apart.
TEST(Painters, ImageAndCairoPaintersAgree) {
    PageRenderer renderer(test::test_font());
    const PageLayout layout = renderer.layout(every_extra(), test::sample_extras());
    const SurfacePtr fast = render_image(layout);
    const int w = cairo_image_surface_get_width(fast.get()), h = cairo_image_surface_get_height(fast.get());

    const SurfacePtr slow(cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h));
    {
        // A sub-surface is no image surface, so this takes the Cairo path.
        const SurfacePtr sub(cairo_surface_create_for_rectangle(slow.get(), 0, 0, layout.width, layout.height));
        const CairoPtr cr(cairo_create(sub.get()));
        paint_page(cr.get(), layout);
    }
    const test::ImageDifference diff = test::compare_images(slow.get(), fast.get(), 96);
    ASSERT_TRUE(diff.same_size);
    const long pixels = static_cast<long>(layout.width * layout.height);
    EXPECT_LT(diff.differing, pixels / 100) << diff.differing << " of " << pixels << " pixels differ";

    // Inside a pushed group the fast painter draws into the group.
    const SurfacePtr grouped(cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h));
    {
        const CairoPtr cr(cairo_create(grouped.get()));
        cairo_push_group(cr.get());
        paint_page(cr.get(), layout);
        cairo_pop_group_to_source(cr.get());
        cairo_paint(cr.get());
    }
    EXPECT_EQ(test::compare_images(grouped.get(), fast.get(), 8).differing, 0);
}

// A layout keeps the shaper its texts were shaped with: after its renderer
// has changed the font, and after the renderer is gone, the page (and a copy)
// still paints as before. Under the sanitizers a glyph or stamp of a
// destroyed shaper would be reported here.
TEST(Painters, LayoutOutlivesAFontChange) {
    std::optional<PageRenderer> renderer(std::in_place, test::test_font());
    const PageLayout page = renderer->layout(every_extra(), test::sample_extras());
    renderer->set_font({"FreeSans", 12, 1});
    EXPECT_GT(renderer->layout(every_extra(), {}).cell.height, page.cell.height);
    const PageLayout copy = page;
    renderer.reset();
    for (const PageLayout* layout : {&page, &copy}) {
        const std::string problem = test::check_golden("extras_notes_markings_moon", *layout);
        EXPECT_TRUE(problem.empty()) << problem;
    }
}

}  // namespace
}  // namespace sk::view
