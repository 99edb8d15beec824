#include "integrations/NavigationTarget.h"
#include "integrations/navbridge/NavigationBridge.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

// The map centre and the last click as the position file tells them: the centre is the midpoint
// of the top-left and bottom-right corners, the click comes in millionths of a degree, and a
// coordinate of 0 means none.
TEST(NavigationBridge, MapCentreAndLastClickFromThePositionFile) {
    struct Case {
        const char* legend;
        const char* file;
        std::optional<GeoPosition> centre, click;
    } cases[] = {
        {"a tilted map and a click",
         "[MapCoordinates]\nLonTopLeft=11.0\nLatTopLeft=48.5\nLonTopRight=12.1\nLatTopRight=48.6\n"
         "LonBottomRight=12.0\nLatBottomRight=47.9\n[LastClick]\nLon=11549670\nLat=48135480\n",
         GeoPosition{48.2, 11.5}, GeoPosition{48.13548, 11.54967}},
        {"no bottom-right corner, a click south-west of 0/0",
         "[MapCoordinates]\nLonTopLeft=11.0\nLatTopLeft=48.5\n[LastClick]\nLon=-58381600\nLat=-34603700\n",
         std::nullopt, GeoPosition{-34.6037, -58.3816}},
        {"only the position", "[GPSPosition]\nLon=11.5\nLat=48.1\n", std::nullopt, std::nullopt},
        {"no file", nullptr, std::nullopt, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        if (c.file) writeFile(root.file("My Documents/MNPosition.txt"), c.file);
        NavigationTarget target;
        NavigationBridge bridge(root.root(), target);
        for (const auto& [got, expected] :
             {std::pair{bridge.MapCentre(), c.centre}, {bridge.LastClick(), c.click}}) {
            ASSERT_EQ(got.has_value(), expected.has_value());
            if (expected) {
                EXPECT_NEAR(got->m_dPosLat, expected->m_dPosLat, 1e-9);
                EXPECT_NEAR(got->m_dPosLong, expected->m_dPosLong, 1e-9);
            }
        }
    }
}
