#include "support/Golden.h"
#include "support/TestData.h"
#include "support/ToolRunner.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Each line of commands.txt is one tarvik-tool call, its arguments separated by tabs ("#" lines are
// legends). The transcript of calls, output, first line of stderr and exit codes is the golden file.
TEST(NavTool, CommandsMatchTranscript) {
    const QString commands = testDataDir() + "/nav/commands.txt";
    QFile file(commands);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QTemporaryDir root;
    QByteArray transcript;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) {
            transcript += line + '\n';
            continue;
        }
        const ToolResult result =
            runTool(QStringList{"--root", root.path()} + QString::fromUtf8(line).split('\t'));
        transcript += "$ " + line + '\n' + result.out;
        if (!result.err.isEmpty()) transcript += "stderr: " + result.err.split('\n').first() + '\n';
        transcript += "exit " + QByteArray::number(result.exitCode) + '\n';
    }
    expectMatchesGolden(commands + ".out", transcript);
}
