#include "PoiPageSupport.h"
#include "nav/ui/CPOIView.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <algorithm>

namespace {

QStringList rows(const QListWidget& list) {
    QStringList lines;
    for (int i = 0; i < list.count(); ++i)
        lines << list.item(i)->text() + (list.item(i)->checkState() == Qt::Checked ? " [x]" : " [ ]") +
                     (list.item(i)->icon().isNull() ? "" : " icon");
    return lines;
}

bool enabledInSettings(const QString& name) {
    bool enabled = false;
    CRegistryKey(PoiSettings::kFilesKey).ReadFlag(name, enabled);
    return enabled;
}

} // namespace

TEST(PoiView, ListsTheFolderAndSwitchesFiles) {
    ensureApplication();
    TestRoot root;
    addPoiFile(root.path(), "Blitzer.ov2",
               QByteArray("\x02\x0E\0\0\0\x40\x42\x0F\0\x40\x4B\x4C\0\0", 14) +
                   QByteArray("\x02\x0E\0\0\0\x50\x42\x0F\0\x40\x4B\x4C\0\0", 14),
               true);
    addPoiFile(root.path(), "Tank_Stellen.asc", "8.5,48.1,\"A\"\n8.6,48.1,\"B\"\n9.5,48.1,\"C\"\n", false);
    addPoiFile(root.path(), "liesmich.txt", "no POIs", true);
    QImage icon(24, 24, QImage::Format_RGB32);
    icon.fill(Qt::blue);
    ASSERT_TRUE(icon.save(root.file("POI/Tank Stellen.bmp"), "BMP"));

    PoiLoader loader;
    int nearestShown = 0;
    CPOIView page(loader, [&nearestShown] { ++nearestShown; });
    page.resize(240, 320);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&page));
    auto* list = page.findChild<QListWidget*>();
    EXPECT_EQ(rows(*list), (QStringList{"Blitzer.ov2 [x]", "Tank_Stellen.asc [ ] icon"}));
    EXPECT_EQ(page.StatusText(), "0 POIs geladen");

    // A tap on the row's name switches the file on, stores it and loads again.
    QSignalSpy loaded(&loader, &PoiLoader::loaded);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(rows(*list)[1], "Tank_Stellen.asc [x] icon");
    EXPECT_TRUE(enabledInSettings("Tank_Stellen.asc"));
    EXPECT_EQ(page.StatusText(), "0 POIs loading...");
    ASSERT_TRUE(loaded.wait(10000));
    EXPECT_EQ(page.StatusText(), "5 POIs geladen");

    Q_EMIT loader.progress(42);
    EXPECT_EQ(page.StatusText(), "42 POIs loading...");

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_FALSE(enabledInSettings("Blitzer.ov2"));
    ASSERT_TRUE(loaded.wait(10000));
    EXPECT_EQ(page.StatusText(), "3 POIs geladen");

    for (QPushButton* button : page.findChildren<QPushButton*>())
        if (button->text() == QString::fromUtf8("Nächste POIs")) QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(nearestShown, 1);
}

TEST(PoiView, NamesAnEmptyFolder) {
    ensureApplication();
    TestRoot root;
    CRegistryKey().WriteString("PoiPath", "\\Karten\\POI");
    PoiLoader loader;
    CPOIView page(loader, {});
    EXPECT_EQ(page.findChild<QListWidget*>()->count(), 0);
    const QList<QLabel*> labels = page.findChildren<QLabel*>();
    EXPECT_TRUE(
        std::ranges::any_of(labels, [](const QLabel* l) { return l->text().contains("\\Karten\\POI"); }));
}
