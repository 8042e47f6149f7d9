#include <gtest/gtest.h>

#include "calendar/shift_model.hpp"
#include "view/colour.hpp"

namespace sk::view {
namespace {

TEST(Colour, CalendarValuesHaveRedInTheLowByte) {
    EXPECT_EQ(Rgb::from_value(14215660), (Rgb{236, 233, 216}));
    EXPECT_EQ(Rgb::from_value(763883), (Rgb{235, 167, 11}));
    EXPECT_EQ((Rgb{219, 214, 181}).value(), 219u + 214u * 256 + 181u * 65536);
}

// Crew letters must read on the crew colours: dark on yellow, green, orange
// and red, white on blue.
TEST(Colour, TextOnCrewColours) {
    const Rgb expected[5] = {kBlack, kWhite, kBlack, kBlack, kBlack};
    for (int crew = 0; crew < 5; ++crew) {
        const Rgb background = Rgb::from_value(calendar::kCrewColours[static_cast<std::size_t>(crew)]);
        const Rgb text = text_colour_on(background);
        EXPECT_EQ(text, expected[crew]) << "crew " << crew;
        EXPECT_GE(contrast_ratio(text, background), 4.5) << "crew " << crew;
    }
    EXPECT_EQ(text_colour_on({30, 30, 60}), kWhite);
    EXPECT_EQ(text_colour_on({250, 240, 200}), kBlack);
}

}  // namespace
}  // namespace sk::view
