#pragma once

#include "platform/NoiseMeter.h"
#include "platform/SoundOutput.h"

#include <QFileInfo>
#include <QStringList>

// A sound output that keeps, in order, the file names it was asked to play and the volumes it was set to.
class RecordingSound : public SoundOutput {
public:
    QStringList played; // file names without folder
    QList<uint32_t> volumes;
    void playFile(const QString& hostPath) override { played << QFileInfo(hostPath).fileName(); }
    void playTones(const QList<Tone>& tones, uint16_t) override {
        played << QString("tones%1").arg(tones.size());
    }
    void setVolume(uint32_t volume) override { volumes << volume; }
    uint32_t volume() const override { return volumes.isEmpty() ? 0xFFFFFFFF : volumes.last(); }
};

// A noise meter with a level set by the test.
class FixedNoise : public NoiseMeter {
public:
    int nLevel = 0;
    bool bRunning = false;
    void start() override { bRunning = true; }
    void stop() override { bRunning = false; }
    int level() const override { return bRunning ? nLevel : 0; }
};
