#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
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
    QFile log(root.file("My Documents/dev.txt"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(log.readAll());
    EXPECT_TRUE(QRegularExpression("^-?\\d+ ver: 0\\.1\\n-?\\d+ util line 137\\n$").match(text).hasMatch())
        << text.toStdString();
}
