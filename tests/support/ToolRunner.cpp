#include "ToolRunner.h"

#include <QProcess>

ToolResult runTool(const QStringList& args, const QByteArray& input, int timeoutMs) {
    QProcess process;
    process.start(QStringLiteral(TARVIK_TOOL_PATH), args);
    ToolResult result;
    if (!process.waitForStarted(timeoutMs)) return result;
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}
