#include "nav/GeoConstants.h"
#include "nav/Mgrs.h"
#include "nav/goto/ApproachBeep.h"
#include "nav/goto/CalcGotoPos.h"
#include "nav/goto/GoToReading.h"
#include "nav/goto/TypedTarget.h"
#include "nav/goto/VantrelText.h"

#include <QProcess>
#include <gtest/gtest.h>
#include <random>

// The page's texts, beeps and Vantrel lines the tool shows are in tests/data/goto/commands.txt.
TEST(GoTo, TimeToGoTexts) {
    const std::pair<int, const char*> cases[] = {
        {60, "60 s"}, {61, "1 min"}, {3600, "60 min"}, {3601, "1 h 1 min"}, {0, "0 s"},
    };
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(TimeToGoText(seconds), text) << seconds;
    EXPECT_FALSE(SecondsToGo(1.0, 0.0)) << "standing still";
    EXPECT_EQ(SecondsToGo(3.0, 36.0), 300);
}

TEST(GoTo, ReadingTexts) {
    struct Case {
        double toLon, toLat, speed, heading;
        bool toNorth;
        const char *field1, *field2, *field3;
        double arrow;
    } cases[] = {
        // One degree of latitude is 111.12 km; 111.12 / 55.54 * 3600 = 7202.59 s.
        {11, 49, 55.54, 359.7, false, "111.120 km\n0 Grad", "55.5 km/h\n359 Grad", "2 h 2 min", -359.7},
        {11, 49, 55.54, 359.7, true, "111.120 km\n0 Grad", "55.5 km/h\n359 Grad", "2 h 2 min", 0},
        {11, 47, 0, 90, false, "111.120 km\n180 Grad", "0.0 km/h\n90 Grad", "", 90},
    };
    for (const Case& c : cases) {
        const GoToReading r = ReadGoTo(11, 48, c.toLon, c.toLat, c.speed, c.heading, c.toNorth);
        EXPECT_EQ(r.m_strField1, c.field1) << c.field1;
        EXPECT_EQ(r.m_strField2, c.field2) << c.field2;
        EXPECT_EQ(r.m_strField3, c.field3) << c.field1;
        EXPECT_NEAR(r.m_dArrowDeg, c.arrow, 1e-4) << c.field1;
    }
}

TEST(GoTo, ApproachBeeps) {
    struct Case {
        const char* legend;
        double km, course, heading;
        bool toNorth;
        ApproachBeep expected;
    } cases[] = {
        {"at the target", 0.004, 200, 0, false, {2984, 500, 1}},
        {"5 m", 0.005, 0, 0, false, {2980, 500, 1}},
        {"ahead", 1.0, 10, 0, false, {1000, 70, 1}},
        {"just right of ahead", 0.25, 10.5, 0, false, {2000, 70, 3}},
        {"left", 0.5, 90, 180, false, {1000, 70, 2}},
        {"right", 0.5, 90, 0, false, {1000, 70, 3}},
        {"behind", 0.5, 91, 0, false, {1000, 200, 2}},
        {"behind across north", 0.1, 350, 170, false, {2600, 200, 2}},
        {"relative to north", 0.1, 5, 180, true, {2600, 70, 1}},
    };
    for (const Case& c : cases) {
        const ApproachBeep b = ApproachBeepFor(c.km, c.course, c.heading, c.toNorth);
        EXPECT_EQ(std::tuple(b.m_nFrequencyHz, b.m_nDurationMs, b.m_nTones),
                  std::tuple(c.expected.m_nFrequencyHz, c.expected.m_nDurationMs, c.expected.m_nTones))
            << c.legend;
    }
    CBeepCounter every3rd(3);
    std::string pattern;
    for (int i = 0; i < 7; ++i)
        pattern += every3rd.Tick() ? 'x' : '.';
    EXPECT_EQ(pattern, "..x..x.");
}

TEST(GoTo, VantrelTexts) {
    const std::tuple<double, double, bool, const char*> cases[] = {
        {0, 0, true, "@Vantrel:Simulate=0000.00000,S,00000.00000,W"},
        {11.5, 48.1, false, "@Vantrel:Simulate="},
    };
    for (const auto& [lon, lat, on, text] : cases)
        EXPECT_EQ(VantrelSimulationText(lon, lat, on), text) << text;
}

TEST(GoTo, CalcGotoPosBothWays) {
    const auto forward = CalcForward("N 48°00.000", "E 011°00.000", 0, 111.12, PosFormat::DegreesMinutes);
    ASSERT_TRUE(forward);
    EXPECT_EQ(forward->m_strLat, "N 49°00.000");
    EXPECT_EQ(forward->m_strLon, "E 011°00.000");
    EXPECT_FALSE(CalcForward("", "11", 0, 1, PosFormat::DecimalDegrees));

    const std::tuple<const char*, const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"48", "11", "N 49°00.000", "E 011°00.000", "111.120", "0.000"},
        {"48.5", "11", "48.5", "11", "0.000", "180.000"}, // identical points: course pi
    };
    for (const auto& [lat, lon, toLat, toLon, km, course] : cases) {
        const auto back = CalcBackward(lat, lon, toLat, toLon);
        ASSERT_TRUE(back) << toLat;
        EXPECT_EQ(back->m_strDistance, km) << toLat;
        EXPECT_EQ(back->m_strCourse, course) << toLat;
    }
}

TEST(GoTo, TypedTargetInEveryNotation) {
    const GeoPosition munich{48.12345, 11.57};
    const std::pair<PosFormat, double> formats[] = {
        {PosFormat::DegreesMinutes, 1e-6}, {PosFormat::DegreesMinutesSeconds, 1.5e-4},
        {PosFormat::DecimalDegrees, 1e-6}, {PosFormat::Utm, 1e-5},
        {PosFormat::Mgrs, 2e-5},           {PosFormat::FalkMarcoPolo, 2e-5},
    };
    for (const auto& [format, tolerance] : formats) {
        const TypedTargetFields fields = FormatTypedTarget(format, munich);
        EXPECT_EQ(!fields.m_strLat.isEmpty(), UsesLatLonFields(format)) << int(format);
        EXPECT_EQ(!fields.m_strZone.isEmpty(), UsesUtmFields(format)) << int(format);
        EXPECT_EQ(!fields.m_strMgrs.isEmpty(), UsesMgrsField(format)) << int(format);
        const auto back = ParseTypedTarget(format, fields);
        ASSERT_TRUE(back) << int(format);
        EXPECT_NEAR(back->m_dPosLat, munich.m_dPosLat, tolerance) << int(format);
        EXPECT_NEAR(back->m_dPosLong, munich.m_dPosLong, tolerance) << int(format);
    }
    const TypedTargetFields broken[] = {
        {.m_strZone = "32", .m_strHemisphere = "X", .m_strEasting = "691000", .m_strNorthing = "5334000"},
        {.m_strZone = "61", .m_strHemisphere = "N", .m_strEasting = "691000", .m_strNorthing = "5334000"},
        {.m_strMgrs = "ZAA 12 34"},
    };
    EXPECT_FALSE(ParseTypedTarget(PosFormat::Utm, broken[0]));
    EXPECT_FALSE(ParseTypedTarget(PosFormat::Utm, broken[1]));
    EXPECT_FALSE(ParseTypedTarget(PosFormat::Mgrs, broken[2]));
}

// MGRS references read back against GeoConvert (a test-only oracle), which gives the square's centre.
TEST(GoTo, MgrsInverseMatchesGeoConvert) {
    std::mt19937 random(13);
    std::uniform_real_distribution<double> lat(-79.9, 83.9), lon(-180, 180);
    QByteArray input;
    std::vector<QByteArray> references;
    for (int i = 0; i < 3000; ++i) {
        QByteArray reference;
        ASSERT_EQ(GeodeticToMgrs(lat(random) * DegToRad, lon(random) * DegToRad, 1 + i % 5, reference), 0);
        references.push_back(reference);
        input += reference + '\n';
    }
    QProcess geoConvert;
    geoConvert.start("GeoConvert", {"-p", "9"});
    geoConvert.write(input);
    geoConvert.closeWriteChannel();
    ASSERT_TRUE(geoConvert.waitForFinished()) << "GeoConvert missing";
    const QList<QByteArray> lines = geoConvert.readAllStandardOutput().split('\n');
    ASSERT_GE(lines.size(), static_cast<qsizetype>(references.size()));
    for (size_t i = 0; i < references.size(); ++i) {
        const QList<QByteArray> expected = lines[i].split(' ');
        double latRad = 0, lonRad = 0;
        ASSERT_TRUE(MgrsToGeodetic(references[i], latRad, lonRad)) << references[i].constData();
        // The corner lies half a square (up to 5 km at one digit pair) from the centre.
        qsizetype digits = 0;
        while (digits < references[i].size() &&
               std::isdigit(references[i][references[i].size() - 1 - digits]))
            ++digits;
        const double square = std::pow(10.0, 5 - digits / 2) / 111000.0;
        const double tolerance = square / std::cos(expected[0].toDouble() * DegToRad) + 1e-7;
        EXPECT_NEAR(latRad * RadToDeg, expected[0].toDouble(), tolerance) << references[i].constData();
        EXPECT_NEAR(lonRad * RadToDeg, expected[1].toDouble(), tolerance) << references[i].constData();
    }
}
