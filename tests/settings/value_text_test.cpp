#include "settings/ValueText.h"

#include <gtest/gtest.h>

TEST(ValueText, WtolTakesLeadingDigitsOnly) {
    const struct {
        const char16_t* text;
        int32_t expected;
    } cases[] = {
        {u"42", 42},
        {u"  -7x", -7},
        {u"+3", 3},
        {u"abc", 0},
        {u"", 0},
        {u"1.9", 1},
        {u"99999999999", INT32_MAX}, // saturates
        {u"-99999999999", INT32_MIN},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ValueText::wtol(c.text), c.expected) << QString::fromUtf16(c.text).toStdString();
}

TEST(ValueText, WcstodReadsTheLeadingNumberWhateverTheLocale) {
    const struct {
        const char16_t* text;
        double expected;
    } cases[] = {
        {u"48.13548", 48.13548}, {u"48,13548", 48.0}, // a comma ends the number
        {u" -1.5e2x", -150.0},   {u"0x10", 16.0},     {u"abc", 0.0}, {u"", 0.0}, {u"+.5", 0.5},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(ValueText::wcstod(c.text), c.expected);
}

TEST(ValueText, StructuredFormsScanLikeSwscanf) {
    EXPECT_EQ(ValueText::parseRect(u"RECT(1,2)"), (Rect{1, 2, 0, 0})); // missing numbers are 0
    EXPECT_EQ(ValueText::parseRect(u"RECT( 1, -2,3,4)"), (Rect{1, -2, 3, 4}));
    EXPECT_EQ(ValueText::parseRect(u"rect(1,2,3,4)"), (Rect{})); // literal text is exact
    EXPECT_EQ(ValueText::parsePoint(u"POINT(5,6)"), (Point{5, 6}));
    EXPECT_EQ(ValueText::parseSize(u"SIZE(7)"), (Size{7, 0}));
    Colour colour = 0;
    EXPECT_EQ(ValueText::parseColour(u"Color(1,2,3)", colour), 3);
    EXPECT_EQ(colour, 0x030201u);
    EXPECT_EQ(ValueText::parseColour(u"Color(9)", colour), 1);
    EXPECT_EQ(colour, 9u);
}

TEST(ValueText, FormatsRoundTrip) {
    EXPECT_EQ(ValueText::formatRect({1, -2, 3, 4}), "RECT(1,-2,3,4)");
    EXPECT_EQ(ValueText::formatColour(makeColour(255, 128, 1)), "Color(255,128,1)");
    EXPECT_EQ(ValueText::formatF(11.5), "11.500000");
    EXPECT_EQ(ValueText::formatIntList({1, -2, 30}), "1,-2,30");
    EXPECT_EQ(ValueText::parseIntList(u"1,x,,7"), (QList<int32_t>{1, 0, 0, 7}));
    EXPECT_TRUE(ValueText::parseIntList(u"").isEmpty());
}
