#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"
#include "platform/DeviceClock.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

TEST(NmeaSplitter, AcceptsByTheChecksumRule) {
    const std::string munich = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";
    struct Case {
        const char* legend;
        std::string line;
        bool bAccepted;
        int nCount;
    } const cases[] = {
        {"checksum matches", munich + "*47", true, 15},
        {"checksum differs", munich + "*48", false, 0},
        {"no star, no test", munich, true, 15},
        {"lower-case digits", "$GPVTG,18,T*0f", true, 3},
        {"blanks and 0x before the digits", munich + "* 0x47", true, 15},
        {"leading zeros", munich + "*00047", true, 15},
        {"too big to be a checksum", munich + "*10047", false, 0},
        {"CR LF end the digits", munich + "*47\r\n", true, 15},
        {"star without digits", "$GPVTG,1*", false, 0},
        {"0x without digits", "$GPVTG,1*0x", false, 0},
        {"a NUL ends the line, checksum never seen", "$GPVTG,1\0*00"s, true, 2},
        {"empty line", "", false, 0},
        {"just a dollar sign", "$", true, 1},
        {"95 commas fit", "$GP" + std::string(95, ','), true, 96},
        {"96 commas are too many", "$GP" + std::string(96, ','), false, 0},
    };
    for (const Case& c : cases) {
        NmeaFields fields;
        EXPECT_EQ(splitNmeaLine(c.line, fields), c.bAccepted) << c.legend;
        EXPECT_EQ(fields.count(), c.nCount) << c.legend;
    }
}

// Expected values are the checksums the sentences were published with (NMEA examples).
TEST(NmeaChecksum, IsTheXorBetweenTheDollarAndTheStar) {
    const struct {
        const char *legend, *sentence;
        unsigned checksum;
    } cases[] = {
        {"whole line with its checksum",
         "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n", 0x47},
        {"no star", "$GPGLL,4916.45,N,12311.12,W,225444,A,", 0x1D},
        {"no dollar", "GPGLL,4916.45,N,12311.12,W,225444,A,", 0x1D},
        {"nothing between", "$*", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(nmeaChecksum(c.sentence), c.checksum) << c.legend;
}

// The checksum is summed several bytes at a time: every length and every place of the separators
// must give the byte-wise sum.
TEST(NmeaSplitter, SumsLinesOfEveryLength) {
    for (int length = 0; length < 40; ++length) {
        std::string body = "GPTXT";
        for (int i = 0; i < length; ++i)
            body += i % 5 == 3 ? ',' : static_cast<char>('A' + (i * 7 + length) % 26);
        const unsigned checksum = nmeaChecksum(body);
        char hex[8];
        std::snprintf(hex, sizeof hex, "*%02X", checksum);
        NmeaFields fields;
        EXPECT_TRUE(splitNmeaLine("$" + body + hex, fields)) << body;
        EXPECT_EQ(fields.count(), 1 + length / 5 + (length % 5 > 3 ? 1 : 0)) << body;
        std::snprintf(hex, sizeof hex, "*%02X", checksum ^ 0x40);
        EXPECT_FALSE(splitNmeaLine("$" + body + hex, fields)) << body;
    }
}

TEST(NmeaSplitter, FieldsPointIntoTheLine) {
    const std::string line = "$GPGLL,4916.45,N,,W,225444,A,*00\r\n";
    NmeaFields fields;
    ASSERT_TRUE(splitNmeaLine(line, fields));
    const std::pair<int, const char*> cases[] = {
        {0, "$GPGLL"}, {1, "4916.45"}, {3, ""}, {6, "A"}, {7, ""}, {8, ""}, {-1, ""},
    };
    for (const auto& [index, text] : cases)
        EXPECT_EQ(fields.field(index), text) << "field " << index;
    EXPECT_TRUE(fields.isNamed("$GPGLL"));
    EXPECT_FALSE(fields.isNamed("$GPGLLX"));
}

TEST(NmeaConverters, ReadDegreesWithTheirHemisphere) {
    struct Case {
        const char* legend;
        bool bLongitude;
        const char* text;
        bool bOk;
        double dDegrees;
    } const cases[] = {
        {"north", false, "4807.038,N", true, 48 + 7.038 * 0.016666666666666666},
        {"south is negative", false, "4807.038,S", true, -(48 + 7.038 * 0.016666666666666666)},
        {"an unknown letter counts as north", false, "4807.038,X", true, 48.1173},
        {"a comma as hemisphere letter counts too", false, "4807.038,,", true, 48.1173},
        {"no minute fraction", false, "4807,N", false, 0},
        {"a dot without fraction", false, "4807.,N", false, 0},
        {"no hemisphere field", false, "4807.038", false, 0},
        {"empty field", false, ",N", false, 0},
        {"east", true, "01131.000,E", true, 11 + 31 * 0.016666666666666666},
        {"west is negative", true, "12311.12,W", true, -(123 + 11.12 * 0.016666666666666666)},
        {"a short degree field is read as the scanner reads it", true, "1131.000,E", true, 113 + 1.0 / 60},
    };
    for (const Case& c : cases) {
        const std::string text = c.text;
        double value = 12345;
        const bool bOk = c.bLongitude ? parseNmeaLongitude(text.data(), text.data() + text.size(), value)
                                      : parseNmeaLatitude(text.data(), text.data() + text.size(), value);
        EXPECT_EQ(bOk, c.bOk) << c.legend;
        EXPECT_NEAR(value, c.bOk ? c.dDegrees : 12345, 1e-12) << c.legend;
    }
}

TEST(NmeaConverters, DateTheTimeByTheDeviceClock) {
    // The device clock: 2026-11-22 00:00:30 UTC, an hour east of Greenwich.
    const FixedDeviceClock clock(*FixedDeviceClock::fromIso8601("2026-11-22T01:00:30+01:00"));
    const NmeaTime time(clock);
    const std::pair<const char*, const char*> cases[] = {
        {"235959", "2026-11-22T00:59:59+01:00"},    // hour above 10: the date of two hours ago
        {"110000", "2026-11-21T12:00:00+01:00"},    // so already at 11 o'clock
        {"100000.25", "2026-11-22T11:00:00+01:00"}, // hours 2 to 10: today
        {"000001", "2026-11-22T01:00:01+01:00"},    // below 2: the date of two hours ahead
        {"0000", nullptr},                          // fewer than three numbers
        {"", nullptr},
        {"246000", nullptr}, // no time of day
        {"12-100", nullptr},
    };
    for (const auto& [text, expected] : cases) {
        int64_t value = 7;
        const std::string field = text;
        const bool bOk = time.parse(field.data(), field.data() + field.size(), value);
        EXPECT_EQ(bOk, expected != nullptr) << text;
        if (expected) {
            EXPECT_EQ(isoLocalTime(value, 3600), expected) << text;
        }
    }
}

TEST(NmeaConverters, ReadNumbersLikeTheCLibrary) {
    const std::pair<std::string, double> cases[] = {
        {"", 0},
        {"12.5", 12.5},
        {" -3.25", -3.25},
        {"+7", 7},
        {"0.1", 0.1},
        {"1e3", 1000},
        {"abc", 0},
        {"12.5M", 12.5},
        {"123456789012345678901.5", 123456789012345678901.5}, // too long for the quick path
        {std::string(500, '9'), 0},                           // out of range reads 0
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(nmeaDouble(text), value) << text;
    const std::pair<std::string, int32_t> integers[] = {
        {"", 0}, {"08", 8}, {" -2x", -2}, {std::string(500, '9'), 2147483647}, {"x1", 0}};
    for (const auto& [text, value] : integers)
        EXPECT_EQ(nmeaInt(text), value) << text;
}
