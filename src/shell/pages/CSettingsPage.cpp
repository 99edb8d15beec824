#include "shell/pages/CSettingsPage.h"

#include "gps/GpsSettings.h"
#include "gps/sound/SoundSettings.h"
#include "gps/sources/SourceSettings.h"
#include "settings/CRegistryKey.h"
#include "settings/ValueText.h"
#include "shell/ShellSettings.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

// The value field shows this while "DynaSound" is stored as 0 (off).
constexpr int kDynaSoundShownWhenOff = 20;
// "ThresholdHeading" is shown, and stored, with one decimal.
constexpr int kThresholdDecimals = 1;

} // namespace

CSettingsPage::CSettingsPage(Actions actions, QWidget* parent)
    : CPageView(parent), m_actions(std::move(actions)) {
    auto* form = new QWidget;
    auto* layout = new QFormLayout(form);
    const auto check = [form](const QString& text) { return new QCheckBox(text, form); };
    const auto spin = [form](int maximum, const QString& suffix) {
        auto* box = new QSpinBox(form);
        box->setRange(0, maximum);
        box->setSuffix(suffix);
        return box;
    };
    m_pSpeedVol = check(QStringLiteral("Lautstärke nach Geschwindigkeit"));
    m_pMinVol = spin(100, QStringLiteral(" %"));
    m_pMaxVol = spin(100, QStringLiteral(" %"));
    m_pMaxVolSpeed = spin(400, QStringLiteral(" km/h"));
    m_pAutoStart = check(QStringLiteral("Programm mitstarten"));
    m_pAutoStartPath = new QLineEdit(form);
    auto* browse = new QPushButton(QStringLiteral("..."), form);
    auto* autoStartRow = new QHBoxLayout;
    autoStartRow->addWidget(m_pAutoStartPath);
    autoStartRow->addWidget(browse);
    m_pPostNavi = check(QStringLiteral("Erst nach dem Navigationsprogramm starten"));
    m_pDynaSound = check(QStringLiteral("Lautstärke nach Umgebungsgeräusch"));
    m_pDynaSoundValue = spin(255, QString());
    m_pLowPriority = check(QStringLiteral("Im Hintergrund niedrige Priorität"));
    m_pSetSystemTime = check(QStringLiteral("Uhr nach GPS stellen"));
    m_pNoPowerdown = check(QStringLiteral("Nicht abschalten"));
    m_pThresholdHeading = new QLineEdit(form);
    m_pCleanIECache = check(QStringLiteral("Browser-Cache leeren, wenn Speicher knapp"));
    m_pCloseByTitleBar = check(QStringLiteral("OK in der Titelleiste beendet"));

    layout->addRow(m_pSpeedVol);
    layout->addRow(QStringLiteral("Minimum"), m_pMinVol);
    layout->addRow(QStringLiteral("Maximum"), m_pMaxVol);
    layout->addRow(QStringLiteral("Maximum ab"), m_pMaxVolSpeed);
    layout->addRow(m_pDynaSound);
    layout->addRow(QStringLiteral("Gewicht"), m_pDynaSoundValue);
    layout->addRow(m_pAutoStart);
    layout->addRow(QStringLiteral("Programm"), autoStartRow);
    layout->addRow(m_pPostNavi);
    layout->addRow(m_pLowPriority);
    layout->addRow(m_pSetSystemTime);
    layout->addRow(m_pNoPowerdown);
    layout->addRow(QStringLiteral("Kurs ab (km/h)"), m_pThresholdHeading);
    layout->addRow(m_pCleanIECache);
    layout->addRow(m_pCloseByTitleBar);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(form);
    (new QVBoxLayout(this))->addWidget(scroll);
    Load();

    for (QCheckBox* box : {m_pSpeedVol, m_pDynaSound})
        connect(box, &QCheckBox::toggled, this, &CSettingsPage::WriteVolume);
    for (QSpinBox* box : {m_pMinVol, m_pMaxVol, m_pMaxVolSpeed, m_pDynaSoundValue})
        connect(box, &QSpinBox::valueChanged, this, &CSettingsPage::WriteVolume);
    connect(m_pAutoStart, &QCheckBox::toggled, this, &CSettingsPage::WriteAutoStart);
    connect(m_pAutoStartPath, &QLineEdit::editingFinished, this, &CSettingsPage::WriteAutoStart);
    connect(browse, &QPushButton::clicked, this, &CSettingsPage::BrowseAutoStart);
    const auto writeFlag = [this](QCheckBox* box, const Setting<bool>& setting) {
        connect(box, &QCheckBox::toggled, this, [this, pSetting = &setting](bool on) {
            CRegistryKey key;
            if (!m_bLoading) writeSetting(key, *pSetting, on);
        });
    };
    writeFlag(m_pPostNavi, ShellSettings::kPostNavi);
    writeFlag(m_pLowPriority, ShellSettings::kLowPriority);
    writeFlag(m_pSetSystemTime, GpsSettings::kSetSystemTime);
    writeFlag(m_pNoPowerdown, ShellSettings::kNoPowerdown);
    writeFlag(m_pCleanIECache, ShellSettings::kCleanIECache);
    writeFlag(m_pCloseByTitleBar, ShellSettings::kCloseByTitleBar);
    connect(m_pNoPowerdown, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_bLoading && m_actions.noPowerdownChanged) m_actions.noPowerdownChanged(on);
    });
    connect(m_pThresholdHeading, &QLineEdit::editingFinished, this, [this] {
        const float threshold = float(ValueText::wcstod(m_pThresholdHeading->text().replace(',', '.')));
        CRegistryKey key;
        writeSetting(key, GpsSettings::kThresholdHeading, threshold, kThresholdDecimals);
        m_pThresholdHeading->setText(QString::number(threshold, 'f', kThresholdDecimals));
    });
}

void CSettingsPage::Load() {
    m_bLoading = true;
    CRegistryKey key;
    const VolumeSettings volume = VolumeSettings::read(key);
    m_pSpeedVol->setChecked(volume.m_bSpeedVol);
    m_pMinVol->setValue(volume.m_nMinVol);
    m_pMaxVol->setValue(volume.m_nMaxVol);
    m_pMaxVolSpeed->setValue(volume.m_nMaxVolSpeed);
    m_pDynaSound->setChecked(volume.m_nDynaSound != 0);
    m_pDynaSoundValue->setValue(volume.m_nDynaSound != 0 ? volume.m_nDynaSound : kDynaSoundShownWhenOff);
    const QString autoStart = readSetting(key, ShellSettings::kAutoStart);
    m_pAutoStart->setChecked(!autoStart.isEmpty());
    m_pAutoStartPath->setText(autoStart);
    m_pPostNavi->setChecked(readSetting(key, ShellSettings::kPostNavi));
    m_pLowPriority->setChecked(readSetting(key, ShellSettings::kLowPriority));
    m_pSetSystemTime->setChecked(readSetting(key, GpsSettings::kSetSystemTime));
    m_pNoPowerdown->setChecked(readSetting(key, ShellSettings::kNoPowerdown));
    m_pThresholdHeading->setText(
        QString::number(readSetting(key, GpsSettings::kThresholdHeading), 'f', kThresholdDecimals));
    m_pCleanIECache->setChecked(readSetting(key, ShellSettings::kCleanIECache));
    m_pCloseByTitleBar->setChecked(readSetting(key, ShellSettings::kCloseByTitleBar));
    m_bLoading = false;
}

void CSettingsPage::WriteVolume() {
    if (m_bLoading) return;
    CRegistryKey key;
    writeSetting(key, SoundSettings::kSpeedVol, m_pSpeedVol->isChecked());
    writeSetting(key, SoundSettings::kMinVol, uint8_t(m_pMinVol->value()));
    writeSetting(key, SoundSettings::kMaxVol, uint8_t(m_pMaxVol->value()));
    writeSetting(key, SoundSettings::kMaxVolSpeed, m_pMaxVolSpeed->value());
    writeSetting(key, SoundSettings::kDynaSound,
                 uint8_t(m_pDynaSound->isChecked() ? m_pDynaSoundValue->value() : 0));
    if (m_actions.volumeSettingsChanged) m_actions.volumeSettingsChanged();
}

void CSettingsPage::WriteAutoStart() {
    if (m_bLoading) return;
    CRegistryKey key;
    writeSetting(key, ShellSettings::kAutoStart,
                 m_pAutoStart->isChecked() ? m_pAutoStartPath->text() : QString());
}

void CSettingsPage::BrowseAutoStart() {
    const QString file =
        QFileDialog::getOpenFileName(this, QStringLiteral("Programm"), m_pAutoStartPath->text());
    if (file.isEmpty()) return;
    m_pAutoStartPath->setText(file);
    m_pAutoStart->setChecked(true);
    WriteAutoStart();
}
