#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

// The scalar kinds are checked through Setting (setting_test.cpp); here the structured ones. Expected
// lines: the store's text forms in regedit's syntax.
TEST(RegistryKey, StoresStructuredValuesInTheirTextForms) {
    TestRoot root;
    CRegistryKey key;
    EXPECT_FALSE(key.IsOpen()); // a fresh hive has no settings key yet
    ASSERT_TRUE(key.WriteRect("R", {1, 2, 3, -4}));
    ASSERT_TRUE(key.WriteColour("C", makeColour(10, 20, 30)));
    ASSERT_TRUE(key.WriteIntList("L", {5, -6, 7}));
    const uint8_t blob[] = {0, 1, 2, 255};
    ASSERT_EQ(key.WriteBinary("B", blob, 4), 0u);
    ASSERT_TRUE(key.WriteString("Name", QString::fromUtf8("Höhenansicht")));
    EXPECT_EQ(root.settingsLines(),
              (QStringList{"\"R\"=\"RECT(1,2,3,-4)\"", "\"C\"=\"Color(10,20,30)\"", "\"L\"=\"5,-6,7\"",
                           "\"B\"=hex:00,01,02,ff", QString::fromUtf8("\"Name\"=\"Höhenansicht\"")}));

    CRegistryKey again;
    Rect rect;
    Colour colour = 0;
    QList<int32_t> list;
    QString text;
    EXPECT_TRUE(again.ReadRect("r", rect)); // value names ignore case
    EXPECT_EQ(rect, (Rect{1, 2, 3, -4}));
    EXPECT_TRUE(again.ReadColour("C", colour));
    EXPECT_EQ(colour, 0x1E140Au); // red in the low byte
    EXPECT_TRUE(again.ReadIntList("L", list));
    EXPECT_EQ(list, (QList<int32_t>{5, -6, 7}));
    EXPECT_TRUE(again.ReadString("NAME", text));
    EXPECT_EQ(text, QString::fromUtf8("Höhenansicht"));
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
