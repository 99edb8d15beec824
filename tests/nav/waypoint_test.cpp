#include "nav/waypoints/WaypointFile.h"
#include "nav/waypoints/WaypointImport.h"

#include <gtest/gtest.h>

TEST(WaypointFile, ReadsLinesAsThePageDoes) {
    struct Case {
        const char* legend;
        QByteArray bytes;
        Waypoints expected;
    } cases[] = {
        {"quotes part of the line", "8.12345,48.5,\"Home\"\n", {{8.12345, 48.5, "Home"}}},
        {"two fields ignored, ';' skipped", "8,48\n;9,49,\"x\"\n", {}},
        {"blanks trimmed, quotes anywhere removed", "1,2,  \"a\"b\"  \r\n", {{1, 2, "ab"}}},
        {"a comma ends the name", "1,2,\"Hof, alt\"", {{1, 2, "Hof"}}},
        {"Windows-1252 and UTF-8 lines",
         "1,2,\"M\xfchle\"\n3,4,\"M\xc3\xbchle\"\n",
         {{1, 2, "Mühle"}, {3, 4, "Mühle"}}},
        {"numbers as the C library reads them", "12abc,-3.5e1x,name\n", {{12, -35, "name"}}},
        {"a line beyond the buffer is read in pieces",
         QByteArray(5000, ',') + "\n",
         {{0, 0, ""}, {0, 0, ""}}},
        {"binary", QByteArray("\x00\x01\xff\n\xff,\x00,x", 9), {{0, 0, "x"}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReadWaypoints(c.bytes), c.expected) << c.legend;
}

TEST(WaypointFile, WritesFiveDecimalsInWindows1252AndReadsBack) {
    const Waypoints waypoints = {
        {8.123456, 48.5, "Home"}, {-179.999994, -0.000004, "Mühle € 1"}, {1, 2, "Łódź"}};
    const QByteArray bytes = WriteWaypoints(waypoints);
    EXPECT_EQ(bytes, QByteArray("8.12346,48.50000,\"Home\"\n-179.99999,-0.00000,\"M\xfchle \x80 1\"\n"
                                "1.00000,2.00000,\"\xc5\x81\xc3\xb3\x64\xc5\xba\"\n"));
    const Waypoints back = ReadWaypoints(bytes);
    ASSERT_EQ(back.size(), waypoints.size());
    for (size_t i = 0; i < back.size(); ++i) {
        EXPECT_NEAR(back[i].m_dLon, waypoints[i].m_dLon, 0.5e-5) << i;
        EXPECT_NEAR(back[i].m_dLat, waypoints[i].m_dLat, 0.5e-5) << i;
        EXPECT_EQ(back[i].m_strName, waypoints[i].m_strName) << i;
    }
}

TEST(WaypointImport, ScansFreeFormPositions) {
    constexpr double kGipfelLat = 47 + 25.123 / 60, kGipfelLon = 10 + 59.456 / 60;
    struct Case {
        const char* line;
        std::optional<Waypoint> expected;
    } cases[] = {
        {"Gipfel N 47°25.123 E 010°59.456", Waypoint{kGipfelLon, kGipfelLat, "Gipfel"}},
        {"\"Hütte\" S 33°54.000 W 070°15.000 (Süd)", Waypoint{-70.25, -33.9, "Hütte (Süd)"}},
        {"Ost: N47°25.123 O10°59.456", Waypoint{kGipfelLon, kGipfelLat, "Ost:"}},
        {"N 48°07'24'' E 011°34'12''",
         Waypoint{11 + 34 / 60.0 + 12 / 3600.0, 48 + 7 / 60.0 + 24 / 3600.0, ""}},
        {"Nord Ende Süd", std::nullopt},
        {"N 47°25.123 only", std::nullopt},
        {"; N 47°25.123 E 010°59.456", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& c : cases) {
        const auto actual = ScanImportLine(QString::fromUtf8(c.line));
        ASSERT_EQ(actual.has_value(), c.expected.has_value()) << c.line;
        if (!actual) continue;
        EXPECT_NEAR(actual->m_dLon, c.expected->m_dLon, 1e-9) << c.line;
        EXPECT_NEAR(actual->m_dLat, c.expected->m_dLat, 1e-9) << c.line;
        EXPECT_EQ(actual->m_strName, c.expected->m_strName) << c.line;
    }
}

TEST(WaypointImport, MergesWithoutDuplicates) {
    Waypoints list = {{1, 2, "alt"}};
    const QByteArray file = "Gipfel N 47\xb0"
                            "25.123 E 010\xb0"
                            "59.456\n"
                            "Gipfel N 47\xc2\xb0"
                            "25.123 E 010\xc2\xb0"
                            "59.456\r\n"
                            "no position\n" +
                            QByteArray(5000, 'N') + "\n";
    const Waypoints added = ImportWaypoints(file, list);
    ASSERT_EQ(added.size(), 1u);
    EXPECT_EQ(added[0].m_strName, "Gipfel");
    EXPECT_EQ(list.size(), 2u);
    EXPECT_TRUE(ImportWaypoints(file, list).empty()) << "imported again";
    EXPECT_EQ(list.size(), 2u);
}
