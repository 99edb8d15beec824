#pragma once

#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// Runs `dataFolder`/commands.txt: each line one tarvik-tool call, its arguments separated by tabs ("#"
// lines are legends), all with one scratch --root; "$DIR" stands for a scratch copy of the folder's
// subfolders. Gives the transcript of calls, output, first line of stderr and exit codes.
inline QByteArray toolTranscript(const QString& dataFolder) {
    QTemporaryDir root, scratch;
    const QDir data(dataFolder);
    for (const QString& sub : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDir().mkpath(scratch.filePath(sub));
        for (const QString& name : QDir(data.filePath(sub)).entryList(QDir::Files))
            QFile::copy(data.filePath(sub + '/' + name), scratch.filePath(sub + '/' + name));
    }
    QFile file(data.filePath("commands.txt"));
    if (!file.open(QIODevice::ReadOnly)) return "cannot read " + file.fileName().toUtf8() + '\n';
    const QByteArray scrubbed = scratch.path().toUtf8();
    QByteArray transcript;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) {
            transcript += line + '\n';
            continue;
        }
        const QString call = QString::fromUtf8(line).replace("$DIR", scratch.path());
        const ToolResult result = runTool(QStringList{"--root", root.path()} + call.split('\t'));
        transcript += "$ " + line + '\n' + QByteArray(result.out).replace(scrubbed, "$DIR");
        if (!result.err.isEmpty())
            transcript += "stderr: " + result.err.split('\n').first().replace(scrubbed, "$DIR") + '\n';
        transcript += "exit " + QByteArray::number(result.exitCode) + '\n';
    }
    return transcript;
}
