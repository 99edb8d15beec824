#include "nav/ToolTranscript.h"
#include "support/Golden.h"
#include "support/TestData.h"

#include <gtest/gtest.h>

// "$DIR" in tests/data/maps/commands.txt is a scratch copy of tests/data/maps, which the calls change.
TEST(MapsTool, CommandsMatchTranscript) {
    expectMatchesGolden(testDataDir() + "/maps/commands.txt.out", toolTranscript(testDataDir() + "/maps"));
}
