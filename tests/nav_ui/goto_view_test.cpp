#include "nav/goto/GoToSettings.h"
#include "nav/goto/GoToTarget.h"
#include "nav/track/Measurement.h"
#include "nav/track/TrackSettings.h"
#include "nav/ui/CGoToView.h"
#include "nav/ui/CModuleTrack.h"
#include "nav/waypoints/WaypointList.h"
#include "platform/SoundOutput.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QAction>
#include <QLineEdit>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

class RecordingSound final : public SoundOutput {
public:
    void playFile(const QString&) override {}
    void playTones(const QList<Tone>& tones, uint16_t amplitude) override {
        m_played.push_back(tones);
        m_nAmplitude = amplitude;
    }
    void setVolume(uint32_t) override {}
    uint32_t volume() const override { return 0; }
    std::vector<QList<Tone>> m_played;
    uint16_t m_nAmplitude = 0;
};

struct GoToPage {
    GoToPage() {
        ensureApplication();
        CRegistryKey key;
        writeSetting(key, GoToSettings::kBeep, true);
        writeSetting(key, GoToSettings::kBeepRepeat, uint8_t{1});
        writeSetting(key, GoToSettings::kBeepVolume, 1234);
        CGoToView::Services services;
        services.fix = [this] { return m_fix; };
        services.localNow = [] { return QDateTime(QDate(2024, 5, 1), QTime(9, 5), Qt::UTC); };
        services.pSound = &m_sound;
        services.chooseFile = [this](const QString&, const QString&, const QString&, bool) {
            return m_strChosen;
        };
        services.ask = [this](const QString& question) {
            m_strAsked = question;
            return true;
        };
        services.setNavigationTarget = [this](double lon, double lat, const QString& name) {
            m_strHandedOver = QStringLiteral("%1 %2 %3").arg(lon).arg(lat).arg(name);
        };
        m_pView = std::make_unique<CGoToView>(m_target, m_waypoints, m_root.file("Waypoints.asc"), services);
    }
    void run(const char* command) {
        QAction* action = m_pView->Command(QString::fromUtf8(command));
        ASSERT_TRUE(action && action->isEnabled()) << command;
        action->trigger();
    }
    bool enabled(const char* command) { return m_pView->Command(QString::fromUtf8(command))->isEnabled(); }

    TestRoot m_root;
    GoToFix m_fix{true, 11.0, 48.0, 50.0, 0.0, 512.7, false};
    RecordingSound m_sound;
    CGoToTarget m_target;
    CWaypointList m_waypoints;
    QString m_strChosen, m_strAsked, m_strHandedOver;
    std::unique_ptr<CGoToView> m_pView;
};

} // namespace

TEST(GoToView, ShowsTheTargetAndBeeps) {
    GoToPage page;
    struct Case {
        const char* legend;
        bool valid;
        double toLon, toLat;
        const char* field1;
        size_t beeps; // sequences played so far
    } cases[] = {
        {"no fix", false, 11, 48.001, "GPS!", 0},
        {"latitude 0 is no target", true, 11, 0, "", 0},
        {"4 m ahead: one long high tone", true, 11, 48.0000359, "0.004 km\n0 Grad", 1},
        {"one degree north", true, 11, 49, "111.120 km\n0 Grad", 2},
    };
    for (const Case& c : cases) {
        page.m_fix.m_bValid = c.valid;
        page.m_target.SetTarget(c.toLon, c.toLat, "Ziel");
        EXPECT_EQ(page.m_pView->FieldText(0), c.field1) << c.legend;
        EXPECT_EQ(page.m_sound.m_played.size(), c.beeps) << c.legend;
    }
    ASSERT_EQ(page.m_sound.m_played[0].size(), 1);
    EXPECT_EQ(page.m_sound.m_played[0][0].m_nFrequencyHz, 2984); // 0.004 km
    EXPECT_EQ(page.m_sound.m_played[0][0].m_nDurationMs, 500);
    EXPECT_EQ(page.m_sound.m_nAmplitude, 1234);
    EXPECT_EQ(page.m_pView->FieldText(1), "50.0 km/h\n0 Grad");
    EXPECT_EQ(page.m_pView->FieldText(2), "2 h 20 min"); // 111.12 / 50 h = 8000.64 s, 8000 mod 60 = 20
}

TEST(GoToView, EnablesOnlyTheFieldsOfTheNotation) {
    GoToPage page;
    const std::pair<int, const char*> cases[] = {
        {0, "lat lon"}, {3, "zone hemisphere easting northing"}, {4, "mgrs"}, {5, "lat lon"}};
    for (const auto& [format, fields] : cases) {
        CRegistryKey key;
        key.WriteDword("PosFormat", format);
        page.m_pView->OnUpdate(0);
        for (const char* name : {"lat", "lon", "zone", "hemisphere", "easting", "northing", "mgrs"})
            EXPECT_EQ(page.m_pView->CoordinateField(name)->isEnabled(),
                      QString::fromLatin1(fields).split(' ').contains(name))
                << format << name;
    }
    // Typed in MGRS: the target follows.
    CRegistryKey key;
    key.WriteDword("PosFormat", 4);
    page.m_pView->OnUpdate(0);
    QLineEdit* mgrs = page.m_pView->CoordinateField("mgrs");
    mgrs->setText("32U PU 86121 30438"); // GeoConvert -m of 48.1 11.5
    Q_EMIT mgrs->textEdited(mgrs->text());
    double lon = 0, lat = 0;
    ASSERT_TRUE(page.m_target.GetTarget(lon, lat));
    EXPECT_NEAR(lat, 48.1, 1e-3);
    EXPECT_NEAR(lon, 11.5, 1e-3);
}

TEST(GoToView, WaypointCommands) {
    GoToPage page;
    page.m_target.SetTarget(11.5, 48.1, "");
    page.run("Setze MN Ziel "); // the target, longitude first, to the navigation program
    EXPECT_EQ(page.m_strHandedOver, "11.5 48.1 ");
    EXPECT_FALSE(page.enabled("Waypoint Löschen"));
    page.run("Waypoint Speichern");
    page.m_target.SetTarget(-70.25, -33.9, "Süd");
    page.run("Waypoint Speichern");
    EXPECT_EQ(readFile(page.m_root.file("Waypoints.asc")),
              "11.50000,48.10000,\"Tarvik Pos: 01.05.2024 09:05\"\n-70.25000,-33.90000,\"S\xfc"
              "d\"\n");

    page.m_waypoints.SetCurrent(0);
    EXPECT_FALSE(page.enabled("Waypoint Speichern"));
    EXPECT_FALSE(page.enabled("Vorheriger Waypoint"));
    page.run("Nächster Waypoint");
    double lon = 0, lat = 0;
    page.m_target.GetTarget(lon, lat);
    EXPECT_EQ(lon, -70.25);
    EXPECT_EQ(page.m_waypoints.Current(), 1u);
    EXPECT_FALSE(page.enabled("Nächster Waypoint"));
    page.run("Waypoint Löschen");
    EXPECT_EQ(page.m_strAsked, "Soll dieser Waypoint wirklich gelöscht werden?");
    EXPECT_EQ(page.m_waypoints.Items().size(), 1u);

    page.m_strChosen = writeFile(page.m_root.file("import.txt"), "Gipfel N 47\xb0"
                                                                 "25.123 E 010\xb0"
                                                                 "59.456\n");
    page.run("Import");
    page.run("Import");
    EXPECT_EQ(page.m_waypoints.Items().size(), 2u) << "imported twice, stored once";
    EXPECT_TRUE(readFile(page.m_root.file("Waypoints.asc")).endsWith("10.99093,47.41872,\"Gipfel\"\n"));
}

TEST(ModuleTrack, OpensListsEditsAndSaves) {
    ensureApplication();
    TestRoot root;
    CGoToTarget target;
    CRegistryKey key;
    writeSetting(key, TrackSettings::kTrack,
                 writeFile(root.file("a.tk"), "48.1234567,11.5000000,\n49.1234567,11.5000000,\n"));
    QString chosen = root.file("b.tk.gpx");
    CModuleTrack page(
        target, [](QIODevice&, TrackVertices&) { return false; },
        [&chosen](const QString&, const QString&, const QString&, bool) { return chosen; });
    ASSERT_EQ(page.List()->topLevelItemCount(), 2) << "the Track setting is loaded at start";
    const QTreeWidgetItem* second = page.List()->topLevelItem(1);
    EXPECT_EQ(QStringList({second->text(0), second->text(1), second->text(2), second->text(3)}),
              QStringList({"1", "11.5000", "49.1235", "111.120"}));
    EXPECT_EQ(page.List()->topLevelItem(0)->text(3), "0.000");

    target.SetTarget(12, 50, "T");
    page.List()->topLevelItem(1)->setSelected(true);
    page.InsertGoToTarget();
    EXPECT_EQ(page.Track()[1], (TrackVertex{12, 50}));
    page.List()->clearSelection();
    page.List()->topLevelItem(0)->setSelected(true);
    page.DeleteSelected();
    ASSERT_EQ(page.Track().size(), 2u);
    page.SaveAs();
    EXPECT_EQ(readSetting(key, TrackSettings::kTrack), chosen);
    chosen = root.file("c");
    page.SaveAs();
    EXPECT_EQ(readFile(root.file("c.tk")), "50.0000000,12.0000000,\n49.1234567,11.5000000,\n");
    page.DeleteAll();
    EXPECT_EQ(page.List()->topLevelItemCount(), 0);
}

TEST(TrackPage, InsertsTheMapsMeasurementAsMeasured) {
    ensureApplication();
    TestRoot root;
    CGoToTarget target;
    CModuleTrack page(target, [](QIODevice&, TrackVertices&) { return false; });
    ASSERT_FALSE(page.Command("Füge Längenmessung aus Karte ein")->isEnabled()) << "no measurement given";
    CMeasurement measurement;
    page.SetMeasurement(&measurement);
    target.SetTarget(12, 50, "T");
    page.InsertGoToTarget();
    page.InsertGoToTarget();
    const TrackVertices measured{{11.51, 48.12}, {11.52, 48.13}, {11.5312345, 48.1412345}};
    for (const TrackVertex& point : measured)
        measurement.Add(point.m_dLon, point.m_dLat);
    page.List()->topLevelItem(1)->setSelected(true);
    page.Command("Füge Längenmessung aus Karte ein")->trigger();
    EXPECT_EQ(page.Track(), (TrackVertices{{12, 50}, measured[0], measured[1], measured[2], {12, 50}}))
        << "before the selected point";
    EXPECT_EQ(page.List()->topLevelItemCount(), 5);
}
