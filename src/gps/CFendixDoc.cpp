#include "gps/CFendixDoc.h"

#include "gps/GpsSettings.h"
#include "gps/sources/GpsSourceController.h"
#include "gps/sources/SourceSettings.h"
#include "settings/CRegistryKey.h"

#include <string_view>

CFendixDoc::CFendixDoc(const DeviceRoot& root, DeviceClock& clock)
    : m_clock(clock), m_interpreter(clock), m_tourStore(clock), m_verifier(m_stats, m_tourStore),
      m_log(root, clock), m_epochs(m_verifier) {
    m_interpreter.setSatelliteObserver(&m_satellites);
}

void CFendixDoc::LoadSettings() {
    loadGpsFixStart(m_fix, m_clock);
    CRegistryKey key;
    m_verifier.loadSettings(key);
    m_epochs.loadSettings(key);
    m_satellites.setAcceptAllTalkers(readSetting(key, SourceSettings::kAcceptAllTalkers));
    m_tourStore.load(m_stats);
    m_verifier.setLastPosition(m_fix.m_dPosLong, m_fix.m_dPosLat);
}

void CFendixDoc::SetPageHooks(PageHooks* pPages) {
    m_pPages = pPages;
    m_epochs.setPageHooks(pPages);
}

uint16_t CFendixDoc::HandleSentence(const char* pLine, int nLength) {
    if (m_pPages) m_pPages->showRawSentence(pLine, nLength);
    m_log.writeSentence(pLine, nLength);
    const uint16_t nCode =
        m_interpreter.interpret(std::string_view(pLine, static_cast<size_t>(nLength)), m_fix);
    if (nCode == GpsChange::kRejected || nCode == GpsChange::kUnderstood) return nCode;
    m_fix.m_nPendingChanges |= nCode;
    m_epochs.handlePending(m_fix);
    return nCode;
}

void CFendixDoc::UpdateSettings(bool bResetStatistics) {
    CRegistryKey key;
    m_satellites.setAcceptAllTalkers(readSetting(key, SourceSettings::kAcceptAllTalkers));
    if (m_pSources) m_pSources->updateSettings(bResetStatistics);
}

void CFendixDoc::StopSource() {
    if (m_pSources) m_pSources->stopSource();
}

void CFendixDoc::OnTick() {
    m_epochs.handlePending(m_fix);
    m_log.flushWhenMinuteTurned();
}

void CFendixDoc::ResetStatistics(bool bOpenLog) {
    m_stats.clearExtremes();
    m_fix.m_fSpeed = 0;
    m_fix.m_fCourse = 0;
    m_verifier.forgetPositions();
    m_satellites.clear();
    if (bOpenLog) OpenLog();
    m_fix.m_nPendingChanges = 0;
}

void CFendixDoc::OpenLog() {
    m_stats.clearRun();
    m_log.open();
}

void CFendixDoc::ResetMaxima() {
    m_stats.clearExtremes();
}

void CFendixDoc::ResetTour() {
    m_tourStore.reset(m_stats);
}

void CFendixDoc::SaveAndClose() {
    m_tourStore.saveLastPosition(m_verifier.lastLong(), m_verifier.lastLat());
    m_tourStore.save(m_stats);
    m_log.close();
}
