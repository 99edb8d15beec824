#include "ToolTranscript.h"

#include "ToolRunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

QByteArray toolTranscript(const QString& dataFolder) {
    QTemporaryDir root, scratch;
    const QDir data(dataFolder);
    for (const QString& sub : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDir().mkpath(scratch.filePath(sub));
        for (const QString& name : QDir(data.filePath(sub)).entryList(QDir::Files))
            QFile::copy(data.filePath(sub + '/' + name), scratch.filePath(sub + '/' + name));
    }
    QFile file(data.filePath("commands.txt"));
    if (!file.open(QIODevice::ReadOnly)) return "cannot read " + file.fileName().toUtf8() + '\n';
    const auto scrub = [&](QByteArray text) {
        return text.replace(scratch.path().toUtf8(), "$DIR").replace(root.path().toUtf8(), "$ROOT");
    };
    QByteArray transcript;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) {
            transcript += line + '\n';
            continue;
        }
        const QString call = QString::fromUtf8(line).replace("$DIR", scratch.path());
        const ToolResult result = runTool(QStringList{"--root", root.path()} + call.split('\t'));
        transcript += "$ " + line + '\n' + scrub(result.out);
        if (!result.err.isEmpty()) transcript += "stderr: " + scrub(result.err.split('\n').first()) + '\n';
        transcript += "exit " + QByteArray::number(result.exitCode) + '\n';
    }
    return transcript;
}
