#pragma once

#include <QByteArray>
#include <QString>

// 16-bit PCM WAV files: the recorded sounds and what the alert and speed tables play.
namespace WavFile {

struct Info {
    int m_nRate = 0;
    int m_nChannels = 0;
    int m_nBits = 0;
    double m_dSeconds = 0;
};

// A complete file (RIFF, PCM, 16-bit mono at `rate`) around `samples`.
QByteArray mono16(const QByteArray& samples, int rate);

// Writes `samples` (16-bit little-endian mono at `rate`) as a complete file, through a temporary
// file renamed over the old one; empty text on success, else the reason.
QString writeMono16(const QString& path, const QByteArray& samples, int rate);

// Reads the format chunk and the length of the data chunk; empty text on success, else why the
// file is not a PCM WAV file.
QString readInfo(const QString& path, Info& info);

} // namespace WavFile
