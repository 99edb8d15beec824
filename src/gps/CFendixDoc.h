#pragma once

#include "gps/DocumentHooks.h"
#include "gps/EpochHandler.h"
#include "gps/GpsFix.h"
#include "gps/NmeaInterpreter.h"
#include "gps/PositionVerifier.h"
#include "gps/SatelliteTable.h"
#include "gps/TourStatistics.h"
#include "gps/TourStore.h"
#include "gps/TrackLogWriter.h"

#include <functional>

class DeviceClock;
class DeviceRoot;
class GpsSourceController;

// The GPS document: owns the fix and composes the interpreter, the plausibility test, the
// statistics, the epoch handling and the log writer. Lives on the UI thread; nothing here locks.
class CFendixDoc {
public:
    CFendixDoc(const DeviceRoot& root, DeviceClock& clock);
    CFendixDoc(const CFendixDoc&) = delete;
    CFendixDoc& operator=(const CFendixDoc&) = delete;

    // Reads the settings, loads the tour (or resets it when missing) and the last saved position.
    void LoadSettings();
    // From now on the tour and the last position are kept in memory only, never saved.
    void KeepSettingsUnchanged() { m_tourStore.keepInMemory(); }

    // The hand-over of one sentence (from its "$", with the line end it arrived with): raw-data
    // page, log file, interpreter, and the epoch handling when the fix changed. Returns the
    // interpreter's change code.
    uint16_t HandleSentence(const char* pLine, int nLength);
    // The supervision tick (every 973 ms): counts silent ticks and restarts a quiet source.
    void OnTick();

    // Part of a source restart with reset: clears extremes and speed, forgets the last position,
    // and (unless the source only views a file) opens the next log file.
    void ResetStatistics(bool bOpenLog);
    // Clears the run and moving figures and starts the next log file.
    void OpenLog();
    // Extremes of position and altitude and the maximum speed back to their start values.
    void ResetMaxima();
    // Tour distance and time to 0, saved, with "TourStart" now.
    void ResetTour();
    // At shutdown: the last position and the tour are saved and the log is closed.
    void SaveAndClose();

    // Not owned; may be null.
    void SetAlertHooks(AlertHooks* pAlerts) { m_epochs.setAlertHooks(pAlerts); }
    void SetPageHooks(PageHooks* pPages);
    // How the document restarts a quiet source (UpdateSettings without reset) and learns whether
    // a navigation program runs.
    void SetSourceRestart(std::function<void()> restart) { m_epochs.setSourceRestart(std::move(restart)); }
    void SetNavigationProbe(std::function<bool()> probe) { m_epochs.setNavigationProbe(std::move(probe)); }

    // The GPS source (see DocumentSource): stop it, re-read the source settings and start the
    // selected one; with reset, the statistics are cleared and a new log is opened.
    void UpdateSettings(bool bResetStatistics);
    void StopSource();
    void AttachSources(GpsSourceController* pSources) { m_pSources = pSources; }
    PageHooks* Pages() const { return m_pPages; }

    GpsFix& Fix() { return m_fix; }
    const GpsFix& Fix() const { return m_fix; }
    NmeaInterpreter& Interpreter() { return m_interpreter; }
    const SatelliteTable& Satellites() const { return m_satellites; }
    const DeviceClock& Clock() const { return m_clock; }
    const TourStatistics& Statistics() const { return m_stats; }
    const EpochHandler& Epochs() const { return m_epochs; }
    TrackLogWriter& Log() { return m_log; }
    const TrackLogWriter& Log() const { return m_log; }

private:
    DeviceClock& m_clock;
    GpsFix m_fix;
    NmeaInterpreter m_interpreter;
    SatelliteTable m_satellites;
    TourStatistics m_stats;
    TourStore m_tourStore;
    PositionVerifier m_verifier;
    TrackLogWriter m_log;
    EpochHandler m_epochs;
    PageHooks* m_pPages = nullptr;
    GpsSourceController* m_pSources = nullptr; // not owned
};
