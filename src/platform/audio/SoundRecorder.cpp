#include "platform/audio/SoundRecorder.h"

#include "platform/WavFile.h"
#include "platform/audio/NoiseLevel.h"

#include <QAudioDevice>
#include <QAudioSource>
#include <QMediaDevices>
#include <QtEndian>
#include <algorithm>
#include <cmath>

SoundRecorder::SoundRecorder(QObject* parent) : QObject(parent) {}

SoundRecorder::~SoundRecorder() {
    stop();
}

bool SoundRecorder::inputAvailable() {
    return !QMediaDevices::defaultAudioInput().isNull();
}

QString SoundRecorder::startDefaultInput() {
    const QAudioDevice device = QMediaDevices::defaultAudioInput();
    if (device.isNull()) return QStringLiteral("no audio input device");
    QAudioFormat format;
    format.setSampleRate(22050);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    if (!device.isFormatSupported(format)) format = device.preferredFormat();
    m_source = std::make_unique<QAudioSource>(device, format);
    QIODevice* input = m_source->start();
    if (!input || m_source->error() != QAudio::NoError) {
        m_source.reset();
        return QStringLiteral("the audio input cannot be opened");
    }
    start(input, format);
    return {};
}

void SoundRecorder::start(QIODevice* input, const QAudioFormat& format) {
    m_pInput = input;
    m_format = format;
    m_samples.clear();
    m_partialFrame.clear();
    m_dSumOfSquares = 0;
    m_nBlockSamples = 0;
    connect(input, &QIODevice::readyRead, this, &SoundRecorder::readSamples);
}

void SoundRecorder::stop() {
    if (m_pInput) {
        readSamples();
        disconnect(m_pInput, nullptr, this, nullptr);
    }
    if (m_source) m_source->stop();
    m_source.reset();
    m_pInput = nullptr;
}

double SoundRecorder::seconds() const {
    return m_format.sampleRate() > 0 ? double(m_samples.size() / 2) / m_format.sampleRate() : 0;
}

QString SoundRecorder::save(const QString& path) const {
    return WavFile::writeMono16(path, m_samples, m_format.sampleRate());
}

void SoundRecorder::readSamples() {
    if (!m_pInput) return;
    m_partialFrame.append(m_pInput->readAll());
    const int frameBytes = m_format.bytesPerFrame();
    if (frameBytes <= 0) return;
    const int frames = int(m_partialFrame.size()) / frameBytes;
    NoiseLevel block;
    for (int i = 0; i < frames; ++i) {
        // The first channel of each frame: a sound for the speaker needs no stereo.
        const float value = m_format.normalizedSampleValue(m_partialFrame.constData() + i * frameBytes);
        const auto sample = int16_t(std::lround(std::clamp(value, -1.0f, 1.0f) * 32767.0f));
        char bytes[2];
        qToLittleEndian(sample, bytes);
        m_samples.append(bytes, 2);
        m_dSumOfSquares += double(value) * value;
        if (++m_nBlockSamples >= m_format.sampleRate() / 10) {
            block.reset();
            const float rms = float(std::sqrt(m_dSumOfSquares / m_nBlockSamples));
            block.add(rms);
            Q_EMIT levelChanged(block.level());
            m_dSumOfSquares = 0;
            m_nBlockSamples = 0;
        }
    }
    m_partialFrame.remove(0, qsizetype(frames) * frameBytes);
}
