#include "nav/CoordinateText.h"

#include <cmath>
#include <gtest/gtest.h>

// The tool transcript (tests/data/nav) has one example of each notation; these are the carries and edges.
TEST(CoordinateText, FormatsEachNotationWithCarries) {
    struct Case {
        const char* legend;
        double value;
        PosFormat format;
        bool isLatitude;
        const char* text;
    } cases[] = {
        {"thousandths carry into minutes, minutes into degrees", 59.999999, PosFormat::DegreesMinutes, true,
         "N 60°00.000"},
        {"just below the carry", 59.99999, PosFormat::DegreesMinutes, true, "N 59°59.999"},
        {"thousandths carry into minutes only", 10.0166666, PosFormat::DegreesMinutes, true, "N 10°01.000"},
        {"zero is north", 0.0, PosFormat::DegreesMinutes, true, "N 00°00.000"},
        {"zero is east", 0.0, PosFormat::DegreesMinutes, false, "E 000°00.000"},
        {"whole seconds", 11.57, PosFormat::DegreesMinutesSeconds, false, "E 011°34'12''"},
        {"south in seconds", -33.865, PosFormat::DegreesMinutesSeconds, true, "S 33°51'54''"},
        {"decimal degrees are never padded", 8.5, PosFormat::DecimalDegrees, false, "E 8.500000"},
        {"Falk/MarcoPolo: the caller writes it", 48.0, PosFormat::FalkMarcoPolo, true, ""},
        {"unknown notation", 48.0, static_cast<PosFormat>(9), true, ""},
        {"not a number", std::nan(""), PosFormat::DegreesMinutes, true, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormatCoordinate(c.value, c.format, c.isLatitude), QString::fromUtf8(c.text)) << c.legend;
}
