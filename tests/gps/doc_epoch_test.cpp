#include "gps/CFendixDoc.h"
#include "gps/NmeaLineBuilder.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

// Records what the document tells the sounds and the pages, one word each.
class Recorder : public AlertHooks, public PageHooks {
public:
    QStringList events;
    void playNoFixSound() override { events << "nofix"; }
    void playSignalSound() override { events << "signal"; }
    void playNoDataSound() override { events << "nodata"; }
    void invalidEpochs(int count) override { events << QString("inv%1").arg(count); }
    void validEpoch(int) override { events << "valid"; }
    void showRawSentence(const char*, int) override {}
    void refreshModules(bool) override {}
    void redrawPages(uint16_t hint) override { events << QString("draw%1").arg(hint); }
};

// A receiver driving north at 36 km/h: second n is 10 m north of second 0.
QByteArray sentence(char kind, int second) {
    const QByteArray time = QString::asprintf("1200%02d", second).toLatin1();
    const QByteArray position = QString::asprintf("4806.%04d,N,01130.0000,E", 54 * second).toLatin1();
    if (kind == 'R')
        return NmeaLineBuilder("$GPRMC").text(time + ",A," + position + ",19.4,0.0,220526,,").finish();
    const char quality = kind == 'A' ? '1' : '0';
    return NmeaLineBuilder("$GPGGA")
        .text(time + "," + position + "," + quality + ",08,0.9,500.0,M,47.0,M,,")
        .finish();
}

struct Script {
    QStringList events;
    int64_t nEpochs = 0;
};

// Words: "A5" a valid GGA of second 5, "V5" one without fix, "R5" a valid RMC, "T" a silent tick.
Script play(const QString& script, int32_t nAutoReconnect) {
    TestRoot root;
    CRegistryKey().WriteDword("AutoReconnect", static_cast<uint32_t>(nAutoReconnect));
    FixedDeviceClock clock(1779451200); // 2026-05-22 12:00 UTC
    CFendixDoc doc(root.root(), clock);
    doc.LoadSettings();
    Recorder recorder;
    doc.SetAlertHooks(&recorder);
    doc.SetPageHooks(&recorder);
    doc.SetSourceRestart([&recorder] { recorder.events << "restart"; });
    for (const QString& word : script.split(' ')) {
        if (word == "T") {
            doc.OnTick();
            continue;
        }
        const QByteArray line = sentence(word.at(0).toLatin1(), word.mid(1).toInt());
        doc.HandleSentence(line.constData(), static_cast<int>(line.size()));
    }
    return {recorder.events, doc.Epochs().epochCount()};
}

TEST(DocEpoch, HandlesEpochsAndAlerts) {
    struct Case {
        const char *legend, *script;
        int32_t nAutoReconnect;
        const char* expected;
        int64_t nEpochs;
    } cases[] = {
        {"GGA and RMC of one second make one epoch; the first fix is only the start point", "A0 R0 A1 R1", 5,
         "draw70 inv0 valid draw102", 2},
        {"no sound before the first valid fix", "V0 V1 V2", 5, "draw70 draw70 draw70", 3},
        {"the first invalid epoch is not drawn; the second plays the no-fix sound; the fix back the signal",
         "A0 A1 V2 V3 V4 A5", 5,
         "draw70 inv0 valid draw70 inv0 inv1 nofix draw70 inv2 draw70 signal inv0 valid draw70", 6},
        {"more silent ticks than twice AutoReconnect restart the source, with one no-data sound per silence",
         "A0 A1 T T T T T T", 1, "draw70 inv0 valid draw70 nodata restart restart", 2},
        {"after the restart the next fix plays no signal sound when the fix was never lost", "A0 A1 T T T A2",
         1, "draw70 inv0 valid draw70 nodata restart valid draw70", 3},
        {"more than 5 silent ticks redraw with the no-data hint when the restart is off",
         "A0 A1 T T T T T T T", 0, "draw70 inv0 valid draw70 draw1024 draw1024", 2},
    };
    for (const Case& c : cases) {
        const Script result = play(c.script, c.nAutoReconnect);
        EXPECT_EQ(result.events.join(' ').toStdString(), c.expected) << c.legend;
        EXPECT_EQ(result.nEpochs, c.nEpochs) << c.legend;
    }
}

} // namespace
