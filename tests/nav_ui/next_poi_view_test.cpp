#include "PoiPageSupport.h"
#include "nav/ui/CNextPoiView.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QMessageBox>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

namespace {

constexpr GeoPosition kMunich{48.1, 11.5};

// Five POIs north of Munich, 0.01 deg (1.111 km) apart, and Nuremberg. The two stations are equal on
// four letters; "Bahnhof B" lies a little west, so it comes first in the file's longitude order.
const QByteArray kPois = "11.4999,48.15,\"Bahnhof B\"\n11.5,48.11,\"Kirche\"\n11.5001,48.12,\"Bahnhof A\"\n"
                         "11.5,48.13,\"Apotheke\"\n11.5,48.14,\"Zoo\"\n11.5,49.5,\"Nürnberg\"\n";

struct Page {
    QTableView* table;
    QHeaderView* header;
    QComboBox* radius;
    QComboBox* reference;
};

Page partsOf(CNextPoiView& view) {
    const QList<QComboBox*> combos = view.findChildren<QComboBox*>();
    auto* table = view.findChild<QTableView*>();
    return {table, table->horizontalHeader(), combos.at(0), combos.at(1)};
}

QStringList column(const QTableView& table, int column) {
    QStringList texts;
    for (int row = 0; row < table.model()->rowCount(); ++row)
        texts << table.model()->index(row, column).data().toString();
    return texts;
}

void clickHeader(QHeaderView* header, int section) {
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(section) + header->sectionSize(section) / 2, 5));
}

// The message box the page opened last, answered with `button`; its text.
QString answer(CNextPoiView& view, QMessageBox::StandardButton button) {
    auto* box = view.findChild<QMessageBox*>();
    if (!box) return "(no message)";
    const QString text = box->text();
    box->button(button)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return text;
}

// The POIs above, loaded.
class NextPoiView : public testing::Test {
protected:
    void SetUp() override {
        ensureApplication();
        addPoiFile(root.path(), "p.asc", kPois, true);
        loadNow(loader);
    }
    TestRoot root;
    PoiLoader loader;
};

} // namespace

TEST_F(NextPoiView, ListsSortsAndAsksBeforeReadingNames) {
    CNextPoiView view(
        loader, [] { return kMunich; }, [] { return std::optional<GeoPosition>(); });
    view.resize(240, 320);
    view.show(); // the list is made when the page is shown
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const Page page = partsOf(view);
    for (const auto& [section, title] : {std::pair(0, "km"), std::pair(1, " "), std::pair(2, "Name")})
        EXPECT_EQ(page.header->model()->headerData(section, Qt::Horizontal).toString(), title);
    EXPECT_EQ(column(*page.table, 0), (QStringList{"1.11", "2.22", "3.33", "4.44", "5.56"}));
    EXPECT_EQ(column(*page.table, 1)[0], QString::fromUtf8("↑ 0°"));
    EXPECT_EQ(column(*page.table, 2), (QStringList{"", "", "", "", ""})) << "names not read yet";

    const struct {
        int section, key;
        QStringList km;
    } clicks[] = {
        {0, -1, {"5.56", "4.44", "3.33", "2.22", "1.11"}}, // the same column again: the other way round
        {0, 1, {"1.11", "2.22", "3.33", "4.44", "5.56"}},
        {1, 2, {"1.11", "2.22", "3.33", "4.44", "5.56"}},  // courses 0, 0, 0, 0 and 359 ("Bahnhof B")
        {1, -2, {"5.56", "1.11", "2.22", "3.33", "4.44"}}, // 359 first, the equal ones keep their order
    };
    for (const auto& c : clicks) {
        clickHeader(page.header, c.section);
        EXPECT_EQ(view.SortKey(), c.key);
        EXPECT_EQ(column(*page.table, 0), c.km) << c.key;
    }

    clickHeader(page.header, 2);
    EXPECT_EQ(answer(view, QMessageBox::No), QString::fromUtf8(CNextPoiView::kNamesQuestion));
    EXPECT_EQ(view.SortKey(), -2) << "No leaves the list as it was";
    clickHeader(page.header, 2);
    EXPECT_EQ(answer(view, QMessageBox::Yes), QString::fromUtf8(CNextPoiView::kNamesQuestion));
    EXPECT_EQ(view.SortKey(), 3);
    // Four letters compared: the stations are equal and keep the order in which they were found.
    EXPECT_EQ(column(*page.table, 2),
              (QStringList{"\"Apotheke\"", "\"Bahnhof B\"", "\"Bahnhof A\"", "\"Kirche\"", "\"Zoo\""}));
    clickHeader(page.header, 2);
    EXPECT_EQ(view.SortKey(), -3) << "names loaded: no question";
    EXPECT_EQ(column(*page.table, 2),
              (QStringList{"\"Zoo\"", "\"Kirche\"", "\"Bahnhof B\"", "\"Bahnhof A\"", "\"Apotheke\""}));

    page.radius->setCurrentText("200 km");
    ASSERT_TRUE(view.Search(true));
    EXPECT_EQ(view.Hits().size(), 6u) << "Nürnberg, 155 km";
}

TEST_F(NextPoiView, RefusesWhileThePositionIsUnknownOrPoisLoad) {
    std::optional<GeoPosition> gps;
    CNextPoiView view(
        loader, [&gps] { return gps; }, [] { return std::optional<GeoPosition>(); });
    const Page page = partsOf(view);
    const QString refusal = QString::fromUtf8(CNextPoiView::kRefusal);

    EXPECT_FALSE(view.Search(false)) << "no GPS position";
    EXPECT_EQ(answer(view, QMessageBox::Ok), refusal);
    gps = kMunich;
    EXPECT_TRUE(view.Search(false));
    EXPECT_EQ(view.Hits().size(), 5u);

    page.reference->setCurrentText("GoTo Ziel");
    EXPECT_FALSE(view.Search(false)) << "no GoTo target set";
    EXPECT_EQ(answer(view, QMessageBox::Ok), refusal);
    page.reference->setCurrentIndex(0);

    loader.start(60000); // loading: the list made before is gone, and the query waits
    EXPECT_TRUE(view.Hits().empty());
    EXPECT_FALSE(view.Search(false));
    EXPECT_EQ(answer(view, QMessageBox::Ok), refusal);
    loader.stop();

    // The navigation program's map centre is offered but cannot be chosen yet.
    const auto* items = qobject_cast<QStandardItemModel*>(page.reference->model());
    ASSERT_EQ(page.reference->count(), 3);
    EXPECT_EQ(page.reference->itemText(2), "MN Kartenmp.");
    EXPECT_FALSE(items->item(2)->isEnabled());
    EXPECT_EQ(page.radius->count(), 5);
    EXPECT_EQ(page.radius->itemText(4), "all");
}

TEST_F(NextPoiView, TappedRowOffersItsPoiAsTarget) {
    CNextPoiView view(
        loader, [] { return kMunich; }, [] { return std::optional<GeoPosition>(); });
    view.resize(800, 480);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QSignalSpy chosen(&view, &CNextPoiView::targetChosen);
    const Page page = partsOf(view);
    QTest::mouseClick(page.table->viewport(), Qt::LeftButton, {},
                      page.table->visualRect(page.table->model()->index(1, 0)).center());
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_DOUBLE_EQ(chosen[0][0].toDouble(), 11.5001);
    EXPECT_DOUBLE_EQ(chosen[0][1].toDouble(), 48.12);
    EXPECT_EQ(chosen[0][2].toString(), "\"Bahnhof A\"")
        << "read for the target, though the list has no names";
}

TEST_F(NextPoiView, ShownWithoutAListMakesOneOnceThePositionIsKnown) {
    std::optional<GeoPosition> gps;
    CNextPoiView view(
        loader, [&gps] { return gps; }, [] { return std::optional<GeoPosition>(); });
    view.show();
    EXPECT_TRUE(view.Hits().empty());
    EXPECT_FALSE(view.findChild<QMessageBox*>()) << "no refusal without a tap";
    gps = kMunich;
    view.OnUpdate(0);
    EXPECT_EQ(view.Hits().size(), 5u);
    gps = GeoPosition{49.5, 11.5};
    view.OnUpdate(0);
    EXPECT_EQ(view.Hits().size(), 5u) << "a list once made changes only on request";
    loadNow(loader);
    EXPECT_EQ(view.Hits().size(), 1u) << "after a new load the page makes its list again (Nuremberg)";
}
