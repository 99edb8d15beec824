#include "support/Golden.h"
#include "support/TestData.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Each line of commands.txt is one tarvik-tool call, its arguments separated by tabs ("#" lines are
// legends); "$DIR" stands for a scratch copy of tests/data/maps. The transcript of calls, output,
// first line of stderr and exit codes is the golden file.
TEST(MapsTool, CommandsMatchTranscript) {
    QTemporaryDir root, scratch;
    const QDir data(testDataDir() + "/maps");
    for (const QString& sub : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDir().mkpath(scratch.filePath(sub));
        for (const QString& name : QDir(data.filePath(sub)).entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(data.filePath(sub + '/' + name), scratch.filePath(sub + '/' + name)));
    }
    QFile file(data.filePath("commands.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray transcript;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) {
            transcript += line + '\n';
            continue;
        }
        const QString call = QString::fromUtf8(line).replace("$DIR", scratch.path());
        const ToolResult result = runTool(QStringList{"--root", root.path()} + call.split('\t'));
        const QByteArray scrubbed = scratch.path().toUtf8();
        transcript += "$ " + line + '\n' + QByteArray(result.out).replace(scrubbed, "$DIR");
        if (!result.err.isEmpty())
            transcript += "stderr: " + result.err.split('\n').first().replace(scrubbed, "$DIR") + '\n';
        transcript += "exit " + QByteArray::number(result.exitCode) + '\n';
    }
    expectMatchesGolden(data.filePath("commands.txt.out"), transcript);
}
