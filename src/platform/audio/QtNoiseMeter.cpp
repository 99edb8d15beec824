#include "platform/audio/QtNoiseMeter.h"

#include "platform/audio/AudioNotice.h"

#include <QAudioDevice>
#include <QAudioSource>
#include <QMediaDevices>

QtNoiseMeter::QtNoiseMeter(QObject* parent) : QObject(parent) {}

QtNoiseMeter::~QtNoiseMeter() {
    stop();
}

void QtNoiseMeter::start() {
    if (m_source) return;
    const QAudioDevice device = QMediaDevices::defaultAudioInput();
    if (device.isNull()) {
        noteMissingAudioOnce("no audio input device; the noise level stays 0");
        return;
    }
    QAudioFormat format;
    format.setSampleRate(16000);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    m_format = device.isFormatSupported(format) ? format : device.preferredFormat();
    m_source = std::make_unique<QAudioSource>(device, m_format);
    m_pInput = m_source->start();
    if (!m_pInput || m_source->error() != QAudio::NoError) {
        stop();
        return;
    }
    connect(m_pInput, &QIODevice::readyRead, this, &QtNoiseMeter::readSamples);
}

void QtNoiseMeter::stop() {
    if (m_source) m_source->stop();
    m_source.reset();
    m_pInput = nullptr;
    m_partialFrame.clear();
    m_block.reset();
    m_nLevel = 0;
}

void QtNoiseMeter::readSamples() {
    if (!m_pInput) return;
    m_partialFrame.append(m_pInput->readAll());
    const int frameBytes = m_format.bytesPerFrame();
    if (frameBytes <= 0) return;
    const int frames = int(m_partialFrame.size()) / frameBytes;
    for (int i = 0; i < frames; ++i) {
        m_block.add(m_format.normalizedSampleValue(m_partialFrame.constData() + i * frameBytes));
        if (m_block.samples() >= m_format.sampleRate() / 4) {
            m_nLevel = m_block.level();
            m_block.reset();
        }
    }
    m_partialFrame.remove(0, frames * frameBytes);
}
