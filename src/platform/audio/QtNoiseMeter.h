#pragma once

#include "platform/NoiseMeter.h"
#include "platform/audio/NoiseLevel.h"

#include <QAudioFormat>
#include <QByteArray>
#include <QObject>
#include <memory>

class QAudioSource;
class QIODevice;

// NoiseMeter on the default audio input: Qt delivers the samples asynchronously on this object's
// thread, and every quarter second of them becomes the new level. Without an input device the level
// stays 0 (one line on stderr). Stops cleanly when destroyed.
class QtNoiseMeter final : public QObject, public NoiseMeter {
    Q_OBJECT
public:
    explicit QtNoiseMeter(QObject* parent = nullptr);
    ~QtNoiseMeter() override;

    void start() override;
    void stop() override;
    int level() const override { return m_nLevel; }

private:
    void readSamples();

    std::unique_ptr<QAudioSource> m_source;
    QIODevice* m_pInput = nullptr; // owned by m_source
    QAudioFormat m_format;
    QByteArray m_partialFrame;
    NoiseLevel m_block;
    int m_nLevel = 0;
};
