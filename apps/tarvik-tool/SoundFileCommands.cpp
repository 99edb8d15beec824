#include "SoundFileCommands.h"

#include "platform/WavFile.h"
#include "platform/audio/SoundRecorder.h"

#include <QEventLoop>
#include <QTimer>
#include <cmath>

int recordSound(ToolContext& ctx, const QString& path, const QString& seconds) {
    bool numeric = false;
    const double duration = seconds.toDouble(&numeric);
    if (!numeric || !std::isfinite(duration) || duration <= 0 || duration > 3600)
        return ctx.inputError("--seconds needs a number of seconds up to 3600, not '" + seconds + "'");
    SoundRecorder recorder;
    // The audio backends complain on stderr while they look for a device; the tool says it in one line.
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QString error = recorder.startDefaultInput();
    qInstallMessageHandler(previous);
    if (!error.isEmpty()) return ctx.inputError(error);
    QEventLoop loop;
    QTimer::singleShot(int(duration * 1000), &loop, &QEventLoop::quit);
    loop.exec();
    recorder.stop();
    if (const QString error = recorder.save(path); !error.isEmpty())
        return ctx.inputError("cannot write " + path + ": " + error);
    return ToolContext::kOk;
}

int printWavInfo(ToolContext& ctx, const QString& path) {
    WavFile::Info info;
    if (const QString error = WavFile::readInfo(path, info); !error.isEmpty())
        return ctx.inputError(path + ": " + error);
    ctx.printJson({{"rate", QString::number(info.m_nRate)},
                   {"channels", QString::number(info.m_nChannels)},
                   {"bits", QString::number(info.m_nBits)},
                   {"seconds", ToolContext::number(info.m_dSeconds)}});
    return ToolContext::kOk;
}
