#pragma once

#include <QDialog>
#include <QTemporaryDir>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;
class SoundRecorder;

// The dialog "Sound aufnehmen": records from the audio input with a level meter, stops, plays the
// recording back and saves it as a 16-bit mono WAV file, either under an alert's file name or as
// "<n>.wav" in "SpeedWaves" for the speed band typed in. Without an audio input it says so in one
// line and offers nothing but closing.
class CRecordSound : public QDialog {
    Q_OBJECT
public:
    struct Services {
        std::function<bool()> hasInput;                    // empty: the system's default input
        std::function<QString(SoundRecorder&)> startInput; // empty text on success; empty: default input
        std::function<void(const QString& hostPath)> playFile;
    };
    // `hostPath`: the alert's file; empty: a speed band's file, chosen in the dialog.
    CRecordSound(const QString& hostPath, Services services, QWidget* parent = nullptr);
    ~CRecordSound() override;

    // The file the recording is saved to, as things stand.
    QString Destination() const;
    QString StatusText() const;
    void Record();
    void Stop();
    void Play();
    // Saves and emits `saved`; false (the reason shown) when nothing was recorded or writing failed.
    bool Save();

Q_SIGNALS:
    void saved(const QString& hostPath);

private:
    void ShowState();

    Services m_services;
    QString m_strHostPath;
    SoundRecorder* m_pRecorder = nullptr;
    QTemporaryDir m_playback;
    QSpinBox* m_pSpeed = nullptr;
    QLabel* m_pTarget = nullptr;
    QProgressBar* m_pLevel = nullptr;
    QLabel* m_pStatus;
    QPushButton* m_pRecord = nullptr;
    QPushButton* m_pStop = nullptr;
    QPushButton* m_pPlay = nullptr;
    QPushButton* m_pSave = nullptr;
};
