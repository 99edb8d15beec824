#include "gps/ui/CSourceSettingsPage.h"

#include "gps/RecordingSettings.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "settings/CRegistryKey.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

const QStringList kBaudRates = {"4800", "9600", "19200", "38400", "57600", "115200"};
// "LogDelay" choices: seconds between two logged sentences of a type.
const QList<std::pair<const char*, int>> kLogDelays = {
    {"immer", 0}, {"5", 5},     {"10", 10},   {"30", 30},
    {"60", 60},   {"300", 300}, {"600", 600}, {"nichts", RecordingSettings::kLogDelayOff}};
const QStringList kSentences = {"$GPGGA", "$GPRMC", "$GPGSA", "$GPGSV", "$GPVTG", "$GPGLL"};
constexpr int kRawLines = 200;

QSpinBox* spinBox(int minimum, int maximum, const QString& suffix, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setRange(minimum, maximum);
    box->setSuffix(suffix);
    return box;
}

} // namespace

CSourceSettingsPage::CSourceSettingsPage(std::function<void()> apply, QWidget* parent)
    : CPageView(parent), m_apply(std::move(apply)) {
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(BuildForm());
    auto* applyButton = new QPushButton(QStringLiteral("Übernehmen"), this);
    applyButton->setMinimumHeight(48);
    connect(applyButton, &QPushButton::clicked, this, &CSourceSettingsPage::Apply);
    m_pRaw = new QPlainTextEdit(this);
    m_pRaw->setReadOnly(true);
    m_pRaw->setMaximumBlockCount(kRawLines);
    m_pRaw->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll, 3);
    layout->addWidget(applyButton);
    layout->addWidget(m_pRaw, 1);
    Load();
}

QWidget* CSourceSettingsPage::BuildForm() {
    auto* form = new QWidget;
    auto* layout = new QFormLayout(form);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_pSource = new QComboBox(form);
    m_pSource->setMinimumHeight(34);
    for (int i = 0; i < SourceTable::kCount; ++i)
        m_pSource->addItem(SourceTable::name(i), i);
    connect(m_pSource, &QComboBox::currentIndexChanged, this, &CSourceSettingsPage::ShowDeviceOfSelectedPort);
    m_pDevice = new QLineEdit(form);
    m_pGpsdHost = new QLineEdit(form);
    m_pTcpHost = new QLineEdit(form);
    m_pAcceptAllTalkers =
        new QCheckBox(QStringLiteral("Alle Talker ($GN, $GL, $GA, $GB, $IN) als $GP lesen"), form);
    m_pSpeed = new QComboBox(form);
    m_pSpeed->setEditable(true);
    m_pSpeed->setMinimumHeight(34);
    m_pSpeed->addItems(kBaudRates);
    m_pFile = new QLineEdit(form);
    auto* browse = new QPushButton(QStringLiteral("..."), form);
    connect(browse, &QPushButton::clicked, this, &CSourceSettingsPage::ChooseFile);
    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(m_pFile);
    fileRow->addWidget(browse);
    m_pSimulationSpeed = spinBox(1, 1000, QStringLiteral(" x"), form);
    m_pLogDelay = new QComboBox(form);
    m_pLogDelay->setMinimumHeight(34);
    for (const auto& [text, seconds] : kLogDelays)
        m_pLogDelay->addItem(QString::fromUtf8(text), seconds);
    auto* types = new QGridLayout;
    for (const QString& sentence : kSentences) {
        auto* box = new QCheckBox(sentence.mid(3), form);
        box->setProperty("sentence", sentence);
        types->addWidget(box, int(m_logTypes.size()) / 3, int(m_logTypes.size()) % 3);
        m_logTypes << box;
    }
    m_logTypes.first()->setEnabled(false); // GGA is always logged
    m_pLogDirectory = new QLineEdit(form);
    m_pDelFilesOlder = spinBox(0, 3650, QStringLiteral(" Tage"), form);
    m_pAutoReconnect = spinBox(0, 3600, QStringLiteral(" s"), form);
    m_pMnPriority = new QCheckBox(QStringLiteral("Position des Navigationsprogramms bevorzugen"), form);

    layout->addRow(QStringLiteral("Quelle"), m_pSource);
    layout->addRow(QStringLiteral("Gerät"), m_pDevice);
    layout->addRow(QStringLiteral("gpsd"), m_pGpsdHost);
    layout->addRow(QStringLiteral("NMEA über TCP"), m_pTcpHost);
    layout->addRow(m_pAcceptAllTalkers);
    layout->addRow(QStringLiteral("Baudrate"), m_pSpeed);
    layout->addRow(QStringLiteral("Datei"), fileRow);
    layout->addRow(QStringLiteral("Simulation"), m_pSimulationSpeed);
    layout->addRow(QStringLiteral("Aufzeichnen"), m_pLogDelay);
    layout->addRow(QStringLiteral("Sätze"), types);
    layout->addRow(QStringLiteral("Verzeichnis"), m_pLogDirectory);
    layout->addRow(QStringLiteral("Löschen nach"), m_pDelFilesOlder);
    layout->addRow(QStringLiteral("Neu verbinden"), m_pAutoReconnect);
    layout->addRow(m_pMnPriority);
    return form;
}

void CSourceSettingsPage::Load() {
    CRegistryKey key;
    const int source = SourceTable::lookUp(readSetting(key, SourceSettings::kSource));
    m_pSource->setCurrentIndex(m_pSource->findData(source));
    ShowDeviceOfSelectedPort();
    m_pGpsdHost->setText(readSetting(key, SourceSettings::kGpsdHost));
    m_pTcpHost->setText(readSetting(key, SourceSettings::kNmeaTcpHost));
    m_pAcceptAllTalkers->setChecked(readSetting(key, SourceSettings::kAcceptAllTalkers));
    m_pSpeed->setCurrentText(readSetting(key, SourceSettings::kSpeed));
    m_pFile->setText(readSetting(key, SourceSettings::kFile));
    m_pSimulationSpeed->setValue(readSetting(key, SourceSettings::kSimulationSpeed));
    const int delayIndex = m_pLogDelay->findData(readSetting(key, RecordingSettings::kLogDelay));
    m_pLogDelay->setCurrentIndex(
        delayIndex >= 0 ? delayIndex : m_pLogDelay->findData(RecordingSettings::kLogDelay.m_default));
    const QStringList logged = readSetting(key, RecordingSettings::kLogType).split(',');
    for (QCheckBox* box : m_logTypes)
        box->setChecked(box == m_logTypes.first() || logged.contains(box->property("sentence").toString()));
    m_pLogDirectory->setText(readSetting(key, RecordingSettings::kLogDirectory));
    m_pDelFilesOlder->setValue(readSetting(key, RecordingSettings::kDelFilesOlder));
    m_pAutoReconnect->setValue(readSetting(key, SourceSettings::kAutoReconnect));
    m_pMnPriority->setChecked(readSetting(key, SourceSettings::kMnPriority));
}

void CSourceSettingsPage::ShowDeviceOfSelectedPort() {
    const int source = m_pSource->currentData().toInt();
    const bool serial = SourceTable::isSerialPort(source);
    m_pDevice->setEnabled(serial);
    CRegistryKey key;
    m_pDevice->setText(serial ? readSetting(key, SourceSettings::kPortDevices[source]) : QString());
}

void CSourceSettingsPage::ChooseFile() {
    const QString file =
        QFileDialog::getOpenFileName(this, QStringLiteral("NMEA-Datei"), m_pFile->text(),
                                     QStringLiteral("NMEA (*.txt *.nmea *.log);;Alle Dateien (*)"));
    if (!file.isEmpty()) m_pFile->setText(file);
}

void CSourceSettingsPage::Apply() {
    CRegistryKey key;
    const int source = m_pSource->currentData().toInt();
    writeSetting(key, SourceSettings::kSource, SourceTable::name(source));
    if (SourceTable::isSerialPort(source))
        writeSetting(key, SourceSettings::kPortDevices[source], m_pDevice->text().trimmed());
    writeSetting(key, SourceSettings::kGpsdHost, m_pGpsdHost->text().trimmed());
    writeSetting(key, SourceSettings::kNmeaTcpHost, m_pTcpHost->text().trimmed());
    writeSetting(key, SourceSettings::kAcceptAllTalkers, m_pAcceptAllTalkers->isChecked());
    writeSetting(key, SourceSettings::kSpeed, m_pSpeed->currentText().trimmed());
    writeSetting(key, SourceSettings::kFile, m_pFile->text());
    writeSetting(key, SourceSettings::kSimulationSpeed, m_pSimulationSpeed->value());
    writeSetting(key, RecordingSettings::kLogDelay, m_pLogDelay->currentData().toInt());
    // Types the page has no box for (e.g. "$GPZDA", typed in by hand) stay as they were.
    QStringList logged;
    QStringList offered;
    for (QCheckBox* box : m_logTypes) {
        offered << box->property("sentence").toString();
        if (box->isChecked()) logged << offered.last();
    }
    for (const QString& type : readSetting(key, RecordingSettings::kLogType).split(',', Qt::SkipEmptyParts))
        if (!offered.contains(type) && !logged.contains(type)) logged << type;
    writeSetting(key, RecordingSettings::kLogType, logged.join(','));
    writeSetting(key, RecordingSettings::kLogDirectory, m_pLogDirectory->text());
    writeSetting(key, RecordingSettings::kDelFilesOlder, m_pDelFilesOlder->value());
    writeSetting(key, SourceSettings::kAutoReconnect, m_pAutoReconnect->value());
    writeSetting(key, SourceSettings::kMnPriority, m_pMnPriority->isChecked());
    m_pRaw->clear();
    if (m_apply) m_apply();
}

void CSourceSettingsPage::OnRawSentence(const char* pLine, int nLength) {
    if (!pLine) {
        m_pRaw->clear();
        return;
    }
    m_pRaw->appendPlainText(QString::fromLatin1(pLine, nLength).trimmed());
}
