#include "GpsbabelOracle.h"
#include "nav/poi/Ov2Reader.h"
#include "nav/poi/Ov2Writer.h"
#include "nav/poi/PoiConversion.h"
#include "support/Files.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

// Names in Windows-1252 (umlauts, the euro sign), with quotes, commas and beyond Windows-1252 unless
// `plain`.
NamedPois samplePoints(size_t count, bool plain = false) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> lon(-180.0, 180.0), lat(-90.0, 90.0);
    const QStringList names =
        plain ? QStringList{"Bahnhof", "Aebi Frères Bogis-Bossey", "", "€ 150 ‰"}
              : QStringList{"Bahnhof", "Aebi Frères, Bogis-Bossey", "Łódź \"Kaliska\"", "", "€ 1,50 ‰"};
    NamedPois points;
    for (size_t i = 0; i < count; ++i)
        points.push_back({lon(random), lat(random), names[i % names.size()] + QString::number(i)});
    return points;
}

// Sorted by position, so that files that order their points differently compare.
NamedPois byPosition(NamedPois points) {
    std::ranges::sort(points, {},
                      [](const NamedPoi& p) { return std::tuple(p.m_dLon, p.m_dLat, p.m_strName); });
    return points;
}

void expectSamePoints(const NamedPois& actual, const NamedPois& expected, double tolerance,
                      const char* legend) {
    ASSERT_EQ(actual.size(), expected.size()) << legend;
    const NamedPois a = byPosition(actual), e = byPosition(expected);
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(a[i].m_dLon, e[i].m_dLon, tolerance) << legend << " #" << i;
        EXPECT_NEAR(a[i].m_dLat, e[i].m_dLat, tolerance) << legend << " #" << i;
        EXPECT_EQ(a[i].m_strName, e[i].m_strName) << legend << " #" << i;
    }
}

NamedPois readBack(const QByteArray& bytes, PoiFormat format) {
    QString error;
    const auto points = ReadNamedPois(bytes, format, error);
    EXPECT_TRUE(points) << error.toStdString();
    return points.value_or(NamedPois{});
}

int32_t int32At(const QByteArray& bytes, qsizetype pos) {
    return qFromLittleEndian<int32_t>(bytes.constData() + pos);
}

// Walks the skipper tree as a device that skips blocks does: every skipper's length ends on a record
// boundary inside its parent, and its box holds every point of its block. Returns the points seen.
int walkBlock(const QByteArray& bytes, qsizetype begin, qsizetype end) {
    int points = 0;
    for (qsizetype pos = begin; pos < end;) {
        const int32_t length = int32At(bytes, pos + 1);
        EXPECT_GT(length, 0);
        EXPECT_LE(pos + length, end) << "a block reaches past its parent";
        if (bytes[pos] == 1) {
            const int32_t east = int32At(bytes, pos + 5), north = int32At(bytes, pos + 9);
            const int32_t west = int32At(bytes, pos + 13), south = int32At(bytes, pos + 17);
            for (qsizetype p = pos + 21; p < pos + length; p += int32At(bytes, p + 1)) {
                if (bytes[p] != 2) continue;
                EXPECT_TRUE(int32At(bytes, p + 5) >= west && int32At(bytes, p + 5) <= east);
                EXPECT_TRUE(int32At(bytes, p + 9) >= south && int32At(bytes, p + 9) <= north);
            }
            points += walkBlock(bytes, pos + 21, pos + length);
        } else {
            EXPECT_EQ(bytes[pos], 2);
            ++points;
        }
        pos += std::max(length, 1);
    }
    return points;
}

} // namespace

TEST(PoiConversion, EachFormatReadsBackWhatItWrote) {
    const NamedPois points = samplePoints(1000);
    const struct {
        const char* legend;
        PoiFormat format;
        double tolerance; // degrees
    } cases[] = {{"ov2: 1e-5 deg", PoiFormat::Ov2, 0.5e-5},
                 {"asc", PoiFormat::Asc, 0.5e-9},
                 {"gpx", PoiFormat::Gpx, 0.5e-9},
                 {"csv", PoiFormat::Csv, 0.5e-9}};
    for (const auto& c : cases)
        expectSamePoints(readBack(WriteNamedPois(points, c.format), c.format), points, c.tolerance, c.legend);
}

TEST(PoiConversion, Ov2SkippersCoverTheirBlocks) {
    for (const size_t count : {size_t(1), size_t(16), size_t(17), size_t(5000)}) {
        const QByteArray bytes = WriteOv2(samplePoints(count));
        EXPECT_EQ(bytes[0], 1) << count << ": one skipper over the whole file";
        EXPECT_EQ(int32At(bytes, 1), bytes.size()) << count;
        EXPECT_EQ(walkBlock(bytes, 0, bytes.size()), int(count)) << count;
        EXPECT_EQ(ReadOv2(bytes, PoiReading::Complete).size(), count) << count;
    }
}

TEST(PoiConversion, WhatAFormatCannotHold) {
    const NamedPois points = {
        {8.5, 48.25, QString(2000, QChar(0x20AC))}, // 2000 euro signs: 2000 bytes in Windows-1252
        {200.0, 10.0, "beyond 180"},
        {std::nan(""), 10.0, "no position"},
        {9.5, 49.0, "line\nbreak"},
    };
    const struct {
        PoiFormat format;
        QString longName, lineBreak;
    } cases[] = {
        {PoiFormat::Ov2, QString(1009, QChar(0x20AC)), "line\nbreak"}, // read back up to the line end: "line"
        {PoiFormat::Asc, QString(1000, QChar(0x20AC)), "line break"},
        {PoiFormat::Gpx, QString(2000, QChar(0x20AC)), "line\nbreak"},
        {PoiFormat::Csv, QString(2000, QChar(0x20AC)), "line\nbreak"},
    };
    for (const auto& c : cases) {
        const NamedPois back = readBack(WriteNamedPois(points, c.format), c.format);
        ASSERT_EQ(back.size(), 2u) << int(c.format)
                                   << ": the two points without a valid position are left out";
        EXPECT_EQ(back[0].m_strName, c.longName) << int(c.format);
        EXPECT_EQ(back[1].m_strName, c.format == PoiFormat::Ov2 ? "line" : c.lineBreak) << int(c.format);
    }
}

TEST(PoiConversion, BrokenGpxAndCsvAreRefusedWithTheirLine) {
    const struct {
        PoiFormat format;
        QByteArray bytes;
        const char* problem;
    } cases[] = {
        {PoiFormat::Gpx, "<gpx>\n<wpt lat=\"1\" lon=\"2\">\n<name>x</wpt>\n</gpx>", "line 3"},
        {PoiFormat::Gpx, "<gpx>\n<wpt lon=\"2\"/>\n</gpx>", "line 2"},
        {PoiFormat::Gpx, "<kml/>", "not a GPX file"},
        {PoiFormat::Gpx, "", "line 1"},
        {PoiFormat::Csv, "lon,lat,name\n8.5,48.1,a\n\"b\nc\",1,x\nabc,1,y\n", "line 3"},
        {PoiFormat::Csv, "8.5,95,a\n", "line 1"},
    };
    for (const auto& c : cases) {
        QString error;
        EXPECT_FALSE(ReadNamedPois(c.bytes, c.format, error)) << c.bytes.toStdString();
        EXPECT_TRUE(error.contains(c.problem)) << c.bytes.toStdString() << ": " << error.toStdString();
    }
    QString error;
    const auto tolerant = ReadNamedPois("lon,lat,name\n\n 8.5 , 48.1 ,a,b\n-1,2\n", PoiFormat::Csv, error);
    ASSERT_TRUE(tolerant);
    EXPECT_EQ(*tolerant, (NamedPois{{8.5, 48.1, "a,b"}, {-1.0, 2.0, ""}}));
}

// GPSBabel (test oracle) reads the files Tarvik writes as Tarvik does. It takes every .ov2 and .asc
// name for Windows-1252, splits .asc lines at every comma and skips the first four lines of an .asc
// (the header its own writer puts there), so the names here are plain and the first four .asc points
// are not compared.
TEST(PoiConversion, GpsbabelReadsTheWrittenFiles) {
    if (QStandardPaths::findExecutable("gpsbabel").isEmpty()) GTEST_SKIP() << "gpsbabel is not installed";
    const NamedPois points = samplePoints(300, true);
    QTemporaryDir dir;
    const struct {
        PoiFormat format;
        const char *babelFormat, *file;
        int headerLines;
    } cases[] = {{PoiFormat::Ov2, "tomtom", "p.ov2", 0},
                 {PoiFormat::Asc, "tomtom_asc", "p.asc", 4},
                 {PoiFormat::Gpx, "gpx", "p.gpx", 0}};
    for (const auto& c : cases) {
        const QByteArray written = WriteNamedPois(points, c.format);
        const QString path = writeFile(dir.filePath(c.file), written);
        NamedPois ours = readBack(written, c.format);
        ours.erase(ours.begin(), ours.begin() + c.headerLines);
        expectSamePoints(gpsbabelPoints(c.babelFormat, path), ours, 0.6e-6, c.babelFormat);
    }
}
