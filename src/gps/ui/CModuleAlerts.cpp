#include "gps/ui/CModuleAlerts.h"

#include "gps/sound/SoundSettings.h"
#include "gps/ui/CRecordSound.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "shell/ui/ScrollingContent.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

struct AlertSettings {
    const char* title;
    const Setting<bool>& flag;
    const Setting<const char*>& file;
};

const AlertSettings kAlerts[3] = {
    {"Kein GPS-Fix", SoundSettings::kNoFixSound, SoundSettings::kNoFixSoundWav},
    {"GPS-Fix wieder da", SoundSettings::kSignalSound, SoundSettings::kSignalSoundWav},
    {"Keine Daten vom GPS", SoundSettings::kNoDataSound, SoundSettings::kNoDataSoundWav},
};

} // namespace

CModuleAlerts::CModuleAlerts(Actions actions, QWidget* parent)
    : CPageView(parent), m_actions(std::move(actions)) {
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    CRegistryKey key;
    int row = 0;
    for (int alert = 0; alert < 3; ++alert) {
        AlertRow& r = m_rows[alert];
        r.pOn = new QCheckBox(QString::fromUtf8(kAlerts[alert].title), content);
        r.pOn->setChecked(readSetting(key, kAlerts[alert].flag));
        r.pFile = new QLineEdit(readSetting(key, kAlerts[alert].file), content);
        auto* choose = new QPushButton(QStringLiteral("..."), content);
        choose->setToolTip(QStringLiteral("WAV-Datei wählen"));
        choose->setFixedWidth(48); // beside the file name, which needs the room
        auto* test = new QPushButton(QStringLiteral("Test"), content);
        auto* record = new QPushButton(QStringLiteral("Aufnahme"), content);
        // Three rows, each as wide as the page: a handheld has no room for a path beside a switch.
        auto* fileRow = new QHBoxLayout;
        fileRow->addWidget(r.pFile, 1);
        fileRow->addWidget(choose);
        grid->addWidget(r.pOn, row++, 0, 1, 2);
        grid->addLayout(fileRow, row++, 0, 1, 2);
        grid->addWidget(test, row, 0);
        grid->addWidget(record, row++, 1);
        connect(record, &QPushButton::clicked, this, [this, alert] { RecordSound(alert); });
        connect(r.pOn, &QCheckBox::toggled, this, &CModuleAlerts::Store);
        connect(r.pFile, &QLineEdit::editingFinished, this, &CModuleAlerts::Store);
        connect(choose, &QPushButton::clicked, this, [this, alert] { Choose(alert); });
        connect(test, &QPushButton::clicked, this, [this, alert] {
            if (m_actions.playFile)
                m_actions.playFile(DeviceRoot::current().hostPath(m_rows[alert].pFile->text()));
        });
    }
    m_pSpeedSounds = new QCheckBox(QStringLiteral("Geschwindigkeits-Sounds"), content);
    m_pSpeedSounds->setChecked(readSetting(key, SoundSettings::kPlaySpeedSound));
    m_pSpeedFolder = new QLineEdit(readSetting(key, SoundSettings::kSpeedWaves), content);
    auto* recordSpeed = new QPushButton(QStringLiteral("Sound aufnehmen"), content);
    grid->addWidget(m_pSpeedSounds, row++, 0, 1, 2);
    grid->addWidget(m_pSpeedFolder, row++, 0, 1, 2);
    grid->addWidget(recordSpeed, row++, 0, 1, 2);
    connect(m_pSpeedSounds, &QCheckBox::toggled, this, &CModuleAlerts::Store);
    connect(m_pSpeedFolder, &QLineEdit::editingFinished, this, &CModuleAlerts::Store);
    connect(recordSpeed, &QPushButton::clicked, this, [this] { RecordSound(-1); });
    m_pSoundOn = new QCheckBox(QStringLiteral("Sound an/aus"), content);
    m_pSoundOn->setChecked(!m_actions.isSoundOn || m_actions.isSoundOn());
    connect(m_pSoundOn, &QCheckBox::toggled, this, [this](bool bOn) {
        if (m_actions.setSoundOn) m_actions.setSoundOn(bOn);
    });
    grid->addWidget(m_pSoundOn, row++, 0, 1, 2);
    grid->setRowStretch(row, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    setScrollingContent(this, content);
}

void CModuleAlerts::Store() {
    CRegistryKey key;
    for (int alert = 0; alert < 3; ++alert) {
        writeSetting(key, kAlerts[alert].flag, m_rows[alert].pOn->isChecked());
        writeSetting(key, kAlerts[alert].file, m_rows[alert].pFile->text());
    }
    writeSetting(key, SoundSettings::kPlaySpeedSound, m_pSpeedSounds->isChecked());
    writeSetting(key, SoundSettings::kSpeedWaves, m_pSpeedFolder->text());
    if (m_actions.alertsChanged) m_actions.alertsChanged();
    if (m_actions.speedSoundsChanged) m_actions.speedSoundsChanged();
}

void CModuleAlerts::RecordSound(int alert) {
    Store(); // the dialog saves under the names shown
    const QString file = alert < 0 ? QString() : DeviceRoot::current().hostPath(m_rows[alert].pFile->text());
    auto* dialog = new CRecordSound(file, {{}, {}, m_actions.playFile}, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &CRecordSound::saved, this, [this, alert] {
        // A sound just recorded for an alert is meant to be heard.
        if (alert >= 0) m_rows[alert].pOn->setChecked(true);
        Store();
    });
    dialog->open();
}

void CModuleAlerts::Choose(int alert) {
    QLineEdit* edit = m_rows[alert].pFile;
    const QString start = QFileInfo(DeviceRoot::current().hostPath(edit->text())).absolutePath();
    const QString file = QFileDialog::getOpenFileName(this, QString::fromUtf8(kAlerts[alert].title), start,
                                                      QStringLiteral("WAV-Dateien (*.wav)"));
    if (file.isEmpty()) return;
    edit->setText(file);
    Store();
}
