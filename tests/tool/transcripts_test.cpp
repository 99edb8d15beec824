#include "support/Golden.h"
#include "support/TestData.h"
#include "support/ToolTranscript.h"

#include <QDir>
#include <gtest/gtest.h>

// Every tests/data/<folder>/commands.txt against its transcript commands.txt.out; "$DIR" is a
// scratch copy of that folder's subfolders, which the calls may change.
TEST(ToolTranscripts, MatchTheExpectedOutput) {
    const QDir data(testDataDir());
    int folders = 0;
    for (const QString& folder : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (!QFile::exists(data.filePath(folder + "/commands.txt"))) continue;
        ++folders;
        expectMatchesGolden(data.filePath(folder + "/commands.txt.out"),
                            toolTranscript(data.filePath(folder)));
    }
    EXPECT_GE(folders, 2);
}
