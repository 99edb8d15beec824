#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

TEST(RegistryKey, EncodingsRoundTrip) {
    TestRoot root;
    CRegistryKey key;
    EXPECT_FALSE(key.IsOpen()); // a fresh hive has no settings key yet
    ASSERT_TRUE(key.WriteString("Name", QString::fromUtf8("Höhenansicht ✓")));
    ASSERT_TRUE(key.WriteDword("Speed", 4800));
    ASSERT_TRUE(key.WriteFlag("SpeedVol", true));
    ASSERT_TRUE(key.WriteByte("Small", 200));
    ASSERT_TRUE(key.WriteFloat("F", 1.25f));
    ASSERT_TRUE(key.WriteDouble("D", 48.135481));
    ASSERT_TRUE(key.WriteRect("R", {1, 2, 3, 4}));
    ASSERT_TRUE(key.WriteColour("C", makeColour(10, 20, 30)));
    ASSERT_TRUE(key.WriteIntList("L", {5, -6, 7}));
    const uint8_t blob[] = {0, 1, 2, 255};
    ASSERT_EQ(key.WriteBinary("B", blob, 4), 0u);

    CRegistryKey again;
    QString text;
    uint32_t dword = 0;
    bool flag = false;
    uint8_t byte = 0;
    float f = 0;
    double d = 0;
    Rect rect;
    Colour colour = 0;
    QList<int32_t> list;
    uint8_t back[8] = {};
    uint32_t length = sizeof back;
    EXPECT_TRUE(again.ReadString("name", text)); // value names ignore case
    EXPECT_EQ(text, QString::fromUtf8("Höhenansicht ✓"));
    EXPECT_TRUE(again.ReadDword("SPEED", dword));
    EXPECT_EQ(dword, 4800u);
    EXPECT_TRUE(again.ReadFlag("SpeedVol", flag));
    EXPECT_TRUE(flag);
    EXPECT_TRUE(again.ReadByte("Small", byte));
    EXPECT_EQ(byte, 200);
    EXPECT_TRUE(again.ReadFloat("F", f));
    EXPECT_EQ(f, 1.25f);
    EXPECT_TRUE(again.ReadDouble("D", d));
    EXPECT_DOUBLE_EQ(d, 48.135481);
    EXPECT_TRUE(again.ReadRect("R", rect));
    EXPECT_EQ(rect, (Rect{1, 2, 3, 4}));
    EXPECT_TRUE(again.ReadColour("C", colour));
    EXPECT_EQ(colour, makeColour(10, 20, 30));
    EXPECT_TRUE(again.ReadIntList("L", list));
    EXPECT_EQ(list, (QList<int32_t>{5, -6, 7}));
    EXPECT_TRUE(again.ReadBinary("B", back, length));
    EXPECT_EQ(length, 4u);
    EXPECT_EQ(back[3], 255);
    EXPECT_TRUE(again.ReadString("D", text));
    EXPECT_EQ(text, "48.135481"); // doubles are "%f" text
}

TEST(RegistryKey, ReadersWithDefaults) {
    TestRoot root;
    CRegistryKey key;
    EXPECT_EQ(key.GetDword("Missing", 7), 7u); // no key at all yet
    key.WriteDword("AsDword", 1);
    key.WriteString("Text", "1,5");
    const uint8_t wide[8] = {1};
    key.WriteBinary("Wide", wide, 8);
    EXPECT_EQ(key.GetDword("Missing", 7), 7u);
    EXPECT_TRUE(key.GetFlag("AsDword", true)); // a 4-byte value is too wide for a flag: the default
    EXPECT_FALSE(key.GetFlag("AsDword", false));
    EXPECT_EQ(key.GetDword("Wide", 9), 9u); // wider than 4 bytes: the default
    double d = 0;
    EXPECT_TRUE(key.ReadDouble("Text", d));
    EXPECT_EQ(d, 1.0); // no decimal comma in the registry
    uint8_t small[2];
    uint32_t length = sizeof small;
    EXPECT_FALSE(key.ReadBinary("Wide", small, length));
    EXPECT_EQ(length, 0u);
    EXPECT_TRUE(key.GetFlag("Missing", true));
}

TEST(RegistryKey, RepointingAndKeysWithoutAHandle) {
    TestRoot root;
    CRegistryKey key("SOFTWARE\\Omvale\\Fendix\\Sub");
    EXPECT_FALSE(key.IsOpen());
    QString text;
    EXPECT_FALSE(key.ReadString("x", text));
    EXPECT_TRUE(key.WriteString("x", "1", "software\\omvale\\fendix\\sub")); // created by the write
    CRegistryKey other("SOFTWARE\\OMVALE\\FENDIX\\SUB");                     // key paths ignore case
    EXPECT_TRUE(other.ReadString("X", text));
    EXPECT_EQ(text, "1");
    CRegistryKey machine("Drivers\\BuiltIn\\Vantrel", RegistryRoot::LocalMachine);
    EXPECT_FALSE(machine.ReadString("x", text)); // the roots are separate trees
    RegistryHive::setCurrent(nullptr);
    CRegistryKey none;
    EXPECT_EQ(none.WriteBinary("b", "x", 1), CRegistryKey::kNoKeyStatus);
}

TEST(RegistryKey, EnumerationAndTreeDeletion) {
    TestRoot root;
    CRegistryKey key("A");
    key.WriteDword("one", 1);
    key.WriteDword("two", 2);
    key.WriteDword("one", 3); // rewriting keeps the position
    key.WriteDword("x", 1, "A\\B\\C");
    key.WriteDword("y", 1, "A\\D");
    CRegistryKey walker("A");
    QStringList names;
    QString name;
    for (int index = 0; walker.EnumValue(index, name);)
        names << name;
    EXPECT_EQ(names, (QStringList{"one", "two"}));
    EXPECT_TRUE(walker.DeleteValue("ONE"));
    EXPECT_FALSE(walker.DeleteValue("one"));
    EXPECT_TRUE(walker.DeleteKeyTree("A"));
    EXPECT_FALSE(CRegistryKey("A\\B\\C").IsOpen());
    EXPECT_FALSE(CRegistryKey("A").IsOpen());
    EXPECT_FALSE(walker.DeleteKeyTree("A"));
}
