#pragma once

#include "integrations/tmc/GpsTmcLibrary.h"

#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>

struct TmcStatus;
class TmcTimers;

// The TMC receiver behind the page "Einstellungen TMC": loads the library, starts it on the GPS
// port, answers its notifications, sends the tuner command of the chosen mode and polls the state
// that the templates show. Runs on the UI thread; the library's notifications arrive from its own
// thread and are queued over to it.
class CTmcReceiver : public QObject {
    Q_OBJECT
public:
    static constexpr int kRetryMilliseconds = 5000;
    static constexpr int kStatusMilliseconds = 1000;
    static constexpr int kAlternateBaud = 4800;

    struct Hooks {
        std::function<int()> documentPort;   // the document's serial port 0..9, -1 for other sources
        std::function<int()> satellites;     // satellites in use, for "GPSTMCInfo.txt"
        std::function<void()> applySettings; // the document takes its settings again
        std::function<uint32_t()> tick;      // milliseconds; default: the monotonic clock
    };

    CTmcReceiver(TmcStatus& status, TmcTimers& timers, Hooks hooks, QObject* parent = nullptr);
    ~CTmcReceiver() override;

    // Loads the library and its functions; false (status "Could not initialize dll") when one is missing.
    bool LoadLibrary(const QString& path);
    GpsTmcLibrary& Library() { return m_library; }

    int Mode() const { return m_nMode; }
    // A menu choice: stores the mode, lets the document apply its settings, starts or stops the
    // receiver; "Keine Sendersteuerung" is sent to the tuner at once.
    void SetMode(int nMode);
    // The mode for this run only, not stored: the developer's probe.
    void OverrideMode(int nMode);
    // Starts the library on the GPS port unless the mode is "TMC Off" or no library is loaded.
    void Start();
    void OnTimer(int nTimer);
    // The automatic station search ("<MN TMC Sendersuchlauf>"): the tuner looks for a station with
    // TMC once the hardware is ready; nothing while TMC is off or the user tunes by hand.
    void SearchStation();

    int InitResult() const { return m_nInitResult; }
    int AlternatePort() const { return m_nAlternatePort; }
    bool IsHardwareReady() const { return m_bHardwareReady; }
    const QString& StatusText() const { return m_strStatus; }
    QString HealthText() const; // "%d %d %d"
    int SecondsSinceUpdate() const { return m_nSecondsSinceUpdate; }
    QString Radiotext() const { return m_strRadiotext; }

Q_SIGNALS:
    void changed();
    // "OnHardwareOK" or "OnNoHardware", after the receiver has handled it.
    void notified(const QString& name);

private:
    static void Notify(void* pContext, int nMessage);
    void OnHardwareOK();
    void OnNoHardware();
    void UpdateStatus();
    void SendTunerCommand();
    void Stop();

    TmcStatus& m_status;
    TmcTimers& m_timers;
    Hooks m_hooks;
    GpsTmcLibrary m_library;
    GpsTmcWindow m_window;
    int m_nMode;
    int m_nInitResult = -1;
    int m_nAlternatePort = -1;
    bool m_bHardwareReady = false;
    bool m_bFilterSet = false;
    int m_counters[3] = {};
    uint32_t m_nLastUpdate = 0;
    int m_nSecondsSinceUpdate = 0;
    QString m_strStatus;
    QString m_strRadiotext;
};
