#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/ForkedChild.h"

#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

TEST(RegistryHive, AReportedWriteSurvivesSigkill) {
    QTemporaryDir dir;
    const QString file = dir.filePath("registry.db");
    const pid_t child = forkAndHold([&] {
        RegistryHive::setCurrent(std::make_shared<RegistryHive>(file));
        CRegistryKey key;
        key.WriteString("CurrentView", "Kartenanzeige3");
        key.WriteDword("Speed", 9600);
    });
    ASSERT_GT(child, 0);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    RegistryHive::setCurrent(std::make_shared<RegistryHive>(file));
    CRegistryKey key;
    QString view;
    EXPECT_TRUE(key.ReadString("CurrentView", view));
    EXPECT_EQ(view, "Kartenanzeige3");
    EXPECT_EQ(key.GetDword("Speed", 0), 9600u);
    RegistryHive::setCurrent(nullptr);
}

TEST(RegistryHive, TwoProcessesWritingAtOnceLoseNothing) {
    QTemporaryDir dir;
    const QString file = dir.filePath("registry.db");
    { RegistryHive created(file); } // made before the writers race; no connection is carried into them
    constexpr int kWrites = 150;
    pid_t children[2];
    for (int c = 0; c < 2; ++c) {
        children[c] = fork();
        if (children[c] == 0) {
            RegistryHive::setCurrent(std::make_shared<RegistryHive>(file));
            CRegistryKey key;
            bool ok = true;
            for (int i = 0; i < kWrites; ++i)
                ok = key.WriteDword(QStringLiteral("w%1_%2").arg(c).arg(i), i) && ok;
            _exit(ok ? 0 : 1);
        }
    }
    for (pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    RegistryHive::setCurrent(std::make_shared<RegistryHive>(file));
    CRegistryKey key;
    for (int c = 0; c < 2; ++c)
        for (int i = 0; i < kWrites; ++i)
            EXPECT_EQ(key.GetDword(QStringLiteral("w%1_%2").arg(c).arg(i), 9999), uint32_t(i));
    RegistryHive::setCurrent(nullptr);
}

TEST(RegistryHive, ADamagedFileIsSetAsideAndDefaultsApply) {
    QTemporaryDir dir;
    const QString file = dir.filePath("registry.db");
    writeFile(file, QByteArray(8192, 'x'));
    auto hive = std::make_shared<RegistryHive>(file);
    ASSERT_FALSE(hive->setAsidePath().isEmpty());
    EXPECT_EQ(readFile(hive->setAsidePath()),
              QByteArray(8192, 'x')); // the user's bytes are kept, not deleted
    RegistryHive::setCurrent(hive);
    CRegistryKey key;
    EXPECT_EQ(key.GetDword("Speed", 4800), 4800u);
    EXPECT_TRUE(key.WriteDword("Speed", 9600)); // and the fresh hive works
    RegistryHive::setCurrent(nullptr);
}
