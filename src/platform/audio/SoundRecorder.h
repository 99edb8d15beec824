#pragma once

#include <QAudioFormat>
#include <QByteArray>
#include <QObject>
#include <QString>
#include <memory>

class QAudioSource;
class QIODevice;

// Records one sound ("Sound aufnehmen"): samples from an input device, kept as 16-bit mono at
// the input's rate, with a level (0..255, NoiseLevel's scale) every tenth of a second; saved as a
// WAV file. The input is the default audio input, or any device that delivers samples.
class SoundRecorder : public QObject {
    Q_OBJECT
public:
    explicit SoundRecorder(QObject* parent = nullptr);
    ~SoundRecorder() override;

    // Whether the system has an audio input at all.
    static bool inputAvailable();
    // Starts on the default input; empty text on success, else one line for the user.
    QString startDefaultInput();
    // Starts on `input` delivering samples of `format` (the boundary where any source plugs in).
    void start(QIODevice* input, const QAudioFormat& format);
    void stop();
    bool recording() const { return m_pInput != nullptr; }

    const QByteArray& samples() const { return m_samples; } // 16-bit little-endian mono
    int sampleRate() const { return m_format.sampleRate(); }
    double seconds() const;
    QString save(const QString& path) const;

Q_SIGNALS:
    void levelChanged(int level);

private:
    void readSamples();

    std::unique_ptr<QAudioSource> m_source;
    QIODevice* m_pInput = nullptr;
    QAudioFormat m_format;
    QByteArray m_partialFrame;
    QByteArray m_samples;
    double m_dSumOfSquares = 0;
    int m_nBlockSamples = 0;
};
