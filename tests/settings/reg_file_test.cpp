#include "settings/CRegistryKey.h"
#include "settings/RegFile.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

TEST(RegFile, ExportThenImportIntoAnEmptyHiveGivesTheSameHive) {
    TestRoot source;
    CRegistryKey key;
    key.WriteString("CurrentView", QString::fromUtf8("Höhenansicht \"1\" C:\\x"));
    key.WriteString("Multi", "a\r\nb");
    key.WriteString("", "default value");
    key.WriteDword("Speed", 0xDEADBEEF);
    key.WriteFlag("SpeedVol", true);
    const uint8_t blob[] = {0, 1, 254, 255};
    key.WriteBinary("Blob", blob, 4);
    key.WriteDword("Driver", 1, "..\\..\\..\\Drivers"); // a second branch under HKCU
    CRegistryKey machine("Drivers\\BuiltIn\\Vantrel", RegistryRoot::LocalMachine);
    machine.WriteString("Prefix", "COM");
    const QByteArray exported = RegFile::exportHive(source.hive(), std::nullopt);
    EXPECT_TRUE(exported.startsWith("\xFF\xFE" + utf16Bytes("Windows Registry Editor Version 5.00\r\n")));

    TestRoot target;
    const RegFile::Parsed parsed = RegFile::parse(exported);
    ASSERT_TRUE(parsed.error.isEmpty()) << parsed.error.toStdString();
    ASSERT_TRUE(RegFile::apply(target.hive(), parsed));
    EXPECT_EQ(RegFile::exportHive(target.hive(), std::nullopt), exported);
    CRegistryKey back;
    QString text;
    EXPECT_TRUE(back.ReadString("Multi", text));
    EXPECT_EQ(text, "a\r\nb");
}

TEST(RegFile, ParsesRegeditText) {
    TestRoot root;
    const QByteArray text = "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_CURRENT_USER\\SOFTWARE\\Omvale\\Fendix]\r\n"
                            "\"Speed\"=dword:000012c0\r\n"
                            "\"Bin\"=hex:01,02,\\\r\n  03\r\n"
                            "\"Gone\"=-\r\n"
                            "@=\"def\"\r\n";
    const RegFile::Parsed parsed = RegFile::parse(text);
    ASSERT_TRUE(parsed.error.isEmpty()) << parsed.error.toStdString();
    ASSERT_TRUE(RegFile::apply(root.hive(), parsed));
    CRegistryKey key;
    EXPECT_EQ(key.GetDword("Speed", 0), 4800u);
    uint8_t bin[4] = {};
    uint32_t length = 4;
    EXPECT_TRUE(key.ReadBinary("Bin", bin, length));
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(bin[2], 3);
}

TEST(RegFile, RejectsWhatItDoesNotUnderstandAndAppliesNothing) {
    const struct {
        const char* legend;
        QByteArray text;
        const char* error;
    } cases[] = {
        {"no header", "[HKCU\\A]\n", "line 1: not a registry file"},
        {"unknown root", "Windows Registry Editor Version 5.00\n[HKEY_USERS\\A]\n",
         "line 2: unknown registry root"},
        {"value before key", "Windows Registry Editor Version 5.00\n\"a\"=dword:1\n",
         "line 2: value outside a key"},
        {"unsupported type", "Windows Registry Editor Version 5.00\n[HKCU\\A]\n\"a\"=hex(7):00\n",
         "line 3: unsupported"},
        {"bad dword", "Windows Registry Editor Version 5.00\n[HKCU\\A]\n\"a\"=dword:xyz\n",
         "line 3: a dword"},
        {"open string", "Windows Registry Editor Version 5.00\n[HKCU\\A]\n\"a\"=\"abc\n",
         "line 3: unterminated"},
    };
    for (const auto& c : cases) {
        const RegFile::Parsed parsed = RegFile::parse(c.text);
        EXPECT_TRUE(parsed.error.startsWith(QLatin1String(c.error)))
            << c.legend << ": " << parsed.error.toStdString();
        EXPECT_TRUE(parsed.keys.isEmpty()) << c.legend;
    }
}
