#include "gps/sources/DocumentSource.h"

#include "gps/CFendixDoc.h"
#include "gps/SyntheticGga.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"
#include "settings/DevLog.h"

#include <algorithm>

DocumentSource::DocumentSource(CFendixDoc& doc, const DeviceRoot& root, const DeviceClock& clock)
    : m_doc(doc), m_clock(clock), m_controller(*this, root) {
    m_doc.AttachSources(&m_controller);
    m_doc.SetSourceRestart([this] { m_controller.updateSettings(false); });
    m_doc.SetNavigationProbe([this] { return m_controller.navigationProgramRuns(); });
}

DocumentSource::~DocumentSource() {
    m_controller.stopSource();
    m_doc.AttachSources(nullptr);
    m_doc.SetSourceRestart({});
}

void DocumentSource::start() {
    m_controller.updateSettings(true);
    // After the reset of the start, which clears speed and course.
    MNPosition position;
    if (m_controller.primeNavigationPosition(position)) {
        m_doc.Fix().m_fSpeed = position.m_fSpeed;
        m_doc.Fix().m_fCourse = position.m_fCourse;
    }
}

void DocumentSource::HandleSentence(const char* pLine, int nLength) {
    if (nLength <= 0) {
        if (PageHooks* pages = m_doc.Pages()) pages->showRawSentence(nullptr, 0);
        return;
    }
    const uint16_t code = m_doc.HandleSentence(pLine, nLength);
    if (m_observeSentence) m_observeSentence(pLine, nLength, code);
}

void DocumentSource::ShowSourceMessage(const QString& strText) {
    if (m_showMessage)
        m_showMessage(strText);
    else
        devLog("%s", strText.toUtf8().constData());
}

void DocumentSource::PrepareSourceChange(bool /*bResetStatistics*/) {
    m_doc.Fix().m_nPendingChanges = 0;
}

void DocumentSource::SourceStarted(int nIndex, const QString& strFile, bool bResetStatistics) {
    m_doc.Fix().m_nSource = static_cast<uint8_t>(nIndex);
    m_strViewedFile = strFile;
    if (!bResetStatistics) return;
    m_doc.ResetStatistics(nIndex != SourceTable::kFile);
    if (PageHooks* pages = m_doc.Pages()) pages->redrawPages(0);
}

void DocumentSource::TakeNavigationPosition(const MNPosition& position) {
    GpsFix& fix = m_doc.Fix();
    fix.m_dPosLong = position.m_dLon;
    fix.m_dPosLat = position.m_dLat;
    fix.m_fSpeed = position.m_fSpeed;
    fix.m_fCourse = position.m_fCourse;
    fix.m_nValid = static_cast<uint8_t>(std::clamp(position.m_nValid, 0, 255));
    fix.m_tFixTime = m_clock.localNow();
    constexpr uint16_t kTakenOver = GpsChange::kEpoch | GpsChange::kPosition | GpsChange::kSpeedCourse;
    fix.m_nPendingChanges |= kTakenOver;
    const QByteArray line = buildSyntheticGga(fix, m_clock.localOffset());
    const int length = static_cast<int>(line.size());
    if (PageHooks* pages = m_doc.Pages()) pages->showRawSentence(line.constData(), length);
    if (fix.hasFix()) m_doc.Log().writeSentence(line.constData(), length);
    if (m_observeSentence) m_observeSentence(line.constData(), length, kTakenOver);
}

void DocumentSource::SupervisionTick() {
    m_doc.OnTick();
}
