#include "gps/CFendixDoc.h"
#include "gps/GpsSettings.h"
#include "gps/NmeaLineBuilder.h"
#include "integrations/NavigationTarget.h"
#include "integrations/TmcStatus.h"
#include "integrations/template/ExpandTemplate.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr int64_t kStartUtc = 1779451200; // 2026-05-22 12:00:00 UTC
constexpr int32_t kOffset = 7200;         // local time is two hours ahead

// Eleven seconds north at 10 m/s (0.0054 minutes of latitude a second), valid GGA and RMC each second,
// 500 m high, 8 satellites, HDOP 0.9: ten counted steps of 100 m in all, moving all the time.
void drive(CFendixDoc& doc) {
    for (int second = 0; second <= 10; ++second) {
        const QByteArray time = QString::asprintf("1200%02d", second).toLatin1();
        const QByteArray position = QString::asprintf("4806.%04d,N,01130.0000,E", 54 * second).toLatin1();
        for (const QByteArray& line :
             {NmeaLineBuilder("$GPGGA").text(time + "," + position + ",1,08,0.9,500.0,M,47.0,M,,").finish(),
              NmeaLineBuilder("$GPRMC").text(time + ",A," + position + ",19.4,0.0,220526,,").finish()})
            doc.HandleSentence(line.constData(), static_cast<int>(line.size()));
    }
}

class TemplateExpand : public ::testing::Test {
protected:
    void SetUp() override {
        CRegistryKey key;
        writeSetting(key, GpsSettings::kAutoAltitudeOffset, false);
        writeSetting(key, GpsSettings::kAltitudeOffset, 0);
        doc.LoadSettings();
        drive(doc);
        doc.Fix().m_fSpeed = 100.0f;
        doc.Fix().m_fAltitude = 523.7f;
        doc.Fix().m_fCourse = 271.8f;
        const double lat = doc.Fix().m_dPosLat;
        goTo.SetTarget(11.5, lat - 0.05, QString::fromUtf8("Hütte"));
        nav = {true, 11.5, lat - 1.0, "Ziel", "Hauptstraße 1", "Au", {{"a", "b"}, {"c", "d"}}};
        tmc.nMessageCount = 12;
        tmc.strStation = "Bayern 3";
        sources = {&doc, &goTo, &nav, &tmc, 87, doc.Statistics().m_tBreakStart + 3725};
    }

    TestRoot root;
    FixedDeviceClock clock{kStartUtc, kOffset};
    CFendixDoc doc{root.root(), clock};
    CGoToTarget goTo;
    NavigationTarget nav;
    TmcStatus tmc;
    TemplateSources sources;
};

// The factor, "100%", Distance2Target before Distance and unknown names on a fresh document are in
// tests/data/custom/commands.txt.
TEST_F(TemplateExpand, FillsEveryVariable) {
    struct Case {
        const char *text, *expected;
    } cases[] = {
        {"%Speed% km/h", "100 km/h"},
        {"%Distance2Target%", "111.1"}, // one degree of latitude is 111.12 km
        {"%Average%", "36"},            // 100 m in 10 s
        {"%Break%", "1:02:05"},
        {"%TripTime%", "0:00:10"},
        {"%Target%|%TargetStreet%|%TargetTown%", "Ziel|Hauptstraße 1|Au"},
        {"%Distance*1000%", "100"},
        {"%Distance%", "0"},
        {"%Time%:%Seconds%", "15:02:15"}, // 14:00:10 local plus 3725 s
        {"%Text:1,0%%Text:0,1%", "cb"},
        {"%Altitude%", "523"},
        {"%Altitude*3.28084%", "1718"},
        {"%GPSQuality% %Sats% %HDOP%", "1 8 0.9"},
        {"%Lat:0% %Long:2%", "N 48°06.054 E 11.500000"},
        {"%Long%", "E 011°30.000"}, // "PosFormat" 0
        {"%Lat:9%", ""},
        {"%Direction%", "271"},
        {"%GoToDistance% %GoToName% %GoToDirection%", "5.556 Hütte 180.0"},
        {"%GoToDistance*10%", "55.6"},
        {"%Direction2Target%", "180.0"},
        {"%MaxSpeed%", "36"}, // 19.4 knots
        {"%MaxAltitude%", "500"},
        {"%GPSTime%", "2026-05-22 12:00:10"},
        {"%TourDistance*1000%", "100"},
        {"%TourTime%", "0:00:10"},
        {"%TourStart%", "22.5.2026 14:00"},
        {"%TmcCnt% %TmcStation%", "12 Bayern 3"},
        {"%Slope%", "0.0"},
        {"%BatPerc%%", "87%"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ExpandTemplate(QString::fromUtf8(c.text), sources).toStdString(), c.expected) << c.text;
    EXPECT_TRUE(ExpandTemplate("%DateTime%", sources).contains("2026"));
}

TEST_F(TemplateExpand, WalksTheTextAsDesigned) {
    struct Case {
        const char *legend, *text, *expected;
    } cases[] = {
        {"an unknown name stays as it is", "%Foo% 50 % %Speed%", "%Foo% 50 % 100"},
        {"a name with a factor runs to the next percent", "%Speed km/h %Altitude%", "100Altitude%"},
        {"a factor that is no number is 1", "%Speed*abc%", "100"},
        {"an unterminated name still shows its value", "v=%Speed", "v=100"},
        {"a name ending in a percent needs it", "%Timex%Seconds%x", "%Timex15x"},
        {"Distance2Target is not Distance", "%Distance2Target*0%", "0.0"},
        {"an empty text", "", ""},
    };
    sources.tLocalNow += 3600;
    for (const Case& c : cases)
        EXPECT_EQ(ExpandTemplate(c.text, sources).toStdString(), c.expected) << c.legend;
}

TEST_F(TemplateExpand, LeavesUnknownValuesEmpty) {
    const QString text =
        "[%Distance2Target%][%Target%][%Text:0,0%][%GoToDistance%][%GoToName%][%GoToDirection%]"
        "[%Direction2Target%][%TmcCnt%][%TmcStation%][%BatPerc%]";
    const TemplateSources noTarget{&doc, nullptr, nullptr, nullptr, kUnknownBatteryPercent, 0};
    EXPECT_EQ(ExpandTemplate(text, noTarget).toStdString(), "[][][][][][][][][][]");
    NavigationTarget unknown;
    TmcStatus unknownTmc;
    CGoToTarget unset;
    const TemplateSources unknownValues{&doc, &unset, &unknown, &unknownTmc, 255, 0};
    EXPECT_EQ(ExpandTemplate(text, unknownValues).toStdString(), "[][][][][][][][][][]");
    const TemplateSources nothing;
    EXPECT_EQ(ExpandTemplate("[%Speed%][%Lat%][%GPSTime%][%Slope%]", nothing).toStdString(), "[][][][]");
}

TEST_F(TemplateExpand, EndsOnLargeBrokenTexts) {
    const QString unterminated = QString("%Speed*").repeated(15000);
    // Every other token closes the one before it: "100" and the copied "Speed*" per pair.
    EXPECT_EQ(ExpandTemplate(unterminated, sources).size(), 7500 * 9);
    const QString percents(100000, '%');
    EXPECT_EQ(ExpandTemplate(percents, sources), percents);
}

TEST(TemplateDuration, ShowsDaysHoursMinutesSeconds) {
    struct Case {
        int64_t seconds;
        const char* expected;
    } cases[] = {
        {93784, "1d2:03:04"}, {3725, "1:02:05"}, {0, "0:00:00"}, {86400, "1d0:00:00"}, {59, "0:00:59"}};
    for (const Case& c : cases)
        EXPECT_EQ(DurationText(c.seconds).toStdString(), c.expected) << c.seconds;
}

TEST(BatteryStatus, ReadsTheFirstBattery) {
    struct Case {
        const char* legend;
        QList<std::pair<const char*, const char*>> files; // path below the folder, content
        int expected;
    } cases[] = {
        {"a battery beside mains",
         {{"AC/type", "Mains\n"}, {"BAT0/type", "Battery\n"}, {"BAT0/capacity", "87\n"}},
         87},
        {"mains only", {{"AC/type", "Mains\n"}}, kUnknownBatteryPercent},
        {"an unreadable capacity, then a good one",
         {{"BAT0/type", "Battery\n"},
          {"BAT0/capacity", "x\n"},
          {"BAT1/type", "Battery\n"},
          {"BAT1/capacity", "40"}},
         40},
        {"a capacity out of range",
         {{"BAT0/type", "Battery"}, {"BAT0/capacity", "300"}},
         kUnknownBatteryPercent},
    };
    for (const Case& c : cases) {
        QTemporaryDir folder;
        for (const auto& [path, content] : c.files)
            writeFile(folder.filePath(path), content);
        EXPECT_EQ(readBatteryPercent(folder.path()), c.expected) << c.legend;
    }
    EXPECT_EQ(readBatteryPercent("/nonexistent/power_supply"), kUnknownBatteryPercent);
}

} // namespace
