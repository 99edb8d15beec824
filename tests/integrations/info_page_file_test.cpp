#include "integrations/infopage/InfoPageFile.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

namespace {

TEST(InfoPageRect, ResolvesRelativePositions) {
    struct Case {
        const char* legend;
        Rect pos, expected;
    } cases[] = {
        {"negative left: from the right edge, right 0 is the edge", {-100, 10, 0, 40}, {140, 10, 240, 40}},
        {"left and top not negative: right 0 stays 0", {10, 10, 0, 40}, {10, 10, 0, 40}},
        {"negative top: from the bottom edge", {10, -50, 100, -10}, {10, 270, 100, 310}},
        {"negative left, positive right stays", {-100, 0, 200, 0}, {140, 0, 200, 320}},
        {"negative right with a positive left stands as written", {5, 5, -5, -5}, {5, 5, -5, -5}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(resolveElementRect(c.pos, 240, 320), c.expected) << c.legend;
}

TEST(InfoPageFile, LooksUpTheSectionOfAState) {
    TestRoot root;
    InfoPageFile page;
    page.LoadFromBytes(
        "[Global]\nName=Uhr\n[Buttons]\n  Clock  \nLabel\nNoType\nMissing\nOnlyZero\n"
        "[Clock]\nType=0\nText=plain\n[Clock_0]\nType=3\nText=zero\n[Clock_1]\nType=1\nText=one\n"
        "[Clock_2]\nText=no type\n[Label]\nType=0\nText=label\n[NoType]\nText=x\n"
        "[OnlyZero_0]\nType=2\n",
        root.path());
    EXPECT_EQ(page.Name(), "Uhr");
    EXPECT_EQ(page.ElementNames(), QStringList({"Clock", "Label", "NoType", "OnlyZero"}));
    struct Case {
        const char* name;
        int state;
        const char* section; // "" when the element is skipped
        int type;
    } cases[] = {
        {"Clock", 0, "Clock_0", 3}, {"Clock", 1, "Clock_1", 1}, {"Clock", 2, "Clock_0", 3},
        {"Label", 5, "Label", 0},   {"NoType", 0, "", 0},       {"OnlyZero", 0, "OnlyZero_0", 2},
        {"Missing", 0, "", 0},
    };
    for (const Case& c : cases) {
        const auto spec = page.ReadElement(c.name, c.state);
        EXPECT_EQ(spec ? spec->strSection.toStdString() : "", c.section) << c.name << c.state;
        if (spec) EXPECT_EQ(spec->nType, c.type) << c.name << c.state;
    }
    EXPECT_TRUE(page.HasState("Clock", 1));
    EXPECT_FALSE(page.HasState("Clock", 2));
}

TEST(InfoPageFile, ReadsElementKeysWithTheirDefaults) {
    TestRoot root;
    InfoPageFile page;
    page.LoadFromBytes(
        "[Buttons]\nA\nB\n"
        "[A]\nType=1\nPos=RECT(1,2,3,4)\nAction= Satelliten \nPassive=1\nTopmost=0\n"
        "Font.lfHeight=-30\nFont.lfWeight=700\nFont.lfFaceName=DejaVu Sans\n"
        "Color_0=Color(255,0,0)\nColor_9=Color(1,2,3)\nColor_4=Color(7)\nFormat=21\n"
        "Text=%Speed%\nText_1=km/h\nText_2=x\nText_4=skipped\nXOffset=4\nBOffset=-2\n"
        "Bitmap=pic\\arrow.png\nTransparentColor=Color(255,0,255)\nRefresh=0\nNoMaskRefresh=1\n"
        "[B]\nType=5\nBitmap=\\Tarvik\\b.png\n",
        root.path() + "/pages");
    const auto a = page.ReadElement("A", 0);
    ASSERT_TRUE(a);
    EXPECT_TRUE(a->IsButton());
    EXPECT_EQ(a->pos, Rect({1, 2, 3, 4}));
    EXPECT_EQ(a->strAction, "Satelliten");
    EXPECT_TRUE(a->bPassive);
    EXPECT_FALSE(a->bTopmost);
    ASSERT_TRUE(a->font);
    EXPECT_EQ(a->font->lfHeight, -30);
    EXPECT_EQ(a->font->lfFaceName, "DejaVu Sans");
    EXPECT_EQ(a->colours[0], makeColour(255, 0, 0));
    EXPECT_EQ(a->colours[9], makeColour(1, 2, 3));
    EXPECT_FALSE(a->colours[4]) << "a colour of one component is no colour";
    EXPECT_FALSE(a->colours[1]);
    EXPECT_EQ(a->nFormat, 21);
    EXPECT_EQ(a->texts, QStringList({"%Speed%", "km/h", "x"}));
    EXPECT_EQ(a->Template(), "%Speed%\nkm/h\nx");
    EXPECT_EQ(a->nXOffset, 4);
    EXPECT_EQ(a->nBOffset, -2);
    EXPECT_EQ(a->strBitmap, root.path() + "/pages/pic/arrow.png");
    EXPECT_EQ(a->transparentColour, makeColour(255, 0, 255));
    EXPECT_TRUE(a->bRefreshFlag);
    EXPECT_EQ(a->nNoMaskRefresh, 1);

    const auto b = page.ReadElement("B", 0);
    ASSERT_TRUE(b);
    EXPECT_FALSE(b->IsButton());
    EXPECT_EQ(b->pos, Rect());
    EXPECT_TRUE(b->bTopmost);
    EXPECT_FALSE(b->bPassive);
    EXPECT_FALSE(b->font);
    EXPECT_EQ(b->texts, QStringList({""}));
    EXPECT_EQ(b->nRefresh, 1);
    EXPECT_FALSE(b->bRefreshFlag);
    EXPECT_EQ(b->strBitmap, root.path() + "/Tarvik/b.png");
}

TEST(InfoPageFile, FindsTheElementListAndTheBackground) {
    TestRoot root;
    writeFile(root.path() + "/Tarvik/tile.png", "not looked at here");
    struct Case {
        const char *legend, *bytes, *listSection;
        QStringList names;
        bool imageFound, colour;
    } cases[] = {
        {"no list section: the ten overlay sections that exist",
         "[MN_Info_0]\nType=0\n[MN_Info_3]\nType=0\n[MN_Info_10]\nType=0\n",
         "",
         {"MN_Info_0", "MN_Info_3"},
         false,
         false},
        {"a list section of the bridge's choosing",
         "[Mode2]\nX\n[X]\nType=0\n[Buttons]\nY\n[Y]\n",
         "Mode2",
         {"X"},
         false,
         false},
        {"an image in the program folder wins over the colour",
         "[Global]\nBGImage=tile.png\nBGColor=Color(1,2,3)\n[Buttons]\n",
         "",
         {},
         true,
         false},
        {"a colour without an image", "[Global]\nBGColor=Color(1,2,3)\n[Buttons]\n", "", {}, false, true},
        {"an image that is not there keeps the colour unused",
         "[Global]\nBGImage=gone.png\nBGColor=Color(1,2,3)\n",
         "",
         {},
         false,
         false},
    };
    for (const Case& c : cases) {
        InfoPageFile page;
        page.LoadFromBytes(c.bytes, root.path(), c.listSection);
        EXPECT_EQ(page.ElementNames(), c.names) << c.legend;
        EXPECT_EQ(!page.BackgroundImage().isEmpty(), c.imageFound) << c.legend;
        EXPECT_EQ(page.BackgroundColour().has_value(), c.colour) << c.legend;
    }
    InfoPageFile missing;
    EXPECT_FALSE(missing.Load(root.path() + "/none.ini"));
    EXPECT_TRUE(missing.ElementNames().isEmpty());
}

TEST(InfoPageFile, StopsAtItsElementLimit) {
    TestRoot root;
    QByteArray bytes = "[Buttons]\n";
    QByteArray sections;
    for (int i = 0; i < 5000; ++i) {
        bytes += "E" + QByteArray::number(i) + "\n";
        sections += "[E" + QByteArray::number(i) + "]\nType=0\nText=" + QByteArray::number(i) + "\n";
    }
    InfoPageFile page;
    page.LoadFromBytes(bytes + sections, root.path());
    ASSERT_EQ(page.ElementNames().size(), InfoPageFile::kMaxElements);
    for (const QString& name : page.ElementNames())
        ASSERT_TRUE(page.ReadElement(name, 7));
}

} // namespace
