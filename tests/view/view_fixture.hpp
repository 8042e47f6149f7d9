// Shared pieces of the view tests: the fixed test font (the fontconfig of
// tests/view/fonts.conf is made current before any test runs), fake per-day
// extras, and the comparison of images with committed golden PNGs.
#pragma once

#include <cairo.h>

#include <string>

#include "calendar/dates.hpp"
#include "test_support.hpp"
#include "view/page_input.hpp"
#include "view/page_output.hpp"

namespace sk::view::test {

// DejaVu Sans 8: small pages, small golden files.
FontSpec test_font();

using sk::test::date;  // month 1..12

// A page request with the default options (week numbers, school holidays,
// vacation block), no cursor, today outside the page.
PageRequest request(int year, int month, int columns, int model);

// Notes every 9th day, two calendar markings, a few shift markings and a
// sky of the spring of 2024 (phases, an eclipse of each kind, distances).
PageExtras sample_extras();

// Pixels whose B, G or R differ by more than the tolerance.
struct ImageDifference {
    bool same_size = false;
    long differing = 0;
};
ImageDifference compare_images(cairo_surface_t* actual, cairo_surface_t* expected, int tolerance);

// Compares the page with tests/view/golden/NAME.png. On a mismatch writes
// golden-output/NAME.actual.png in the working directory and returns a
// message; with SK_UPDATE_GOLDEN=1 rewrites the golden file.
std::string check_golden(const std::string& name, const PageLayout& layout);

}  // namespace sk::view::test
