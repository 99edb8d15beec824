#include "gps/TalkerRewrite.h"
#include "gps/sources/LineAssembler.h"
#include "gps/sources/SourceTable.h"

#include <QByteArray>
#include <QList>
#include <gtest/gtest.h>
#include <string>

namespace {

const QByteArray kGga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
const QByteArray kRmc = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";

const LineAssembler::Options kPort{.m_bSkipSplitterData = true};
const LineAssembler::Options kGpsd{.m_bEndAtNewline = true};
const LineAssembler::Options kAllTalkers{.m_bAcceptAllTalkers = true};

QList<QByteArray> assemble(const QList<QByteArray>& chunks, LineAssembler::Options options) {
    LineAssembler lines(options);
    QList<QByteArray> out;
    for (const QByteArray& chunk : chunks)
        lines.feed(chunk.constData(), static_cast<int>(chunk.size()),
                   [&out](const char* line, int length) { out.append(QByteArray(line, length)); });
    return out;
}

TEST(SourcesAssembly, SplitsAtEveryPositionTheSameWay) {
    const QByteArray stream = kGga + kRmc + "$";
    for (int cut = 0; cut <= stream.size(); ++cut) {
        SCOPED_TRACE(cut);
        const QList<QByteArray> lines = assemble({stream.left(cut), stream.mid(cut)}, kPort);
        EXPECT_EQ(lines, (QList<QByteArray>{kGga, kRmc}));
    }
}

TEST(SourcesAssembly, CutsAndDropsAsThePortReaderDoes) {
    const QByteArray longRun(600, 'A');
    struct Case {
        const char* legend;
        QList<QByteArray> chunks;
        LineAssembler::Options options;
        QList<QByteArray> expected;
    } cases[] = {
        {"last sentence held until the next $", {kGga, kRmc}, {}, {kGga}},
        {"? and nine bytes dropped", {"$GPXXX,1?123456789,2\r\n$"}, kPort, {"$GPXXX,1,2\r\n"}},
        {"? skip crosses read boundaries", {"$GPX,1?1234", "56789,2\r\n", "$"}, kPort, {"$GPX,1,2\r\n"}},
        {"? kept without splitter data", {"$GPX,?\r\n$"}, {}, {"$GPX,?\r\n"}},
        {"garbage before the first $ dropped", {"junk\r\n" + kGga + "$"}, {}, {kGga}},
        {"line over 511 bytes cut at 512", {"$" + longRun + "$"}, {}, {"$" + longRun.left(511)}},
        {"newline ends a line, JSON dropped", {"{\"class\":\"WATCH\"}\n" + kGga}, kGpsd, {kGga}},
        {"other talker rewritten",
         {"$GNVTG,,T,,M,0.1,N,0.2,K,A*3E\r\n$"},
         kAllTalkers,
         {"$GPVTG,,T,,M,0.1,N,0.2,K,A*20\r\n"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        EXPECT_EQ(assemble(c.chunks, c.options), c.expected);
    }
}

TEST(SourcesAssembly, RewritesOnlyFixSentencesOfOtherTalkers) {
    struct Case {
        const char *legend, *line;
        bool changed;
        const char* expected;
    } cases[] = {
        // Expected checksums: XOR of the characters between "$" and "*", computed by hand (python).
        {"GN RMC", "$GNRMC,001031.00,A,4404.13993,N,12118.86023,W,0.146,,100117,,,A*7B", true,
         "$GPRMC,001031.00,A,4404.13993,N,12118.86023,W,0.146,,100117,,,A*65"},
        {"GL GSA", "$GLGSA,A,3,,,,,,,,,,,,,1.5,0.9,1.2*20", true, "$GPGSA,A,3,,,,,,,,,,,,,1.5,0.9,1.2*3C"},
        {"wrong checksum stays wrong", "$GAGGA,1*00", true, "$GPGGA,1*11"},
        {"no checksum", "$GBGLL,1", true, "$GPGLL,1"},
        {"GSV of GLONASS left alone", "$GLGSV,1,1,00*65", false, "$GLGSV,1,1,00*65"},
        {"GP unchanged", "$GPGGA,1*0E", false, "$GPGGA,1*0E"},
        {"integrated navigation of a chart plotter", "$INGGA,1*5B", true, "$GPGGA,1*4B"},
        {"unknown talker unchanged", "$IIVTG,1*58", false, "$IIVTG,1*58"},
        {"too short", "$GNRM", false, "$GNRM"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        std::string line = c.line;
        EXPECT_EQ(rewriteTalkerToGp(line.data(), static_cast<int>(line.size())), c.changed);
        EXPECT_EQ(line, c.expected);
    }
}

TEST(SourcesAssembly, LooksUpSourceNames) {
    for (int index = 0; index < SourceTable::kCount; ++index) {
        SCOPED_TRACE(index);
        // The splitter driver is only listed; choosing it runs COM1, as any unknown name does.
        const int expected = index == SourceTable::kSplitterDriver ? SourceTable::kDefaultSource : index;
        EXPECT_EQ(SourceTable::lookUp(SourceTable::name(index)), expected);
    }
    for (const char* unknown : {"COM10", "com3", ""})
        EXPECT_EQ(SourceTable::lookUp(unknown), 1) << unknown;
}

} // namespace
