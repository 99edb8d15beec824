#include "nav/CoordinateText.h"
#include "shell/settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>

TEST(CoordinateText, FormatsEachNotationWithCarries) {
    struct Case {
        const char* legend;
        double value;
        int8_t format;
        bool isLatitude;
        const char* text;
    } cases[] = {
        {"example latitude", 48.1234567, 0, true, "N 48°07.407"},
        {"thousandths carry into minutes, minutes into degrees", 59.999999, 0, true, "N 60°00.000"},
        {"just below the carry", 59.99999, 0, true, "N 59°59.999"},
        {"thousandths carry into minutes only", 10.0166666, 0, true, "N 10°01.000"},
        {"zero is north", 0.0, 0, true, "N 00°00.000"},
        {"zero is east", 0.0, 0, false, "E 000°00.000"},
        {"west, three-digit degrees", -8.5, 0, false, "W 008°30.000"},
        {"whole seconds", 11.57, 1, false, "E 011°34'12''"},
        {"seconds carry into minutes and degrees", 10.999999, 1, true, "N 11°00'00''"},
        {"south in seconds", -33.865, 1, true, "S 33°51'54''"},
        {"decimal degrees are never padded", 8.5, 2, false, "E 8.500000"},
        {"decimal degrees south", -33.5, 2, true, "S 33.500000"},
        {"UTM field: signed, no letter", -8.5, 3, false, "-8.500000"},
        {"MGRS: the caller writes it", 48.0, 4, true, ""},
        {"Falk/MarcoPolo: the caller writes it", 48.0, 5, true, ""},
        {"unknown notation", 48.0, 9, true, ""},
        {"not a number", std::nan(""), 0, true, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormatCoordinate(c.value, c.format, c.isLatitude), QString::fromUtf8(c.text)) << c.legend;
}

TEST(CoordinateText, FormatMinusOneReadsPosFormat) {
    struct Case {
        const char* legend;
        std::optional<uint32_t> stored;
        const char* text;
    } cases[] = {
        {"missing: degrees and minutes", std::nullopt, "N 48°30.000"},
        {"decimal degrees", 2, "N 48.500000"},
        {"MGRS: empty", 4, ""},
        {"beyond the choice list counts as 0", 6, "N 48°30.000"},
    };
    for (const Case& c : cases) {
        TestRoot root;
        if (c.stored) CRegistryKey().WriteDword(QStringLiteral("PosFormat"), *c.stored);
        EXPECT_EQ(FormatCoordinate(48.5, -1, true), QString::fromUtf8(c.text)) << c.legend;
    }
}

TEST(CoordinateText, ParsesTypedCoordinates) {
    struct Case {
        const char* legend;
        const char16_t* text;
        bool ok;
        double value;
    } cases[] = {
        {"empty text fails", u"", false, 0.0},
        {"letter alone", u"N", true, 0.0},
        {"no number at all", u"abc", true, 0.0},
        {"degrees and decimal minutes", u"N 48°07.407", true, 48.12345},
        {"degrees, minutes, seconds", u"E 011°34'12''", true, 11.57},
        {"south in seconds", u"S 33°51'54''", true, -(33 + 51 / 60.0 + 54 / 3600.0)},
        {"seconds without minutes", u"33°54''", true, 33 + 54 / 3600.0},
        {"minus sign", u"-11.5", true, -11.5},
        {"comma as decimal mark, west", u"W 8,5", true, -8.5},
        {"lower-case south", u"s 10", true, -10.0},
        {"trailing letter just ends the number", u"48.5N", true, 48.5},
        {"U+FFB4 is a minute mark", u"E 011°34\uFFB412''", true, 11.57},
        {"the acute accent is not: 34´12 reads as 34 seconds", u"E 011°34\u00B412''", true, 11 + 34 / 3600.0},
        {"grave accents as marks", u"11°34`12``", true, 11.57},
        {"seconds are whole", u"0°0'12.9''", true, 12 / 3600.0},
    };
    for (const Case& c : cases) {
        double value = 99.0;
        EXPECT_EQ(ParseCoordinate(QString::fromUtf16(c.text), value), c.ok) << c.legend;
        EXPECT_NEAR(value, c.value, 1e-12) << c.legend;
    }
}
