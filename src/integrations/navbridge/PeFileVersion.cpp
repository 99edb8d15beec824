#include "integrations/navbridge/PeFileVersion.h"

#include <QFile>

namespace {

constexpr uint32_t kResourceDirectoryIndex = 2;
constexpr uint32_t kVersionResourceType = 16; // RT_VERSION
constexpr uint32_t kFixedInfoSignature = 0xFEEF04BD;
constexpr uint32_t kSubdirectoryBit = 0x80000000;
constexpr qint64 kMaxImageBytes = 64 * 1024 * 1024;

// Little-endian reads that fail instead of reading past the end.
class Bytes {
public:
    explicit Bytes(const QByteArray& data) : m_data(data) {}
    bool has(uint64_t offset, uint64_t length) const {
        return offset <= uint64_t(m_data.size()) && length <= uint64_t(m_data.size()) - offset;
    }
    std::optional<uint32_t> u16(uint64_t offset) const { return read(offset, 2); }
    std::optional<uint32_t> u32(uint64_t offset) const { return read(offset, 4); }
    QByteArray mid(uint64_t offset, uint64_t length) const {
        return m_data.mid(qsizetype(offset), qsizetype(length));
    }

private:
    std::optional<uint32_t> read(uint64_t offset, int length) const {
        if (!has(offset, uint64_t(length))) return std::nullopt;
        uint32_t value = 0;
        for (int i = length - 1; i >= 0; --i)
            value = (value << 8) | uint8_t(m_data[qsizetype(offset) + i]);
        return value;
    }
    const QByteArray& m_data;
};

struct Section {
    uint32_t virtualAddress;
    uint32_t virtualSize;
    uint32_t rawOffset;
    uint32_t rawSize;
};

struct Image {
    QList<Section> sections;
    uint32_t resourceRva = 0;

    // File offset of a relative virtual address, through the section that holds it.
    std::optional<uint64_t> offsetOf(uint32_t rva) const {
        for (const Section& s : sections) {
            const uint32_t size = std::max(s.virtualSize, s.rawSize);
            if (rva >= s.virtualAddress && uint64_t(rva) < uint64_t(s.virtualAddress) + size &&
                rva - s.virtualAddress < s.rawSize)
                return uint64_t(s.rawOffset) + (rva - s.virtualAddress);
        }
        return std::nullopt;
    }
};

std::optional<Image> readHeaders(const Bytes& bytes) {
    if (bytes.u16(0) != 0x5A4D) return std::nullopt; // "MZ"
    const auto peOffset = bytes.u32(0x3C);
    if (!peOffset || bytes.u32(*peOffset) != 0x00004550) return std::nullopt; // "PE\0\0"
    const uint64_t coff = uint64_t(*peOffset) + 4;
    const auto sectionCount = bytes.u16(coff + 2);
    const auto optionalSize = bytes.u16(coff + 16);
    const uint64_t optional = coff + 20;
    const auto magic = bytes.u16(optional);
    if (!sectionCount || !optionalSize || !magic) return std::nullopt;
    const bool pe32Plus = *magic == 0x20B;
    if (!pe32Plus && *magic != 0x10B) return std::nullopt;
    const auto directoryCount = bytes.u32(optional + (pe32Plus ? 108 : 92));
    if (!directoryCount || *directoryCount <= kResourceDirectoryIndex) return std::nullopt;
    const uint64_t resourceEntry = optional + (pe32Plus ? 112 : 96) + kResourceDirectoryIndex * 8;
    const auto resourceRva = bytes.u32(resourceEntry);
    if (!resourceRva || *resourceRva == 0 || resourceEntry + 8 > optional + *optionalSize)
        return std::nullopt;

    Image image;
    image.resourceRva = *resourceRva;
    const uint64_t table = optional + *optionalSize;
    for (uint32_t i = 0; i < *sectionCount; ++i) {
        const uint64_t at = table + uint64_t(i) * 40;
        const auto vsize = bytes.u32(at + 8), va = bytes.u32(at + 12), rsize = bytes.u32(at + 16),
                   roff = bytes.u32(at + 20);
        if (!vsize || !va || !rsize || !roff) return std::nullopt;
        image.sections.append({*va, *vsize, *roff, *rsize});
    }
    return image;
}

// The entry of a resource directory with `id` (or the first one when `id` is empty): its raw
// OffsetToData, relative to the start of the resource tree.
std::optional<uint32_t> findEntry(const Bytes& bytes, uint64_t directory, std::optional<uint32_t> id) {
    const auto named = bytes.u16(directory + 12), numbered = bytes.u16(directory + 14);
    if (!named || !numbered) return std::nullopt;
    const uint32_t count = *named + *numbered;
    for (uint32_t i = 0; i < count; ++i) {
        const uint64_t entry = directory + 16 + uint64_t(i) * 8;
        const auto name = bytes.u32(entry), data = bytes.u32(entry + 4);
        if (!name || !data) return std::nullopt;
        if (!id || *name == *id) return data;
    }
    return std::nullopt;
}

} // namespace

std::optional<FileVersion> readPeFileVersion(const QByteArray& data) {
    const Bytes bytes(data);
    const auto image = readHeaders(bytes);
    if (!image) return std::nullopt;
    const auto tree = image->offsetOf(image->resourceRva);
    if (!tree) return std::nullopt;

    // Three levels: type (RT_VERSION), name (the first), language (the first), then the data entry.
    uint64_t directory = *tree;
    std::optional<uint32_t> wanted = kVersionResourceType;
    for (int level = 0; level < 3; ++level) {
        const auto entry = findEntry(bytes, directory, wanted);
        const bool last = level == 2;
        if (!entry || bool(*entry & kSubdirectoryBit) == last) return std::nullopt;
        directory = *tree + (*entry & ~kSubdirectoryBit);
        wanted.reset();
    }
    const auto dataRva = bytes.u32(directory), dataSize = bytes.u32(directory + 4);
    if (!dataRva || !dataSize) return std::nullopt;
    const auto block = image->offsetOf(*dataRva);
    // VS_VERSIONINFO: three words, the key "VS_VERSION_INFO" in UTF-16 with its zero, padding to
    // four bytes, then VS_FIXEDFILEINFO.
    constexpr uint64_t kFixedInfo = 40;
    if (!block || *dataSize < kFixedInfo + 16 || !bytes.has(*block, *dataSize)) return std::nullopt;
    QByteArray key;
    for (const char c : QByteArrayView("VS_VERSION_INFO"))
        key.append(c).append('\0');
    if (bytes.mid(*block + 6, uint64_t(key.size())) != key) return std::nullopt;
    if (bytes.u32(*block + kFixedInfo) != kFixedInfoSignature) return std::nullopt;
    const uint32_t high = *bytes.u32(*block + kFixedInfo + 8), low = *bytes.u32(*block + kFixedInfo + 12);
    return FileVersion{uint16_t(high >> 16), uint16_t(high & 0xFFFF), uint16_t(low >> 16),
                       uint16_t(low & 0xFFFF)};
}

std::optional<FileVersion> readPeFileVersionOfFile(const QString& hostPath) {
    QFile file(hostPath);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return readPeFileVersion(file.read(kMaxImageBytes));
}
