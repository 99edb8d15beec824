#include "platform/audio/QtSoundOutput.h"

#include "platform/ToneSynth.h"
#include "platform/audio/AudioNotice.h"

#include <QAudioDevice>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <algorithm>

namespace {

const char* kRemoveAfterwards = "tarvikRemoveAfterwards";

// The first device query connects to the sound server; Qt's own warnings when there is none would
// add lines of their own to ours, so they are held back during that query.
bool hasOutputDevice() {
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const bool bDevice = !QMediaDevices::defaultAudioOutput().isNull();
    qInstallMessageHandler(previous);
    return bDevice;
}

} // namespace

QtSoundOutput::QtSoundOutput(QObject* parent) : QObject(parent), m_bDevice(hasOutputDevice()) {
    if (!m_bDevice) noteMissingAudioOnce("no audio output device; sounds are silent");
}

QtSoundOutput::~QtSoundOutput() {
    for (QSoundEffect* effect : std::as_const(m_playing))
        effect->stop();
}

float QtSoundOutput::linearVolume(uint32_t volume) {
    return float(std::max(volume & 0xFFFF, volume >> 16)) / 65535.0f;
}

void QtSoundOutput::playFile(const QString& hostPath) {
    if (m_bDevice && QFileInfo(hostPath).isFile()) start(hostPath, false);
}

void QtSoundOutput::playTones(const QList<Tone>& tones, uint16_t amplitude) {
    if (!m_bDevice || tones.isEmpty() || !m_toneFolder.isValid()) return;
    const QString path = m_toneFolder.filePath(QStringLiteral("tone-%1.wav").arg(++m_nToneFiles));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    const bool bWritten = file.write(ToneSynth::wavFile(ToneSynth::renderPcm16(tones, amplitude))) > 0;
    file.close();
    if (bWritten)
        start(path, true);
    else
        QFile::remove(path);
}

void QtSoundOutput::setVolume(uint32_t volume) {
    m_nVolume = volume;
    for (QSoundEffect* effect : std::as_const(m_playing))
        effect->setVolume(linearVolume(volume));
}

void QtSoundOutput::start(const QString& hostPath, bool bRemoveAfterwards) {
    if (m_playing.size() >= kMaxPlaying) finish(m_playing.first());
    auto* effect = new QSoundEffect(QMediaDevices::defaultAudioOutput(), this);
    effect->setProperty(kRemoveAfterwards, bRemoveAfterwards);
    m_playing.append(effect);
    connect(effect, &QSoundEffect::playingChanged, this, [this, effect] {
        if (!effect->isPlaying()) finish(effect);
    });
    connect(effect, &QSoundEffect::statusChanged, this, [this, effect] {
        if (effect->status() == QSoundEffect::Error) finish(effect);
    });
    effect->setVolume(linearVolume(m_nVolume));
    effect->setSource(QUrl::fromLocalFile(hostPath));
    effect->play();
}

void QtSoundOutput::finish(QSoundEffect* effect) {
    if (!m_playing.removeOne(effect)) return;
    effect->disconnect(this);
    effect->stop();
    if (effect->property(kRemoveAfterwards).toBool()) QFile::remove(effect->source().toLocalFile());
    effect->deleteLater();
}
