#include "integrations/navbridge/NavInfoFile.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <gtest/gtest.h>

// "MNInfo.ini" is looked up in the navigation program's folder first, then in the program folder.
TEST(NavInfoFile, FoundBesideTheNavigationProgramFirst) {
    struct Case {
        const char* legend;
        const char* navFolder;
        QStringList present;  // below the root
        const char* expected; // below the root; empty for none
    } cases[] = {
        {"both: the navigator's", "\\Navi\\", {"Navi/MNInfo.ini", "Tarvik/MNInfo.ini"}, "Navi/MNInfo.ini"},
        {"only the program folder's", "\\Navi\\", {"Tarvik/MNInfo.ini"}, "Tarvik/MNInfo.ini"},
        {"no navigation program", "", {"Navi/MNInfo.ini", "Tarvik/MNInfo.ini"}, "Tarvik/MNInfo.ini"},
        {"slashes as the user typed them", "/Navi/", {"Navi/MNInfo.ini"}, "Navi/MNInfo.ini"},
        {"none at all", "\\Navi\\", {}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        for (const QString& file : c.present)
            writeFile(root.file(file), "[Buttons]\n");
        const QString found = NavInfoFile::find(root.root(), QString::fromLatin1(c.navFolder));
        EXPECT_EQ(found.isEmpty() ? QString() : QDir(root.path()).relativeFilePath(found),
                  QString(c.expected));
    }
}
