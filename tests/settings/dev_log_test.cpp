#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>

TEST(DevLog, WritesOnlyWhileDevelopNamesAFile) {
    TestRoot root;
    devLog("not written %d", 1);
    CRegistryKey key;
    key.WriteString("Develop", "\\My Documents\\dev.txt");
    QDir().mkpath(root.file("My Documents"));
    devLog("ver: %s", "0.1");
    devLog();
    key.DeleteValue("Develop");
    devLog("not written either");
    const QString text = QString::fromUtf8(readFile(root.file("My Documents/dev.txt")));
    EXPECT_TRUE(QRegularExpression("^-?\\d+ ver: 0\\.1\\n-?\\d+ util line 137\\n$").match(text).hasMatch())
        << text.toStdString();
}
