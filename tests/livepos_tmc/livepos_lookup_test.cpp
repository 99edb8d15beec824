#include "LoopbackHttpServer.h"
#include "integrations/livepos/CLiveposLookup.h"
#include "support/CoreApplication.h"
#include "support/TestRoot.h"

#include <QDir>
#include <gtest/gtest.h>

// Whatever comes back, the result field gets a clear text and the cache folder is left empty. (The
// fields of an answer line are read in the livepos tool transcript.)
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
        {"a position with an empty text", 200, "8.5,48.1,\n", "8.5,48.1,", true},
        {"an empty answer", 200, "", "Wrong Data!", false},
        {"a server error", 500, "8.5,48.1,x", "Fehler!", false},
        {"10 MB without a line end", 200, QByteArray(10 << 20, '7'), QString(1 << 20, u'7'), false},
        {"binary", 200, QByteArray("\x00\xff\x01,\x80\n", 6), QString::fromLatin1("\x00\xff\x01,\x80", 5),
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        LoopbackHttpServer server;
        server.SetAnswer(c.status, c.body);
        HttpDownload::Options options;
        options.nTimeoutMs = 5000;
        const CLiveposLookup::Result result = CLiveposLookup::Fetch(
            server.Base() + "/Livepos/getpos.php?Name=Eva", root.root().cacheFolder(), options);
        EXPECT_EQ(result.strShown, c.shown);
        EXPECT_EQ(result.answer.bComplete, c.complete);
        EXPECT_TRUE(QDir(root.root().cacheFolder()).isEmpty());
    }
}
