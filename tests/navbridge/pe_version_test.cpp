#include "integrations/navbridge/PeFileVersion.h"
#include "support/Files.h"
#include "support/ToolRunner.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

void put16(QByteArray& image, int at, uint32_t value) {
    image[at] = char(value & 0xFF);
    image[at + 1] = char((value >> 8) & 0xFF);
}
void put32(QByteArray& image, int at, uint32_t value) {
    put16(image, at, value & 0xFFFF);
    put16(image, at + 2, value >> 16);
}

// A minimal 32-bit PE image as a linker lays it out: DOS header, PE header with 16 data directories,
// one ".rsrc" section at RVA 0x1000 (file offset 0x200) holding a three-level resource tree that leads
// to one VS_VERSIONINFO block with file version `major.minor.build.revision`.
QByteArray tinyExecutable(uint16_t major, uint16_t minor, uint16_t build, uint16_t revision,
                          bool pe32Plus = false) {
    constexpr int kPe = 0x40, kOptional = kPe + 24, kRaw = 0x200, kRva = 0x1000, kBlock = 0x58,
                  kBlockSize = 92;
    const int optionalSize = pe32Plus ? 240 : 224;
    const int directories = kOptional + (pe32Plus ? 112 : 96);
    const int sectionTable = kOptional + optionalSize;
    QByteArray image(kRaw + kBlock + kBlockSize, '\0');
    image.replace(0, 2, "MZ");
    put32(image, 0x3C, kPe);
    image.replace(kPe, 4, QByteArray("PE\0\0", 4));
    put16(image, kPe + 4, pe32Plus ? 0x8664 : 0x14C);
    put16(image, kPe + 6, 1);
    put16(image, kPe + 20, optionalSize);
    put16(image, kOptional, pe32Plus ? 0x20B : 0x10B);
    put32(image, kOptional + (pe32Plus ? 108 : 92), 16);
    put32(image, directories + 2 * 8, kRva);
    put32(image, directories + 2 * 8 + 4, kBlock + kBlockSize);
    image.replace(sectionTable, 5, ".rsrc");
    put32(image, sectionTable + 8, kBlock + kBlockSize);
    put32(image, sectionTable + 12, kRva);
    put32(image, sectionTable + 16, kBlock + kBlockSize);
    put32(image, sectionTable + 20, kRaw);
    // Type 16 (RT_VERSION) -> name 1 -> language 0x409 -> data entry.
    const uint32_t levels[][2] = {{16, 0x80000018}, {1, 0x80000030}, {0x409, 0x48}};
    for (int level = 0; level < 3; ++level) {
        const int dir = kRaw + (level == 0 ? 0 : level == 1 ? 0x18 : 0x30);
        put16(image, dir + 14, 1);
        put32(image, dir + 16, levels[level][0]);
        put32(image, dir + 20, levels[level][1]);
    }
    put32(image, kRaw + 0x48, kRva + kBlock);
    put32(image, kRaw + 0x4C, kBlockSize);
    const int block = kRaw + kBlock;
    put16(image, block, kBlockSize);
    put16(image, block + 2, 52);
    const char* key = "VS_VERSION_INFO";
    for (int i = 0; key[i]; ++i)
        image[block + 6 + 2 * i] = key[i];
    put32(image, block + 40, 0xFEEF04BD);
    put32(image, block + 44, 0x10000);
    put32(image, block + 48, uint32_t(major) << 16 | minor);
    put32(image, block + 52, uint32_t(build) << 16 | revision);
    return image;
}

} // namespace

// The version of a built image, 32 and 64 bits; every shorter piece of it, damaged images and other
// files read no version and never crash.
TEST(PeFileVersion, ReadsTheFixedFileInfo) {
    for (const bool pe32Plus : {false, true}) {
        const QByteArray image = tinyExecutable(5, 2, 1234, 77, pe32Plus);
        const auto version = readPeFileVersion(image);
        ASSERT_TRUE(version);
        EXPECT_EQ(std::tuple(version->major, version->minor, version->build, version->revision),
                  std::tuple(5, 2, 1234, 77));
        for (qsizetype length = 0; length < image.size(); ++length)
            EXPECT_FALSE(readPeFileVersion(image.left(length))) << length;
    }
    struct Damage {
        const char* legend;
        int at;
        char byte;
    } damages[] = {{"no MZ", 0, 'X'},
                   {"no PE signature", 0x40, 'X'},
                   {"unknown optional header", 0x58, 0x07},
                   {"no version type", 0x210, 0x0E},
                   {"version key misspelt", 0x25E, 'X'},
                   {"no fixed info signature", 0x280, 0},
                   {"header offset far out", 0x3F, 0x7F}};
    for (const Damage& d : damages) {
        QByteArray image = tinyExecutable(4, 0, 0, 0);
        image[d.at] = d.byte;
        EXPECT_FALSE(readPeFileVersion(image)) << d.legend;
    }
    EXPECT_FALSE(readPeFileVersion("#!/bin/sh\necho MZ\n"));
}

// The tool reads the file of the device: one JSON object, or exit 1 for a file cut short; the kinds
// that depend on the version.
TEST(PeFileVersion, ToolPrintsTheVersion) {
    QTemporaryDir dir;
    const QByteArray image = tinyExecutable(6, 1, 20, 3);
    writeFile(dir.filePath("MN.exe"), image);
    writeFile(dir.filePath("cut.exe"), image.left(0x220));
    const ToolResult whole = runTool({"--root", dir.path(), "nav", "fileversion", "/MN.exe"});
    EXPECT_EQ(whole.exitCode, 0);
    EXPECT_EQ(whole.out, "{\"major\":6,\"minor\":1,\"build\":20,\"revision\":3}\n");
    const ToolResult cut = runTool({"--root", dir.path(), "nav", "fileversion", "/cut.exe"});
    EXPECT_EQ(cut.exitCode, 1);
    EXPECT_TRUE(cut.out.isEmpty());
    // Version 6 makes a MobileNavigator whose path has no "5" in it the newer kind.
    EXPECT_EQ(runTool({"--root", dir.path(), "nav", "kind", "--path", "/MN.exe"}).out, "{\"kind\":6}\n");
    EXPECT_EQ(runTool({"--root", dir.path(), "nav", "kind", "--title", "MobileNavigator", "--class", "X",
                       "--program", "/MN.exe"})
                  .out,
              "{\"kind\":6}\n");
}
