#include "settings/CIniFile.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

CIniFile iniOf(const QByteArray& text) {
    CIniFile ini;
    ini.LoadFromBytes(text);
    return ini;
}

} // namespace

// Keys ignore case and sections do not: tests/data/settings/commands.txt.
TEST(IniFile, ReaderRules) {
    const QByteArray text =
        "top = 0\nsecond = 1\n[Global]\nbgcolor=Color(1,2,3)\nx = 1\nx = 2\n  spaced   =   v w  \n"
        "; c = 3\nflagT = TRUE\nflag2 = 2\nflagU = untrue\nd = 48,13548\n[Other]\nx = 9\n";
    CIniFile ini = iniOf(text);
    const struct {
        const char *legend, *section, *key;
        bool found;
        const char* value;
    } cases[] = {
        {"first occurrence wins", "Global", "x", true, "1"},
        {"blanks trimmed around key and value", "Global", "spaced", true, "v w"},
        {"no comment character", "Global", "; c", true, "3"},
        {"a section ends at the next header", "Other", "bgcolor", false, ""},
        {"the empty section ends at the first header", "", "x", false, ""},
        {"line 0 is never an entry of the empty section", "", "top", false, ""},
        {"the empty section starts on the second line", "", "second", true, "1"},
    };
    for (const auto& c : cases) {
        QString value;
        EXPECT_EQ(ini.ReadString(c.section, c.key, value), c.found) << c.legend;
        if (c.found) {
            EXPECT_EQ(value, c.value) << c.legend;
        }
    }
}

// The typed readers through the tool are in tests/data/settings/commands.txt; these have no kind there.
TEST(IniFile, TypedReadersWithoutAToolKind) {
    CIniFile ini = iniOf("[G]\nc = Color(9)\nb = 257\nm = a\xEF\xBF\xA7|b\n");
    Colour colour = 0x123456;
    EXPECT_TRUE(ini.ReadColour("G", "c", colour));
    EXPECT_EQ(colour, 0x123456u); // incomplete colour leaves the caller's value
    uint8_t byte = 0;
    EXPECT_TRUE(ini.ReadByte("G", "b", byte));
    EXPECT_EQ(byte, 1);
    QString multi;
    EXPECT_TRUE(ini.ReadMultiLine("G", "m", multi));
    EXPECT_EQ(multi, "a\r\nb");
}

TEST(IniFile, WriterPlacesNewKeysRightAfterTheHeader) {
    CIniFile ini = iniOf("[T]\nkeep = 1\n");
    ini.WriteInt("S", "A", 1);
    ini.WriteInt("S", "B", 2);
    ini.WriteString("T", "KEEP", "x"); // replaced in place with the caller's spelling
    ini.WriteMultiLine("T", "m", "a\r\nb");
    EXPECT_EQ(ini.ToBytes(), "[T]\nm = a\xEF\xBF\xA7|b\nKEEP = x\n[S]\nB = 2\nA = 1\n");
    EXPECT_FALSE(ini.WriteInt("", "A", 1)); // a section name is needed
}

TEST(IniFile, RectPointAndSizeReadersAddTheMissingSection) {
    CIniFile ini = iniOf("[A]\n");
    Rect rect;
    Point point;
    QString text;
    EXPECT_FALSE(ini.ReadRect("R", "r", rect));
    EXPECT_FALSE(ini.ReadString("Q", "q", text));
    EXPECT_FALSE(ini.ReadPoint("P", "p", point));
    EXPECT_EQ(ini.ToBytes(), "[A]\n[R]\n[P]\n");
    CIniFile partial = iniOf("[R]\nr = RECT(1,2)\n");
    EXPECT_TRUE(partial.ReadRect("R", "r", rect));
    EXPECT_EQ(rect, (Rect{1, 2, 0, 0}));
}

TEST(IniFile, FontWritesFourteenKeysAndReadsEachOnItsOwn) {
    CIniFile ini;
    LogFont font;
    font.lfHeight = -12;
    font.lfWeight = 700;
    font.lfItalic = 1;
    font.lfFaceName = "Tahoma";
    ini.WriteFont("F", "Title", font);
    ASSERT_EQ(ini.Lines().size(), 15);
    EXPECT_EQ(ini.Lines()[1], "Title.lfFaceName = Tahoma"); // reverse order of writing
    EXPECT_EQ(ini.Lines()[14], "Title.lfHeight = -12");
    LogFont back;
    EXPECT_TRUE(ini.ReadFont("F", "Title", back));
    EXPECT_EQ(back, font);
    CIniFile some = iniOf("[F]\nT.lfWeight = 400\n");
    LogFont kept = font;
    EXPECT_TRUE(some.ReadFont("F", "T", kept));
    EXPECT_EQ(kept.lfWeight, 400);
    EXPECT_EQ(kept.lfFaceName, "Tahoma"); // missing keys keep their values
}

TEST(IniFile, NextKeyWalksASection) {
    CIniFile ini = iniOf("[S]\nalpha = 1\nbeta = 2\n[T]\n");
    QString key;
    QStringList keys;
    while (ini.NextKey("S", key))
        keys << key;
    EXPECT_EQ(keys, (QStringList{"alpha", "beta"}));
    EXPECT_EQ(key, "beta"); // unchanged at the end
    EXPECT_FALSE(ini.NextKey("missing", key));
}

TEST(IniFile, DeleteSectionRemovesHeaderAndLines) {
    CIniFile ini = iniOf("[A]\na = 1\n\n[B]\nb = 2\n");
    ini.DeleteSection("A");
    EXPECT_EQ(ini.ToBytes(), "[B]\nb = 2\n");
}

TEST(IniFile, DecodesEveryEncodingItMeets) {
    const struct {
        const char* legend;
        QByteArray bytes;
    } cases[] = {
        {"UTF-8", "[S]\nStra\xC3\x9F"
                  "e = M\xC3\xBC"
                  "nchen\n"},
        {"UTF-8 with BOM", "\xEF\xBB\xBF[S]\nStra\xC3\x9F"
                           "e = M\xC3\xBC"
                           "nchen\n"},
        {"Windows-1252", "[S]\r\nStra\xDF"
                         "e = M\xFC"
                         "nchen\r\n"},
        {"UTF-16 LE with BOM", "\xFF\xFE" + utf16Bytes(QStringLiteral("[S]\r\nStraße = München\r\n"))},
        {"UTF-16 LE without BOM", utf16Bytes(QStringLiteral("[S]\nStraße = München\n"))},
        {"UTF-16 BE with BOM", "\xFE\xFF" + utf16Bytes(QStringLiteral("[S]\nStraße = München\n"), true)},
    };
    for (const auto& c : cases) {
        QString value;
        EXPECT_TRUE(iniOf(c.bytes).ReadString("S", QString::fromUtf8("Straße"), value)) << c.legend;
        EXPECT_EQ(value, QString::fromUtf8("München")) << c.legend;
    }
}

TEST(IniFile, LongLinesAreSplitAt1023Characters) {
    CIniFile ini = iniOf(QByteArray(1023, 'a') + "\n" + QByteArray(1030, 'b') + "\n");
    ASSERT_EQ(ini.Lines().size(), 4);
    EXPECT_EQ(ini.Lines()[0].size(), 1023);
    EXPECT_EQ(ini.Lines()[1], ""); // the line end arrives as a line of its own
    EXPECT_EQ(ini.Lines()[2].size(), 1023);
    EXPECT_EQ(ini.Lines()[3], "bbbbbbb");
}

TEST(IniFile, SaveWritesUtf8AndFailsCleanly) {
    QTemporaryDir dir;
    CIniFile ini;
    ini.WriteString("Ü", "k", "ä");
    ASSERT_TRUE(ini.Save(dir.filePath("x.ini")));
    CIniFile back;
    ASSERT_TRUE(back.Load(dir.filePath("x.ini")));
    EXPECT_EQ(back.ToBytes(), "[\xC3\x9C]\nk = \xC3\xA4\n");
    EXPECT_FALSE(ini.Save(dir.filePath("no/such/folder/x.ini")));
    EXPECT_FALSE(back.Load(dir.filePath("missing.ini")));
    EXPECT_TRUE(back.Lines().isEmpty());
}
