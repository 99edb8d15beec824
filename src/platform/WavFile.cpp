#include "platform/WavFile.h"

#include <QFile>
#include <QSaveFile>
#include <QtEndian>
#include <algorithm>

namespace {

void appendLe32(QByteArray& out, uint32_t value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void appendLe16(QByteArray& out, uint16_t value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}

} // namespace

QByteArray WavFile::mono16(const QByteArray& samples, int rate) {
    QByteArray wav = "RIFF";
    appendLe32(wav, uint32_t(36 + samples.size()));
    wav += "WAVEfmt ";
    appendLe32(wav, 16);
    appendLe16(wav, 1); // PCM
    appendLe16(wav, 1); // mono
    appendLe32(wav, uint32_t(rate));
    appendLe32(wav, uint32_t(rate * 2));
    appendLe16(wav, 2);
    appendLe16(wav, 16);
    wav += "data";
    appendLe32(wav, uint32_t(samples.size()));
    return wav + samples;
}

QString WavFile::writeMono16(const QString& path, const QByteArray& samples, int rate) {
    const QByteArray wav = mono16(samples, rate);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(wav) != wav.size() || !file.commit())
        return file.errorString();
    return {};
}

QString WavFile::readInfo(const QString& path, Info& info) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return file.errorString();
    const QByteArray head = file.read(12);
    if (head.size() < 12 || !head.startsWith("RIFF") || head.mid(8, 4) != "WAVE")
        return QStringLiteral("not a WAV file");
    bool haveFormat = false;
    int blockAlign = 0;
    for (;;) {
        const QByteArray chunk = file.read(8);
        if (chunk.size() < 8) return QStringLiteral("no data chunk");
        const uint32_t size = qFromLittleEndian<uint32_t>(chunk.constData() + 4);
        if (chunk.startsWith("fmt ")) {
            const QByteArray format = file.read(size);
            if (size < 16 || format.size() < 16) return QStringLiteral("short format chunk");
            if (qFromLittleEndian<uint16_t>(format.constData()) != 1) return QStringLiteral("not PCM");
            info.m_nChannels = qFromLittleEndian<uint16_t>(format.constData() + 2);
            info.m_nRate = int(qFromLittleEndian<uint32_t>(format.constData() + 4));
            blockAlign = qFromLittleEndian<uint16_t>(format.constData() + 12);
            info.m_nBits = qFromLittleEndian<uint16_t>(format.constData() + 14);
            haveFormat = info.m_nRate > 0 && blockAlign > 0;
            if (!haveFormat) return QStringLiteral("bad format chunk");
        } else if (chunk.startsWith("data")) {
            if (!haveFormat) return QStringLiteral("data before the format chunk");
            // A recorder killed before it finished leaves a size beyond the end: count what is there.
            const qint64 bytes = std::min<qint64>(size, file.size() - file.pos());
            info.m_dSeconds = double(bytes / blockAlign) / info.m_nRate;
            return {};
        } else if (!file.seek(file.pos() + size + (size & 1))) {
            return QStringLiteral("no data chunk");
        }
    }
}
