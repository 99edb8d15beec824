#pragma once

#include "platform/SoundOutput.h"

#include <QList>
#include <QObject>
#include <QTemporaryDir>

class QSoundEffect;

// SoundOutput on Qt Multimedia: every file or tone sequence plays in a sound effect of its own, so
// sounds overlap instead of cutting each other off. Tones are rendered to WAV files in a private
// temporary folder. Without an output device (or a sound server) everything is silent; one line
// on stderr says so. Lives on a thread with an event loop (the UI thread).
class QtSoundOutput final : public QObject, public SoundOutput {
    Q_OBJECT
public:
    static constexpr int kMaxPlaying = 16; // beyond it the oldest sound is stopped

    explicit QtSoundOutput(QObject* parent = nullptr);
    ~QtSoundOutput() override;

    int playingCount() const { return int(m_playing.size()); }

    void playFile(const QString& hostPath) override;
    void playTones(const QList<Tone>& tones, uint16_t amplitude) override;
    void setVolume(uint32_t volume) override;
    uint32_t volume() const override { return m_nVolume; }
    // The louder channel of `volume` as Qt's linear volume 0..1.
    static float linearVolume(uint32_t volume);

private:
    void start(const QString& hostPath, bool bRemoveAfterwards);
    void finish(QSoundEffect* effect);

    bool m_bDevice = false;
    uint32_t m_nVolume = 0xFFFFFFFF;
    QTemporaryDir m_toneFolder;
    int m_nToneFiles = 0;
    QList<QSoundEffect*> m_playing; // owned through the QObject tree
};
