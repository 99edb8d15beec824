#include "nav/ToolTranscript.h"
#include "support/Golden.h"
#include "support/TestData.h"

#include <gtest/gtest.h>

TEST(NavTool, CommandsMatchTranscript) {
    expectMatchesGolden(testDataDir() + "/nav/commands.txt.out", toolTranscript(testDataDir() + "/nav"));
}
