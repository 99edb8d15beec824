#pragma once

#include "gps/share/ReceiverShare.h"
#include "gps/sources/FileReadThread.h"
#include "gps/sources/MNPositionFile.h"
#include "gps/sources/ReaderThread.h"
#include "gps/sources/SentenceReader.h"
#include "platform/DeviceRoot.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

class GpsSourceTarget;

// Runs the document's one GPS source: selects it from the settings ("Source" and the rest of
// SourceSettings), starts and stops its reader thread, hands every sentence to the target on the
// UI thread (the reader waits meanwhile), shows a failing device once until data flows again, and
// runs the 973 ms supervision tick that reads the navigation program's position. Lives on the UI
// thread.
class GpsSourceController : public QObject, private SentenceSink {
public:
    static constexpr int kTickMs = 973;

    GpsSourceController(GpsSourceTarget& target, const DeviceRoot& root);
    ~GpsSourceController() override;

    // Stops the current source, reads the source settings again and starts the selected one.
    // With reset (at start and from the data source page) the target clears its figures and
    // opens a new log, and a failing device is shown again.
    void updateSettings(bool bResetStatistics);
    // Stops the tick and the reader thread (see ReaderThread::stopAndWait).
    void stopSource();
    // Whether the selected source is the navigation program's.
    int sourceIndex() const { return m_nSourceIndex; } // the source that runs, -1 before the first start
    bool navigationSourceInUse() const;
    bool readerRunning() const { return m_pReader && m_pReader->isRunning(); }
    // Writes to the open serial port of the running source; false when no port is open. The
    // splitter's in-band texts ("@Vantrel:...") go to the splitter instead and never to the receiver.
    bool writeToPort(const QByteArray& bytes);
    // Starts or stops sharing the receiver as its settings say; empty text, else one line for the
    // user (sharing stays off then).
    QString updateSharing();
    ReceiverShare& share() { return m_share; }

    // Reads the navigation program's position file once at start, so that a file unchanged since
    // the last run gives no new fix. False when there is no file.
    bool primeNavigationPosition(MNPosition& position);
    // One supervision tick (the timer calls it every kTickMs).
    void tick();

    bool navigationProgramRuns() const { return m_navigationProgramRuns(); }
    // Tells whether the navigation program runs; until a bridge tells otherwise, it "runs" while
    // its position file exists.
    void setNavigationProgramProbe(std::function<bool()> probe) {
        m_navigationProgramRuns = std::move(probe);
    }
    // For one session (tarvik-tool watch): a source name used instead of "Source", and a device
    // path used for every COM port instead of its setting. Empty: the settings hold.
    void setSourceOverride(const QString& source) { m_strSourceOverride = source; }
    void setDeviceOverride(const QString& devicePath) { m_strDeviceOverride = devicePath; }
    void setStopRounds(ReaderThread::StopRounds rounds) { m_stopRounds = rounds; }
    void setReplayPause(FileReadThread::Pause pause) { m_replayPause = std::move(pause); }

private:
    void handOver(const char* line, int length) override;
    void reportFailure(const QString& text) override;
    void showFailure(const QString& text);
    // Step 5 of selecting a source: the reader for `index`, or none (viewing, navigation program,
    // or a replay file that cannot be opened).
    std::unique_ptr<SentenceReader> createReader(int index, QString& file);
    void readNavigationPosition();

    GpsSourceTarget& m_target;
    DeviceRoot m_root;
    ReceiverShare m_share; // before the reader: the reader thread hands lines to it
    QTimer m_tickTimer;
    std::unique_ptr<ReaderThread> m_pReader;
    int m_nSourceIndex = -1;
    bool m_bMnPriority = false; // read only while "Source" names the navigation program
    bool m_bFailureShown = false;
    MNPosition m_lastNavigationPosition;
    std::function<bool()> m_navigationProgramRuns;
    QString m_strSourceOverride;
    QString m_strDeviceOverride;
    ReaderThread::StopRounds m_stopRounds;
    FileReadThread::Pause m_replayPause = FileReadThread::waitOnStopEvent;
};
