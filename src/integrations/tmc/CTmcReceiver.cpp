#include "integrations/tmc/CTmcReceiver.h"

#include "gps/sources/SourceSettings.h"
#include "integrations/TmcStatus.h"
#include "integrations/tmc/TmcInfoFile.h"
#include "integrations/tmc/TmcModes.h"
#include "integrations/tmc/TmcSettings.h"
#include "integrations/tmc/TmcTimers.h"
#include "platform/DeviceRoot.h"
#include "platform/TickCount.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

namespace {

constexpr int kFirstPort = 1;
constexpr int kLastPort = 9;

} // namespace

CTmcReceiver::CTmcReceiver(TmcStatus& status, TmcTimers& timers, Hooks hooks, QObject* parent)
    : QObject(parent), m_status(status), m_timers(timers),
      m_hooks(std::move(hooks)), m_window{&Notify, this} {
    if (!m_hooks.tick) m_hooks.tick = tickCount;
    CRegistryKey key;
    const int nMode = readSetting(key, TmcSettings::kControl);
    m_nMode = TmcModes::isValid(nMode) ? nMode : TmcModes::kOff;
}

CTmcReceiver::~CTmcReceiver() {
    // The library's thread ends in Uninit, so no notification can arrive for a dead receiver.
    Stop();
}

bool CTmcReceiver::LoadLibrary(const QString& path) {
    if (m_library.Load(path)) return true;
    m_strStatus = QStringLiteral("Could not initialize dll");
    devLog("!!!! TMC library %s: %s", qUtf8Printable(path), qUtf8Printable(m_library.LoadError()));
    Q_EMIT changed();
    return false;
}

void CTmcReceiver::SetMode(int nMode) {
    if (!TmcModes::isValid(nMode)) return;
    m_nMode = nMode;
    CRegistryKey key;
    writeSetting(key, TmcSettings::kControl, uint8_t(nMode));
    if (m_hooks.applySettings) m_hooks.applySettings();
    if (nMode == TmcModes::kNoControl && m_library.IsLoaded()) m_library.ControlTuner(0, 0);
    if (nMode == TmcModes::kOff)
        Stop();
    else if (m_nInitResult != 0)
        Start();
    else if (m_bHardwareReady && nMode != TmcModes::kNoControl)
        SendTunerCommand();
    Q_EMIT changed();
}

void CTmcReceiver::OverrideMode(int nMode) {
    if (TmcModes::isValid(nMode)) m_nMode = nMode;
}

void CTmcReceiver::Start() {
    if (m_nMode == TmcModes::kOff || !m_library.IsLoaded()) return;
    m_timers.Stop(TmcTimers::kRetry);
    if (m_nInitResult == 0) m_library.Uninit();
    m_nInitResult = -1;
    m_bHardwareReady = false;
    m_bFilterSet = false;

    CRegistryKey key;
    const int nBaud = readSetting(key, SourceSettings::kSpeed).trimmed().toInt();
    const int nDocumentPort = m_hooks.documentPort ? m_hooks.documentPort() : -1;
    uint32_t nSplitterIndex = 0;
    CRegistryKey splitter(QString::fromLatin1(TmcSplitterPort::kKey), RegistryRoot::LocalMachine);
    int nPort = nDocumentPort;
    m_nAlternatePort = -1;
    if (splitter.ReadDword(QString::fromLatin1(TmcSplitterPort::kIndex), nSplitterIndex)) {
        nPort = int(nSplitterIndex);
        m_nAlternatePort = nDocumentPort;
    }
    if (nPort < kFirstPort || nPort > kLastPort) return; // no start, no message

    m_nInitResult = m_library.Init(&m_window, nPort, nBaud, GpsTmcApi::kInitFlags);
    devLog("GpsTmc_Init(%d, %d) returned %d", nPort, nBaud, m_nInitResult);
    if (m_nInitResult != 0) {
        m_timers.Start(TmcTimers::kRetry, kRetryMilliseconds);
    } else {
        m_nLastUpdate = m_hooks.tick();
        m_timers.Start(TmcTimers::kStatus, kStatusMilliseconds);
    }
    Q_EMIT changed();
}

void CTmcReceiver::Stop() {
    m_timers.Stop(TmcTimers::kRetry);
    m_timers.Stop(TmcTimers::kStatus);
    if (m_nInitResult == 0 && m_library.IsLoaded()) m_library.Uninit();
    m_nInitResult = -1;
    m_bHardwareReady = false;
    m_bFilterSet = false;
}

void CTmcReceiver::Notify(void* pContext, int nMessage) {
    auto* pSelf = static_cast<CTmcReceiver*>(pContext);
    QMetaObject::invokeMethod(
        pSelf,
        [pSelf, nMessage] {
            if (nMessage == kGpsTmcHardwareOk)
                pSelf->OnHardwareOK();
            else if (nMessage == kGpsTmcNoHardware)
                pSelf->OnNoHardware();
        },
        Qt::QueuedConnection);
}

void CTmcReceiver::OnHardwareOK() {
    devLog("OnHardwareOK");
    if (!m_bFilterSet) {
        m_library.SetStationFilter(0, 0);
        if (m_nAlternatePort >= 0 && m_nAlternatePort <= kLastPort) {
            const int nResult = m_library.AlternateGpsPort(m_nAlternatePort, kAlternateBaud);
            devLog("GpsTmc_AlternateGpsPort(%d, %d) returned %d", m_nAlternatePort, kAlternateBaud, nResult);
        }
        m_bFilterSet = true;
    }
    m_bHardwareReady = true;
    m_strStatus.clear();
    SendTunerCommand();
    Q_EMIT changed();
    Q_EMIT notified(QStringLiteral("OnHardwareOK"));
}

void CTmcReceiver::OnNoHardware() {
    devLog("OnNoHardware");
    m_strStatus = QStringLiteral("Error");
    m_bHardwareReady = false;
    m_timers.Start(TmcTimers::kRetry, kRetryMilliseconds);
    Q_EMIT changed();
    Q_EMIT notified(QStringLiteral("OnNoHardware"));
}

void CTmcReceiver::SendTunerCommand() {
    const auto& command = TmcModes::kModes[m_nMode].tunerCommand;
    if (command) m_library.ControlTuner(command->first, command->second);
}

void CTmcReceiver::SearchStation() {
    if (!m_bHardwareReady || m_nMode == TmcModes::kOff || m_nMode == TmcModes::kManual) return;
    devLog("TMC Sendersuchlauf");
    const auto& search = *TmcModes::kModes[TmcModes::kAutomaticWithTmc].tunerCommand;
    m_library.ControlTuner(search.first, search.second);
}

void CTmcReceiver::OnTimer(int nTimer) {
    if (nTimer == TmcTimers::kRetry) {
        m_timers.Stop(TmcTimers::kRetry);
        Start();
    } else if (nTimer == TmcTimers::kStatus && m_nInitResult == 0) {
        UpdateStatus();
    }
}

void CTmcReceiver::UpdateStatus() {
    m_status.nMessageCount = m_library.GetCountAll();
    m_status.strStation = m_library.GetRdsStation();
    m_strRadiotext = m_library.GetRadiotext();
    m_counters[0] = m_library.GetRdsHealth();
    m_counters[1] = m_library.GetTmcHealth();
    m_counters[2] = m_library.GetTunerFrequency();
    const uint32_t nNow = m_hooks.tick();
    m_nSecondsSinceUpdate = int((nNow - m_nLastUpdate) / 1000);
    m_nLastUpdate = nNow;
    const QString infoPath = TmcInfoFile::TargetPath(DeviceRoot::current());
    if (!infoPath.isEmpty())
        TmcInfoFile::Write(infoPath, m_status.strStation, m_hooks.satellites ? m_hooks.satellites() : 0,
                           m_status.nMessageCount);
    Q_EMIT changed();
}

QString CTmcReceiver::HealthText() const {
    return QStringLiteral("%1 %2 %3").arg(m_counters[0]).arg(m_counters[1]).arg(m_counters[2]);
}
