#include "settings/CRegistryKey.h"
#include "settings/Setting.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

// Expected lines: the store's encoding of each kind, in regedit's own syntax.
TEST(Setting, IsWrittenInTheRegistryTypeOfItsKind) {
    TestRoot root;
    CRegistryKey key;
    writeSetting(key, Setting<bool>{"Flag", false, false}, true);
    writeSetting(key, Setting<uint8_t>{"Byte", 0, false}, 200);
    writeSetting(key, Setting<int32_t>{"Dword", 0, false}, -12);
    writeSetting(key, Setting<float>{"Float", 0, false}, 2.5f);
    writeSetting(key, Setting<float>{"Shown", 0, false}, 2.46f, 1);
    writeSetting(key, Setting<double>{"Double", 0, false}, 48.135481);
    writeSetting(key, Setting<const char*>{"Text", "", false}, "COM1");
    EXPECT_EQ(root.settingsLines(),
              (QStringList{"\"Flag\"=hex:01", "\"Byte\"=hex:c8", "\"Dword\"=dword:fffffff4",
                           "\"Float\"=\"2.500000\"", "\"Shown\"=\"2.5\"", "\"Double\"=\"48.135481\"",
                           "\"Text\"=\"COM1\""}));
}

TEST(Setting, AMissingValueGivesTheDefaultWrittenBackOnlyWhenMarked) {
    TestRoot root;
    CRegistryKey key;
    key.WriteDword("Stored", 1); // a 32-bit integer where a flag is declared: too wide, so missing
    const Setting<bool> stored{"Stored", true, false};
    const Setting<int32_t> marked{"Marked", 5, true};
    const Setting<const char*> unmarked{"Unmarked", "/dev/ttyUSB0", false};
    EXPECT_FALSE(readStoredSetting(key, stored).has_value());
    EXPECT_TRUE(readSetting(key, stored));
    EXPECT_EQ(readSetting(key, marked), 5);
    EXPECT_EQ(readSetting(key, unmarked), "/dev/ttyUSB0");
    EXPECT_EQ(root.settingsLines(), (QStringList{"\"Stored\"=dword:00000001", "\"Marked\"=dword:00000005"}));
}
