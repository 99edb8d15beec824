#include "nav/poi/AscReader.h"
#include "nav/poi/Ov2Reader.h"
#include "nav/poi/PoiName.h"
#include "nav/poi/PoiSort.h"
#include "support/Files.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

QByteArray int32le(int32_t value) {
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = char((uint32_t(value) >> (8 * i)) & 0xFF);
    return bytes;
}

QByteArray header(uint8_t type, int32_t length) {
    return QByteArray(1, char(type)) + int32le(length);
}

// A point record as TomTom writes one: coordinates in 1e-5 deg, the name with its NUL.
QByteArray point(int32_t lon, int32_t lat, const QByteArray& name, uint8_t type = 2) {
    return header(type, 13 + int(name.size()) + 1) + int32le(lon) + int32le(lat) + name + '\0';
}

struct Expected {
    double lon, lat;
    QByteArray name; // read at the name offset; empty: offset 0
};

void expectEntries(const std::vector<PoiEntry>& entries, const QByteArray& bytes,
                   const std::vector<Expected>& expected, const char* legend) {
    ASSERT_EQ(entries.size(), expected.size()) << legend;
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(entries[i].m_dLon, expected[i].lon, 1e-9) << legend << " #" << i;
        EXPECT_NEAR(entries[i].m_dLat, expected[i].lat, 1e-9) << legend << " #" << i;
        EXPECT_EQ(entries[i].m_nNameOffset == 0, expected[i].name.isEmpty()) << legend << " #" << i;
        EXPECT_EQ(PoiNameAt(bytes, entries[i].m_nNameOffset), expected[i].name) << legend << " #" << i;
    }
}

} // namespace

TEST(PoiOv2Reader, RecordTypesAndLengths) {
    const QByteArray a = point(826110, 4754497, "Aebi");
    const QByteArray bbox(16, '\x7F');
    const struct {
        const char* legend;
        QByteArray bytes;
        std::vector<Expected> expected;
    } cases[] = {
        {"a point: 1e-5 deg, the name after the coordinates", a, {{8.2611, 47.54497, "Aebi"}}},
        {"type 3 is a point too", point(-7594000, 4518600, "Cam", 3), {{-75.94, 45.186, "Cam"}}},
        {"length 13: coordinates only, no name",
         header(2, 13) + int32le(1000000) + int32le(5000000),
         {{10.0, 50.0, ""}}},
        {"length 1022 has a name",
         header(2, 1022) + int32le(1000000) + int32le(5000000) + QByteArray(1008, 'n') + '\0',
         {{10.0, 50.0, QByteArray(1008, 'n')}}},
        {"length 1023 has none",
         header(2, 1023) + int32le(1000000) + int32le(5000000) + QByteArray(1009, 'n') + '\0',
         {{10.0, 50.0, ""}}},
        {"skipper: its box is stepped over and its length (the whole block) not used",
         header(1, 21 + int(a.size())) + bbox + a,
         {{8.2611, 47.54497, "Aebi"}}},
        {"deleted record: skips its length after the header, one header more than its body",
         header(0, 10) + QByteArray(10, '\xEE') + a,
         {{8.2611, 47.54497, "Aebi"}}},
        {"deleted record with a negative length skips nothing",
         header(0, -7) + a,
         {{8.2611, 47.54497, "Aebi"}}},
        {"type above 3: the next header follows its header at once",
         header(9, 400) + a,
         {{8.2611, 47.54497, "Aebi"}}},
        {"four bytes at the end are no header", a + QByteArray(4, '\2'), {{8.2611, 47.54497, "Aebi"}}},
        {"a skipper at the very end", a + header(1, 21), {{8.2611, 47.54497, "Aebi"}}},
    };
    for (const auto& c : cases)
        expectEntries(ReadOv2(c.bytes, PoiReading::AsListed), c.bytes, c.expected, c.legend);
}

TEST(PoiOv2Reader, DamageKeepsWhatCameBefore) {
    const QByteArray a = point(826110, 4754497, "Aebi");
    const QByteArray b = point(617021, 4635438, "Bex");
    const struct {
        const char* legend;
        QByteArray bytes;
        size_t points;
    } cases[] = {
        {"truncated last record", a + b.left(b.size() - 3), 1},
        {"truncated inside the coordinates", a + b.left(9), 1},
        {"point with a negative length", a + header(2, -20) + b, 1},
        {"point shorter than its coordinates", a + header(2, 12) + QByteArray(7, '\1') + b, 1},
        {"point claiming 2 GB", a + header(2, 0x7FFFFFFF) + b, 1},
        {"deleted record claiming 2 GB", a + header(0, 0x7FFFFFFF) + b, 1},
        {"point claiming 2 GB first", header(2, 0x7FFFFFFF) + a, 0},
        {"nothing but a header", header(2, 21), 0},
        {"empty file", QByteArray(), 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReadOv2(c.bytes, PoiReading::AsListed).size(), c.points) << c.legend;
}

TEST(PoiAscReader, LinesNumbersAndNameOffsets) {
    const struct {
        const char* legend;
        QByteArray bytes;
        std::vector<Expected> expected;
    } cases[] = {
        {"longitude, latitude, the name with its quotes", "8.5,48.1,\"Home\"\n", {{8.5, 48.1, "\"Home\""}}},
        {"blanks and tabs around the numbers", "  8.5 ,\t48.1,\t \"Tab\"\r\n", {{8.5, 48.1, "\"Tab\""}}},
        {"sign, exponent, no digits before the point", "+8.5e0,.5e2,X\n", {{8.5, 50.0, "X"}}},
        {"no longitude reads as 0", ",48.1,N\n", {{0.0, 48.1, "N"}}},
        // The name starts after the cut text, at the cut character.
        {"the last line's last character is cut even without a line end", "8.5,48.25", {{8.5, 48.2, "5"}}},
        {"a NUL ends the line's text", QByteArray("8.5,48.25\0xyz\n", 14), {{8.5, 48.2, "5"}}},
        {"blank-separated, commented and short lines are skipped", ";8.5,48.1,C\n1.0 2.5 \"x\"\n1,2\n", {}},
        {"a number beyond a double's range makes the line unreadable", "8.5,1e999,X\n", {}},
        // After a skipped line the position is that after the last line with a point, so the name offset
        // of the next point is short by the skipped line: here it points at the start of that point's line.
        {"after a comment the name points into the wrong place; the next one is right again",
         "8.5,48.1,A\n;comment\n9.5,49.1,B\n10.5,50.1,C\n",
         {{8.5, 48.1, "A"}, {9.5, 49.1, "9.5,49.1,B"}, {10.5, 50.1, "C"}}},
    };
    for (const auto& c : cases)
        expectEntries(ReadAsc(c.bytes, PoiReading::AsListed), c.bytes, c.expected, c.legend);
}

TEST(PoiAscReader, LongLinesAreReadIn1023BytePieces) {
    // The first 1023 bytes give a point; the rest of the line (1023..1109) is a piece of its own and no
    // point, so it is skipped, and the next name offset is short by it: 1023 + 9 lands among the n's.
    const QByteArray bytes = "8.5,48.1," + QByteArray(1100, 'n') + "\n9.5,49.1,B\n";
    expectEntries(ReadAsc(bytes, PoiReading::AsListed), bytes,
                  {{8.5, 48.1, QByteArray(1023, 'n')}, {9.5, 49.1, QByteArray(77, 'n')}}, "long line");
}

TEST(PoiFilterRule, BothReadersKeepThePointsTheProgramLists) {
    const struct {
        const char* legend;
        double lon, lat;
        bool kept;
    } cases[] = {
        {"20 S 60 W: west of 0.1 E and south of 0.1 N", -60.0, -20.0, false},
        {"20 S 60 E", 60.0, -20.0, true},
        {"0/0", 0.0, 0.0, false},
        {"just east of 0.1 E on the equator", 0.1, 0.0, true},
        {"just north of 0.1 N on the meridian", 0.0, 0.1, true},
        {"west of 179 W", -179.00001, 10.0, false},
        {"east of 179 W", -178.99999, 10.0, true},
        {"south of 89 S", 10.0, -89.00001, false},
        {"north of 89 S", 10.0, -88.99999, true},
        {"Ottawa", -75.7, 45.4, true},
    };
    for (const auto& c : cases) {
        const QByteArray ov2 =
            point(int32_t(std::lround(c.lon * 1e5)), int32_t(std::lround(c.lat * 1e5)), "P");
        const QByteArray asc =
            QByteArray::number(c.lon, 'f', 5) + ',' + QByteArray::number(c.lat, 'f', 5) + ",P\n";
        EXPECT_EQ(ReadOv2(ov2, PoiReading::AsListed).size(), c.kept ? 1u : 0u) << "ov2: " << c.legend;
        EXPECT_EQ(ReadAsc(asc, PoiReading::AsListed).size(), c.kept ? 1u : 0u) << "asc: " << c.legend;
        EXPECT_EQ(ReadOv2(ov2, PoiReading::Complete).size(), 1u) << "ov2, all: " << c.legend;
        EXPECT_EQ(ReadAsc(asc, PoiReading::Complete).size(), 1u) << "asc, all: " << c.legend;
    }
}

TEST(PoiSort, OrdersByLongitudeWhateverTheSize) {
    std::mt19937 random(7);
    for (const size_t size : {size_t(0), size_t(1), size_t(100), size_t(50000)}) {
        std::vector<PoiEntry> entries;
        for (size_t i = 0; i < size; ++i) {
            // Whole 1e-5 degrees as in .ov2 files, and values a few bits apart that share leading bits.
            const double lon = i % 3 ? int32_t(random() % 36000000) * 1e-5 - 180.0
                                     : std::bit_cast<double>(std::bit_cast<uint64_t>(8.25) + random() % 4096);
            entries.push_back({lon, double(i), uint32_t(i)});
        }
        std::vector<PoiEntry> sorted = entries;
        SortByLongitude(sorted);
        EXPECT_TRUE(std::ranges::is_sorted(sorted, {}, &PoiEntry::m_dLon)) << size;
        const auto byIndex = [](const PoiEntry& a, const PoiEntry& b) {
            return a.m_nNameOffset < b.m_nNameOffset;
        };
        std::ranges::sort(sorted, byIndex);
        EXPECT_EQ(sorted, entries) << size << ": the same points";
    }
}

// Names read from the file in one pass equal the names read from its bytes, whatever the order asked.
TEST(PoiNames, ReadFromTheFileInOnePass) {
    QByteArray bytes = "x";
    std::vector<uint32_t> offsets = {0, 1u << 30}; // no name; past the end
    for (int i = 0; i < 3000; ++i) {
        offsets.push_back(uint32_t(bytes.size()));
        bytes += "Name " + QByteArray(i % 37, 'a') + QByteArray::number(i) + (i % 2 ? '\0' : '\n');
    }
    offsets.push_back(uint32_t(bytes.size() - 3)); // a name cut by the end of the file
    std::shuffle(offsets.begin() + 2, offsets.end(), std::mt19937(1));
    QTemporaryDir dir;
    const std::vector<QByteArray> names = ReadPoiNames(writeFile(dir.filePath("names.ov2"), bytes), offsets);
    ASSERT_EQ(names.size(), offsets.size());
    for (size_t i = 0; i < offsets.size(); ++i)
        EXPECT_EQ(names[i], PoiNameAt(bytes, offsets[i])) << offsets[i];
    EXPECT_TRUE(ReadPoiNames(dir.filePath("missing.ov2"), {5}).front().isEmpty());
}
