#include "gps/EpochHandler.h"

#include "gps/DocumentHooks.h"
#include "gps/GpsFix.h"
#include "gps/PositionVerifier.h"
#include "gps/sources/SourceSettings.h"

namespace {

constexpr uint8_t kInvalidEpochsSaturated = 255;
// Invalid epochs in a row after which the no-fix sound is played.
constexpr uint8_t kInvalidEpochsForNoFixSound = 2;
// Silent ticks after which the pages show that no data arrive.
constexpr uint8_t kTicksBeforeNoDataHint = 5;

} // namespace

void EpochHandler::loadSettings(CRegistryKey& key) {
    m_nReconnectLimit = readSetting(key, SourceSettings::kAutoReconnect) * 2;
}

void EpochHandler::handlePending(GpsFix& fix) {
    // A sentence without a time stamp (VTG) lands here as well and counts like a silent tick:
    // the next time stamp clears the count, as it always has.
    if (fix.m_nPendingChanges & GpsChange::kEpoch)
        handleEpoch(fix);
    else
        handleSilentTick();
}

void EpochHandler::handleEpoch(GpsFix& fix) {
    if (m_nNoDataTicks != 0) {
        m_nNoDataTicks = 0;
        m_bNoDataSound = false;
    }
    // Further sentences of the same second only gather their bits for the next epoch.
    if (m_bHaveEpochTime && fix.m_tFixTime == m_tLastEpoch) {
        fix.m_nPendingChanges &= static_cast<uint16_t>(~GpsChange::kEpoch);
        return;
    }
    m_tLastEpoch = fix.m_tFixTime;
    m_bHaveEpochTime = true;
    m_bNavigationRuns = m_navigationRuns && m_navigationRuns();
    ++m_nEpochs;

    if (fix.m_nValid != 0) fix.m_nValid = m_verifier.VerifyTimeAndPosition(fix);
    if (fix.m_nValid != 0) {
        ++m_nValidEpochs;
        handleValidEpoch(fix);
    } else if (!handleInvalidEpoch()) {
        return;
    }
    refreshModules(fix.m_nValid != 0);
    redrawPages(fix.m_nPendingChanges);
    fix.m_nPendingChanges = 0;
}

void EpochHandler::handleValidEpoch(const GpsFix& fix) {
    if (m_nInvalidEpochs != 0) {
        if (m_bLostSignalSound) {
            if (m_pAlerts) m_pAlerts->playSignalSound();
            m_bLostSignalSound = false;
        }
        m_nInvalidEpochs = 0;
        if (m_pAlerts) m_pAlerts->invalidEpochs(0);
    }
    if (m_pAlerts) m_pAlerts->validEpoch(static_cast<int>(fix.m_fSpeed));
}

bool EpochHandler::handleInvalidEpoch() {
    if (m_nInvalidEpochs < kInvalidEpochsSaturated) {
        if (m_pAlerts) m_pAlerts->invalidEpochs(m_nInvalidEpochs);
        ++m_nInvalidEpochs;
        if (m_nInvalidEpochs == kInvalidEpochsForNoFixSound && !m_bLostSignalSound) {
            if (m_pAlerts) m_pAlerts->playNoFixSound();
            m_bLostSignalSound = true;
        }
    }
    // A single invalid epoch is not worth a redraw; its bits stay gathered for the next one.
    return m_nInvalidEpochs != 1;
}

void EpochHandler::handleSilentTick() {
    ++m_nNoDataTicks;
    if (m_nReconnectLimit != 0 && m_nReconnectLimit < m_nNoDataTicks) {
        if (!m_bNoDataSound && m_pAlerts) m_pAlerts->playNoDataSound();
        m_bNoDataSound = true;
        m_bLostSignalSound = true;
        if (m_restartSource) m_restartSource();
        m_nNoDataTicks = 0;
    }
    if (m_nNoDataTicks > kTicksBeforeNoDataHint) redrawPages(GpsChange::kNoData);
    if (m_bNavigationRuns) refreshModules(false);
}

void EpochHandler::refreshModules(bool withTrack) {
    if (m_pPages) m_pPages->refreshModules(withTrack);
}

void EpochHandler::redrawPages(uint16_t hint) {
    if (m_pPages) m_pPages->redrawPages(hint);
}
