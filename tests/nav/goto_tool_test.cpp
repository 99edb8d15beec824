#include "nav/ToolTranscript.h"
#include "support/Golden.h"
#include "support/TestData.h"

#include <gtest/gtest.h>

TEST(GoToTool, CommandsMatchTranscript) {
    expectMatchesGolden(testDataDir() + "/goto/commands.txt.out", toolTranscript(testDataDir() + "/goto"));
}
