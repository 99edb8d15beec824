#include "integrations/hotkeys/CHotkeyPresses.h"

#include <gtest/gtest.h>
#include <set>

namespace {

PressEvent down(int button, int64_t ms) {
    return {button, false, ms};
}
PressEvent up(int button, int64_t ms) {
    return {button, true, ms};
}

} // namespace

// Press sequences on the events' own clock; the window opens at the first press and lasts 500 ms.
// Several presses, a long press, chords with and without a registered second button, the window's
// end and key repeats are in tests/data/hotkey/commands.txt.
TEST(PressDetection, ResolvesPressSequences) {
    const std::set<int> allButtons{1, 2, 3, 4, 5};
    struct Case {
        const char* legend;
        std::vector<PressEvent> events;
        std::set<int> registered;
        std::vector<QString> names;
    };
    const Case cases[] = {
        {"one short press", {down(1, 0), up(1, 80)}, allButtons, {"Taste 1"}},
        {"released just before the window ends", {down(1, 0), up(1, 499)}, allButtons, {"Taste 1"}},
        {"released at the window's end: still held when it ends",
         {down(1, 0), up(1, 500)},
         allButtons,
         {"Lang Taste 1"}},
        {"second press, held at the end",
         {down(3, 0), up(3, 50), down(3, 100)},
         allButtons,
         {"Lang Taste 3"}},
        {"chord after a released first button",
         {down(4, 0), up(4, 30), down(2, 60)},
         allButtons,
         {"Taste 4, 2"}},
        {"a press at 499 ms held over the end: long",
         {down(2, 0), up(2, 10), down(2, 499), up(2, 510)},
         allButtons,
         {"Lang Taste 2"}},
        {"the window is not restarted by later presses",
         {down(2, 0), up(2, 400), down(2, 450), up(2, 900)},
         allButtons,
         {"Lang Taste 2"}},
        {"an unregistered button sends nothing", {down(3, 0), up(3, 10)}, {1, 2}, {}},
        {"a button still held from a long press blocks new presses",
         {down(1, 0), down(2, 600), up(2, 650), up(1, 700)},
         allButtons,
         {"Lang Taste 1"}},
        {"a release of another button while one is pending is a chord too",
         {down(1, 0), up(3, 100)},
         allButtons,
         {"Taste 1, 3"}},
        {"the sixth code is accepted, others are not",
         {down(6, 0), up(6, 10), down(9, 600)},
         {6, 9},
         {"Taste 6"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        EXPECT_EQ(resolvePresses(c.events, [&c](int button) { return c.registered.contains(button); }),
                  c.names);
    }
}
