#include "shell/hotkeys/CHotkeyActions.h"

#include "gps/CFendixDoc.h"
#include "gps/sound/SoundController.h"
#include "integrations/hotkeys/HotkeyNames.h"
#include "platform/DeviceRoot.h"
#include "platform/session/Backlight.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "shell/CMainFrame.h"
#include "shell/hotkeys/HotkeySettings.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPixmap>

namespace {

const QString kNavigationPrefix = QStringLiteral("<MN ");

} // namespace

CHotkeyActions::CHotkeyActions(Services services) : m_services(std::move(services)) {}

void CHotkeyActions::Perform(const QString& action) {
    devLog("PerformHotkeys: %s", action.toUtf8().constData());
    if (action.isEmpty() || action == QString::fromUtf8(HotkeyNames::kNoAction)) return;
    if (action.startsWith(kNavigationPrefix)) {
        if (!m_navigation) return; // no navigation program bridge: logged only
        m_navigation(action);
        if (action == QStringLiteral("<MN und Tarvik schließen>")) m_services.pFrame->Exit();
        return;
    }
    if (PerformFixed(action)) return;
    const QString page = HotkeyNames::pageOf(action);
    if (page.isEmpty()) {
        devLog("!!!! PerformHotkeys: unknown action %s", action.toUtf8().constData());
        return;
    }
    // A page that no longer exists shows the data source settings, as at start-up.
    m_services.pFrame->SelectPageByName(page);
}

bool CHotkeyActions::PerformFixed(const QString& action) {
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"<Ansichten wechseln>", [this] { NextView(); }},
        {"<Heller>", [this] { StepBacklight(1); }},
        {"<Dunkler>", [this] { StepBacklight(-1); }},
        {"<Lauter>", [this] { StepVolume(1); }},
        {"<Leiser>", [this] { StepVolume(-1); }},
        {"<Sound an/aus>", [this] { ToggleSound(); }},
        {"<Reboot>", [this] { Reboot(); }},
        {"<Tarvik schließen>", [this] { m_services.pFrame->Exit(); }},
        {"<Screenshot>", [this] { Screenshot(); }},
        {"<Speicher Aktuelle Pos>", [this] { m_services.storePosition(); }},
        {"<Reset Trag>", [this] { m_services.pDoc->OpenLog(); }},
        {"<Reset Maximalwerte>", [this] { m_services.pDoc->ResetMaxima(); }},
        {"<Reset Tour>", [this] { m_services.pDoc->ResetTour(); }},
    };
    for (const auto& [name, run] : actions)
        if (action == QString::fromUtf8(name)) {
            run();
            return true;
        }
    return false;
}

void CHotkeyActions::NextView() {
    const QStringList pages = m_services.pFrame->PageNames();
    if (pages.isEmpty()) return;
    const CMainFrame& frame = *m_services.pFrame;
    const qsizetype shown = pages.indexOf(frame.CurrentPageName());
    m_services.pFrame->SelectPageByName(pages.at((shown + 1) % pages.size())); // not listed: the first
}

void CHotkeyActions::StepBacklight(int direction) {
    CRegistryKey key;
    if (m_services.pBacklight && m_services.pBacklight->Step(direction * HotkeySettings::kBackLightStep,
                                                             readSetting(key, HotkeySettings::kMinBackLight),
                                                             readSetting(key, HotkeySettings::kMaxBackLight)))
        Notice(direction > 0 ? QStringLiteral("Heller") : QStringLiteral("Dunkler"));
}

void CHotkeyActions::StepVolume(int direction) {
    if (!m_services.pSounds) return;
    m_services.pSounds->setBaseVolume(m_services.pSounds->baseVolume() +
                                      direction * HotkeySettings::kVolumeStep);
    m_services.pSounds->updateVolume(true);
    Notice(direction > 0 ? QStringLiteral("Lauter") : QStringLiteral("Leiser"));
}

void CHotkeyActions::ToggleSound() {
    if (!m_services.pSounds) return;
    const bool bOn = !m_services.pSounds->isSoundOn();
    m_services.pSounds->setSoundOn(bOn);
    m_services.pSounds->updateVolume(true);
    Notice(bOn ? QStringLiteral("Sound An") : QStringLiteral("Sound Aus"));
}

void CHotkeyActions::Reboot() {
    CRegistryKey key;
    if (readSetting(key, HotkeySettings::kShowRebootWarning)) {
        QMessageBox box(QMessageBox::Warning, QStringLiteral("Reboot"),
                        QStringLiteral("Einige GPS-Empfänger müssen vor dem Neustart vom Gerät getrennt "
                                       "werden, damit sie danach richtig starten.\n\n"
                                       "Soll dieser Hinweis wieder angezeigt werden?"),
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, m_services.pFrame);
        const int answer = box.exec();
        if (answer == QMessageBox::Cancel) return; // a desktop's way out: no restart
        writeSetting(key, HotkeySettings::kShowRebootWarning, answer == QMessageBox::Yes);
    }
    if (!m_services.reboot || !m_services.reboot()) devLog("!!!! Reboot refused");
}

void CHotkeyActions::Screenshot() {
    CRegistryKey key;
    const QString folder = readSetting(key, HotkeySettings::kScreenshotDir);
    const DeviceRoot& root = DeviceRoot::current();
    QString path;
    for (int n = 1; path.isEmpty() || QFileInfo::exists(path); ++n) // never over an earlier one
        path = root.hostPath(QString::asprintf("%sGScreen_%d.bmp", folder.toUtf8().constData(), n));
    QDir().mkpath(QFileInfo(path).path());
    if (!m_services.pFrame->grab().save(path, "BMP"))
        devLog("!!!! Screenshot not written: %s", path.toUtf8().constData());
}

void CHotkeyActions::Notice(const QString& text) {
    if (m_services.showNotice) m_services.showNotice(text);
}
