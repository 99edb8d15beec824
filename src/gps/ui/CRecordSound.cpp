#include "gps/ui/CRecordSound.h"

#include "gps/sound/RecordedSoundFile.h"
#include "gps/sound/SpeedSoundTable.h"
#include "platform/DeviceRoot.h"
#include "platform/audio/SoundRecorder.h"
#include "settings/CRegistryKey.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>

CRecordSound::CRecordSound(const QString& hostPath, Services services, QWidget* parent)
    : QDialog(parent), m_services(std::move(services)), m_strHostPath(hostPath) {
    setWindowTitle(QStringLiteral("Sound aufnehmen"));
    auto* grid = new QGridLayout(this);
    m_pStatus = new QLabel(this);
    m_pStatus->setWordWrap(true);
    auto* close = new QPushButton(QStringLiteral("Schließen"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    const bool bInput = m_services.hasInput ? m_services.hasInput() : SoundRecorder::inputAvailable();
    if (!bInput) {
        m_pStatus->setText(QStringLiteral("Kein Audio-Eingang vorhanden: Aufnehmen ist nicht möglich."));
        grid->addWidget(m_pStatus, 0, 0);
        grid->setRowStretch(1, 1); // texts at the top, the button at the bottom
        grid->addWidget(close, 2, 0);
        return;
    }
    m_pRecorder = new SoundRecorder(this);
    int row = 0;
    if (m_strHostPath.isEmpty()) {
        m_pSpeed = new QSpinBox(this);
        m_pSpeed->setRange(0, SpeedSoundTable::kMaxSpeedKmh);
        m_pSpeed->setSuffix(QStringLiteral(" km/h"));
        grid->addWidget(new QLabel(QStringLiteral("Ab Geschwindigkeit"), this), row++, 0, 1, 2);
        grid->addWidget(m_pSpeed, row++, 0, 1, 2);
        connect(m_pSpeed, &QSpinBox::valueChanged, this, &CRecordSound::ShowState);
    }
    m_pTarget = new QLabel(this);
    m_pTarget->setWordWrap(true);
    m_pTarget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long path must not widen it
    grid->addWidget(m_pTarget, row++, 0, 1, 2);
    m_pLevel = new QProgressBar(this);
    m_pLevel->setRange(0, 255);
    m_pLevel->setTextVisible(false);
    grid->addWidget(m_pLevel, row++, 0, 1, 2);
    grid->addWidget(m_pStatus, row++, 0, 1, 2);
    grid->setRowStretch(row++, 1);
    m_pRecord = new QPushButton(QStringLiteral("Aufnahme"), this);
    m_pStop = new QPushButton(QStringLiteral("Stop"), this);
    m_pPlay = new QPushButton(QStringLiteral("Abspielen"), this);
    m_pSave = new QPushButton(QStringLiteral("Speichern"), this);
    grid->addWidget(m_pRecord, row, 0);
    grid->addWidget(m_pStop, row++, 1);
    grid->addWidget(m_pPlay, row, 0);
    grid->addWidget(m_pSave, row++, 1);
    grid->addWidget(close, row++, 0, 1, 2);
    connect(m_pRecord, &QPushButton::clicked, this, &CRecordSound::Record);
    connect(m_pStop, &QPushButton::clicked, this, &CRecordSound::Stop);
    connect(m_pPlay, &QPushButton::clicked, this, &CRecordSound::Play);
    connect(m_pSave, &QPushButton::clicked, this, &CRecordSound::Save);
    connect(m_pRecorder, &SoundRecorder::levelChanged, this, [this](int level) {
        m_pLevel->setValue(level);
        m_pStatus->setText(QStringLiteral("Aufnahme: %1 s").arg(m_pRecorder->seconds(), 0, 'f', 1));
    });
    ShowState();
}

CRecordSound::~CRecordSound() {
    if (m_pRecorder) m_pRecorder->stop();
}

QString CRecordSound::Destination() const {
    if (!m_pSpeed) return m_strHostPath;
    CRegistryKey key;
    return RecordedSoundFile::speedBand(m_pSpeed->value(), key, DeviceRoot::current());
}

QString CRecordSound::StatusText() const {
    return m_pStatus->text();
}

void CRecordSound::Record() {
    if (!m_pRecorder || m_pRecorder->recording()) return;
    const QString error =
        m_services.startInput ? m_services.startInput(*m_pRecorder) : m_pRecorder->startDefaultInput();
    m_pStatus->setText(error.isEmpty() ? QStringLiteral("Aufnahme: 0.0 s") : error);
    ShowState();
}

void CRecordSound::Stop() {
    if (!m_pRecorder || !m_pRecorder->recording()) return;
    m_pRecorder->stop();
    m_pLevel->setValue(0);
    m_pStatus->setText(QStringLiteral("Aufgenommen: %1 s").arg(m_pRecorder->seconds(), 0, 'f', 1));
    ShowState();
}

void CRecordSound::Play() {
    if (!m_pRecorder || m_pRecorder->samples().isEmpty() || !m_playback.isValid()) return;
    // A file of its own: the sound output plays files, and the destination stays untouched until saved.
    const QString file = m_playback.filePath(QStringLiteral("recording.wav"));
    const QString error = m_pRecorder->save(file);
    if (!error.isEmpty())
        m_pStatus->setText(error);
    else if (m_services.playFile)
        m_services.playFile(file);
}

bool CRecordSound::Save() {
    if (!m_pRecorder) return false;
    Stop();
    const QString path = Destination();
    const QString error = RecordedSoundFile::save(path, m_pRecorder->samples(), m_pRecorder->sampleRate());
    if (!error.isEmpty()) {
        m_pStatus->setText(error);
        return false;
    }
    m_pStatus->setText(QStringLiteral("Gespeichert: %1").arg(QFileInfo(path).fileName()));
    Q_EMIT saved(path);
    return true;
}

void CRecordSound::ShowState() {
    m_pTarget->setText(QStringLiteral("Datei: %1").arg(Destination()));
    const bool bRecording = m_pRecorder->recording();
    const bool bRecorded = !bRecording && !m_pRecorder->samples().isEmpty();
    m_pRecord->setEnabled(!bRecording);
    m_pStop->setEnabled(bRecording);
    m_pPlay->setEnabled(bRecorded && bool(m_services.playFile));
    m_pSave->setEnabled(bRecorded && !Destination().isEmpty());
}
