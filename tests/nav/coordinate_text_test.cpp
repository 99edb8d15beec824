#include "nav/CoordinateText.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(CoordinateText, FormatsEachNotationWithCarries) {
    struct Case {
        const char* legend;
        double value;
        PosFormat format;
        bool isLatitude;
        const char* text;
    } cases[] = {
        {"example latitude", 48.1234567, PosFormat::DegreesMinutes, true, "N 48°07.407"},
        {"thousandths carry into minutes, minutes into degrees", 59.999999, PosFormat::DegreesMinutes, true,
         "N 60°00.000"},
        {"just below the carry", 59.99999, PosFormat::DegreesMinutes, true, "N 59°59.999"},
        {"thousandths carry into minutes only", 10.0166666, PosFormat::DegreesMinutes, true, "N 10°01.000"},
        {"zero is north", 0.0, PosFormat::DegreesMinutes, true, "N 00°00.000"},
        {"zero is east", 0.0, PosFormat::DegreesMinutes, false, "E 000°00.000"},
        {"west, three-digit degrees", -8.5, PosFormat::DegreesMinutes, false, "W 008°30.000"},
        {"whole seconds", 11.57, PosFormat::DegreesMinutesSeconds, false, "E 011°34'12''"},
        {"seconds carry into minutes and degrees", 10.999999, PosFormat::DegreesMinutesSeconds, true,
         "N 11°00'00''"},
        {"south in seconds", -33.865, PosFormat::DegreesMinutesSeconds, true, "S 33°51'54''"},
        {"decimal degrees are never padded", 8.5, PosFormat::DecimalDegrees, false, "E 8.500000"},
        {"decimal degrees south", -33.5, PosFormat::DecimalDegrees, true, "S 33.500000"},
        {"UTM field: signed, no letter", -8.5, PosFormat::Utm, false, "-8.500000"},
        {"MGRS: the caller writes it", 48.0, PosFormat::Mgrs, true, ""},
        {"Falk/MarcoPolo: the caller writes it", 48.0, PosFormat::FalkMarcoPolo, true, ""},
        {"unknown notation", 48.0, static_cast<PosFormat>(9), true, ""},
        {"not a number", std::nan(""), PosFormat::DegreesMinutes, true, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormatCoordinate(c.value, c.format, c.isLatitude), QString::fromUtf8(c.text)) << c.legend;
}
