#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

// The file version of a Windows executable (the VS_FIXEDFILEINFO of its version resource), which
// tells old MobileNavigators from version 5 on. These programs run under Wine here, so their .exe
// files are read as bytes: DOS header, PE header, section table, resource tree, version block.
struct FileVersion {
    uint16_t major = 0;
    uint16_t minor = 0;
    uint16_t build = 0;
    uint16_t revision = 0;
};

// Nothing for a file that is no PE image, is cut short or has no version resource.
std::optional<FileVersion> readPeFileVersion(const QByteArray& image);
// Reads at most the first 64 MiB of the file at `hostPath`.
std::optional<FileVersion> readPeFileVersionOfFile(const QString& hostPath);
