#include "gps/CFendixDoc.h"
#include "gps/sources/DocumentSource.h"
#include "gps/sources/MNPositionFile.h"
#include "platform/DeviceClock.h"
#include "platform/PseudoTerminal.h"
#include "settings/CRegistryKey.h"
#include "sources_support.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int64_t kNoonUtc = 1795348800; // 2026-11-22 12:00:00 UTC
const QByteArray kGga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";

class SourcesDocument : public ::testing::Test {
protected:
    void SetUp() override {
        ensureApplication();
        m_doc.LoadSettings();
        m_source.setMessageHandler([this](const QString& text) { m_messages.append(text); });
        m_source.setSentenceObserver(
            [this](const char* line, int length, uint16_t) { m_sentences.append(QByteArray(line, length)); });
    }
    void writePositionFile(const QByteArray& text) {
        writeFile(m_root.file("My Documents/MNPosition.txt"), text);
    }

    // Declared before the source: sentences still handed over while it stops land here.
    QList<QByteArray> m_sentences;
    QStringList m_messages;
    TestRoot m_root;
    CRegistryKey m_key;
    FixedDeviceClock m_clock{kNoonUtc, 3600};
    CFendixDoc m_doc{m_root.root(), m_clock};
    DocumentSource m_source{m_doc, m_root.root(), m_clock};
};

TEST(SourcesNavigationFile, ReadsPositionAndMapCorners) {
    struct Case {
        const char* legend;
        QByteArray text;
        MNPosition expected;
    } cases[] = {
        {"everything",
         "[GPSPosition]\nLon=11.5\nLat=48.25\nSpeed=36.5\nCourse=270\nValid=1\n[MapCoordinates]\n"
         "LonTopLeft=11.4\nLatTopLeft=48.3\nLonTopRight=11.6\nLatTopRight=48.3\n"
         "LonBottomRight=11.6\nLatBottomRight=48.2\n",
         {11.5, 48.25, 36.5f, 270.0f, 1, 11.4, 48.3, 11.6, 48.3, 11.6, 48.2}},
        {"decimal comma, no map", "[GPSPosition]\r\nLon=-3,75\r\nLat=40,5\r\nValid=0\r\n", {-3.75, 40.5}},
        {"wrong section", "[Position]\nLon=1\n", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        const MNPosition read = MNPositionFile::parse(c.text);
        EXPECT_TRUE(read.sameMotion(c.expected));
        EXPECT_EQ(read.m_nValid, c.expected.m_nValid);
        EXPECT_EQ(read.m_dLatBottomRight, c.expected.m_dLatBottomRight);
        EXPECT_EQ(read.m_dLonTopLeft, c.expected.m_dLonTopLeft);
    }
}

TEST_F(SourcesDocument, TakesTheNavigationPositionOnlyWhenItMoved) {
    m_key.WriteString("Source", "MobileNavigator");
    writePositionFile("[GPSPosition]\nLon=11.5\nLat=48.1\nSpeed=36\nCourse=90\nValid=1\n");
    m_source.start();
    EXPECT_EQ(m_doc.Fix().m_fSpeed, 36.0f); // taken over at start, without a new fix
    EXPECT_EQ(m_doc.Fix().m_fCourse, 90.0f);
    m_source.controller().tick();
    EXPECT_TRUE(m_sentences.isEmpty()) << "unchanged since start";
    writePositionFile("[GPSPosition]\nLon=11.6\nLat=48.1\nSpeed=36\nCourse=90\nValid=1\n");
    m_source.controller().tick();
    m_source.controller().tick();
    // Checksum by hand: XOR of the characters between "$" and "*".
    EXPECT_EQ(m_sentences,
              QList<QByteArray>{"$GPGGA,120000.00,4806.00000,N,01136.00000,E,1,0,1.2,0.0,M,,,,0000*00\r\n"});
    EXPECT_EQ(m_doc.Fix().m_dPosLong, 11.6);
    EXPECT_EQ(m_doc.Fix().m_tFixTime, kNoonUtc + 3600);
    EXPECT_EQ(m_doc.Fix().m_nSource, 12);
}

TEST_F(SourcesDocument, ReconnectsToAReceiverThatWasPulledAndPluggedInAgain) {
    m_key.WriteDword("AutoReconnect", 1); // restart after more than two silent ticks
    m_key.WriteString("Source", "COM1");
    const QString link = m_root.file("receiver");
    m_key.WriteString("COM1Device", link);
    QString error;
    auto deliverThrough = [&](PseudoTerminal& receiver) {
        const qsizetype before = m_sentences.size();
        int polls = 0;
        return processEventsUntil([&] {
            if (polls++ % 20 == 0) {
                receiver.write(kGga + "$", error);
                m_source.controller().tick();
            }
            return m_sentences.size() > before;
        });
    };
    PseudoTerminal first;
    ASSERT_EQ(first.open(), QString());
    ASSERT_TRUE(QFile::link(first.devicePath(), link));
    m_source.start();
    ASSERT_TRUE(deliverThrough(first));

    first.close();
    ASSERT_TRUE(processEventsUntil([&] { return !m_messages.isEmpty(); }));
    EXPECT_TRUE(m_messages.first().startsWith("Unable to read from the port: "))
        << m_messages.first().toStdString();
    EXPECT_FALSE(m_source.controller().readerRunning());

    PseudoTerminal second;
    ASSERT_EQ(second.open(), QString());
    QFile::remove(link);
    ASSERT_TRUE(QFile::link(second.devicePath(), link));
    ASSERT_TRUE(deliverThrough(second));
    EXPECT_EQ(m_sentences.last(), kGga);
    EXPECT_EQ(m_messages.size(), 1);
}

} // namespace
