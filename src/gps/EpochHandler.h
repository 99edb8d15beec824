#pragma once

#include <cstdint>
#include <functional>

class AlertHooks;
class CRegistryKey;
class PageHooks;
class PositionVerifier;
struct GpsFix;

// Once per new fix time: the plausibility test, the lost-fix bookkeeping with its alert sounds,
// and the redraw of the pages. Between fixes: the count of silent ticks that restarts a quiet
// source. Runs on the UI thread after every sentence that changed the fix, and on every tick.
class EpochHandler {
public:
    explicit EpochHandler(PositionVerifier& verifier) : m_verifier(verifier) {}

    // "AutoReconnect" (seconds; kept as twice the value in ticks; 0 switches the restart off).
    void loadSettings(CRegistryKey& key);
    void setAlertHooks(AlertHooks* pAlerts) { m_pAlerts = pAlerts; }
    void setPageHooks(PageHooks* pPages) { m_pPages = pPages; }
    void setSourceRestart(std::function<void()> restart) { m_restartSource = std::move(restart); }
    void setNavigationProbe(std::function<bool()> probe) { m_navigationRuns = std::move(probe); }

    // Handles what is pending in fix.m_nPendingChanges: an epoch when a sentence with a new time
    // stamp arrived (GpsChange::kEpoch), else one more tick without data.
    void handlePending(GpsFix& fix);

    // Epochs handled since start, and how many of them were valid.
    int64_t epochCount() const { return m_nEpochs; }
    int64_t validEpochCount() const { return m_nValidEpochs; }

private:
    void handleEpoch(GpsFix& fix);
    void handleValidEpoch(const GpsFix& fix);
    // False when the first invalid epoch in a row stops the handling before the redraw.
    bool handleInvalidEpoch();
    void handleSilentTick();
    void refreshModules(bool withTrack);
    void redrawPages(uint16_t hint);

    PositionVerifier& m_verifier;
    AlertHooks* m_pAlerts = nullptr;
    PageHooks* m_pPages = nullptr;
    std::function<void()> m_restartSource;
    std::function<bool()> m_navigationRuns;

    int m_nReconnectLimit = 10;
    uint8_t m_nNoDataTicks = 0;
    uint8_t m_nInvalidEpochs = 255;  // saturates at 255; starts there, so no sound before a first fix
    bool m_bLostSignalSound = false; // no-fix or no-data sound played; the signal sound is due
    bool m_bNoDataSound = false;     // no-data sound played in this silence
    bool m_bNavigationRuns = false;
    bool m_bHaveEpochTime = false;
    int64_t m_tLastEpoch = 0;
    int64_t m_nEpochs = 0;
    int64_t m_nValidEpochs = 0;
};
