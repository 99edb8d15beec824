#include "CoreApplication.h"
#include "LoopbackHttpServer.h"
#include "integrations/livepos/CLiveposLookup.h"
#include "support/TestRoot.h"

#include <QDir>
#include <gtest/gtest.h>

TEST(LiveposAnswer, LineReadsAsLongitudeLatitudeText) {
    struct Case {
        const char* line;
        double lon, lat;
        const char* text;
        bool complete;
    };
    const Case cases[] = {
        {"8.5,48.1,Hans 12:00", 8.5, 48.1, "Hans 12:00", true},
        {"-0.25,51.5,London, Bridge", -0.25, 51.5, "London, Bridge", true},
        {"8.5,48.1,", 8.5, 48.1, "", true},
        {"no commas at all", 0, 0, "", false},
        {"8.5,48.1", 8.5, 48.1, "", false},
        {"", 0, 0, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const LiveposAnswer answer = LiveposAnswers::ParseLine(c.line);
        EXPECT_EQ(answer.strLine, c.line);
        EXPECT_EQ(answer.bComplete, c.complete);
        EXPECT_DOUBLE_EQ(answer.dLong, c.lon);
        EXPECT_DOUBLE_EQ(answer.dLat, c.lat);
        EXPECT_EQ(answer.strText, c.text);
    }
}

// Whatever comes back, the result field gets a clear text and the cache folder is left empty.
TEST(LiveposLookup, AnswersOfAnyKindGiveAClearResult) {
    ensureCoreApplication();
    struct Case {
        const char* legend;
        int status;
        QByteArray body;
        QString shown;
        bool complete;
    };
    const Case cases[] = {
        {"a position", 200, "8.5,48.1,Hans 12:00\r\nmore\r\n", "8.5,48.1,Hans 12:00", true},
        {"an empty answer", 200, "", "Wrong Data!", false},
        {"a server error", 500, "8.5,48.1,x", "Fehler!", false},
        {"10 MB without a line end", 200, QByteArray(10 << 20, '7'), QString(1 << 20, u'7'), false},
        {"binary", 200, QByteArray("\x00\xff\x01,\x80\n", 6), QString::fromLatin1("\x00\xff\x01,\x80", 5), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        LoopbackHttpServer server;
        server.SetAnswer(c.status, c.body);
        HttpDownload::Options options;
        options.nTimeoutMs = 5000;
        const CLiveposLookup::Result result =
            CLiveposLookup::Fetch(server.Base() + "/Livepos/getpos.php?Name=Eva", root.root().cacheFolder(), options);
        EXPECT_EQ(result.strShown, c.shown);
        EXPECT_EQ(result.answer.bComplete, c.complete);
        EXPECT_TRUE(QDir(root.root().cacheFolder()).isEmpty());
    }
}
