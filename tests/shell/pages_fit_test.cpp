#include "gps/CFendixDoc.h"
#include "gps/LogSentences.h"
#include "gps/RecordingSettings.h"
#include "gps/ReplayTimeline.h"
#include "gps/sources/SourceSettings.h"
#include "gps/ui/CAltitudeView.h"
#include "gps/ui/CLogbookView.h"
#include "gps/ui/CModuleAlerts.h"
#include "gps/ui/CModuleDiagram.h"
#include "gps/ui/CPositionView.h"
#include "gps/ui/CSatelliteView.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "shell/CMainFrame.h"
#include "shell/PageTable.h"
#include "shell/TouchStyle.h"
#include "shell/ui/CPageView.h"
#include "shell/ui/FittedLabel.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

// The smallest text a driver reads at arm's length in a glance, in pixels.
constexpr int kReadablePixels = 11;
// A text field narrower than this shows too little of a path or a name to be recognised.
constexpr int kMinFieldWidth = 120;

// The scroll area the widget lies in on the page, if any.
const QScrollArea* scrollAreaOf(const QWidget* widget, const QWidget* page) {
    for (const QWidget* w = widget->parentWidget(); w && w != page; w = w->parentWidget())
        if (const auto* area = qobject_cast<const QScrollArea*>(w)) return area;
    return nullptr;
}

// What does not fit on the page as it is laid out now, one line each.
QStringList misfits(QWidget* page) {
    QStringList found;
    const auto name = [](const QWidget* w, const QString& text) {
        return QStringLiteral("%1 \"%2\" (%3x%4)")
            .arg(QString::fromLatin1(w->metaObject()->className()), text)
            .arg(w->width())
            .arg(w->height());
    };
    for (QWidget* w : page->findChildren<QWidget*>()) {
        if (!w->isVisibleTo(page) || w->width() == 0) continue;
        const QRect onPage(w->mapTo(page, QPoint(0, 0)), w->size());
        // Pages scroll vertically only: inside a scroll area a widget must still fit across.
        if (const QScrollArea* area = scrollAreaOf(w, page)) {
            if (!area->widget() || !area->widget()->isAncestorOf(w)) continue; // the area's own scroll bars
            const int left = w->mapTo(area->viewport(), QPoint(0, 0)).x();
            if (left < 0 || left + w->width() > area->viewport()->width())
                found << name(w, QString()) + " reaches outside the page's width";
        } else if (!page->rect().contains(onPage)) {
            found << name(w, QString()) + " reaches outside the page";
        }
        if (const auto* label = qobject_cast<FittedLabel*>(w); label && !label->text().isEmpty()) {
            if (label->fittedPixelSize() < kReadablePixels)
                found << name(w, label->text()) +
                             QStringLiteral(" drawn at %1 px").arg(label->fittedPixelSize());
        } else if (const auto* text = qobject_cast<QLabel*>(w); text && !text->text().isEmpty()) {
            const int needed =
                text->wordWrap() ? text->heightForWidth(text->width()) : text->minimumSizeHint().height();
            if ((!text->wordWrap() && text->minimumSizeHint().width() > text->width()) ||
                needed > text->height())
                found << name(w, text->text()) + " is cut";
        } else if (const auto* button = qobject_cast<QPushButton*>(w)) {
            // The style's minimum width for buttons with text is looks, not room: the text itself counts.
            if (button->fontMetrics().horizontalAdvance(button->text()) + 8 > button->width())
                found << name(w, button->text()) + " is cut";
        } else if (const auto* box = qobject_cast<QCheckBox*>(w)) {
            if (box->minimumSizeHint().width() > box->width()) found << name(w, box->text()) + " is cut";
        }
        if (qobject_cast<QLineEdit*>(w) && w->width() < kMinFieldWidth)
            found << name(w, QString()) + " is too narrow to show a value";
        if ((qobject_cast<QAbstractButton*>(w) || qobject_cast<QComboBox*>(w) ||
             qobject_cast<QLineEdit*>(w)) &&
            w->height() < TouchStyle::kMinTargetHeight)
            found << name(w, QString()) + QStringLiteral(" is %1 px high").arg(w->height());
        if (const auto* table = qobject_cast<QTableWidget*>(w))
            for (int row = 0; row < table->rowCount(); ++row)
                for (int column = 0; column < table->columnCount(); ++column)
                    if (const QTableWidgetItem* item = table->item(row, column);
                        item &&
                        table->fontMetrics().horizontalAdvance(item->text()) > table->columnWidth(column))
                        found << name(w, item->text()) + " is cut";
    }
    return found;
}

int colourCount(const QImage& image) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            colours.insert(image.pixel(x, y));
    return int(colours.size());
}

} // namespace

// Each page of its kind inside the frame at a handheld's and a car panel's size, after a real
// multi-constellation capture: it draws something, every text fits its space at a readable size,
// and every target takes a finger.
TEST(Pages, DrawAndTheirTextsFitAtBothSizes) {
    const std::optional<QString> shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is not there";
    const QByteArray sentences = readFile(*shared + "/nmea/gpsd/neo-m8n.log");
    ASSERT_FALSE(sentences.isEmpty());

    ensureApplication();
    qApp->setStyleSheet(QString::fromLatin1(TouchStyle::kStyleSheet));
    TestRoot root;
    CRegistryKey key;
    writeSetting(key, SourceSettings::kAcceptAllTalkers, true);
    const QString logs = root.root().hostPath(readSetting(key, RecordingSettings::kLogDirectory));
    writeFile(logs + "/2024-05-01_10-00.txt", "$Tarvik," + QByteArray(256, ' ') + "\r\n" + sentences);

    FixedDeviceClock clock(1714557600, 7200);
    CFendixDoc doc(root.root(), clock);
    doc.LoadSettings();
    ReplayTimeline timeline(clock);
    forEachLogSentence(sentences, true, [&](const char* line, int length) {
        timeline.follow(line, length);
        doc.HandleSentence(line, length);
        return true;
    });
    ASSERT_TRUE(doc.Fix().hasFix());
    ASSERT_FALSE(doc.Satellites().inView().empty());

    PageFactory pages;
    pages.add(PageTable::kAltitude, [&doc](QWidget* parent) { return new CAltitudeView(doc, parent); });
    pages.add(PageTable::kSatellites, [&doc](QWidget* parent) { return new CSatelliteView(doc, parent); });
    pages.add(PageTable::kPosition, [&doc](QWidget* parent) { return new CPositionView(doc, parent); });
    pages.add(PageTable::kDiagrams, [&doc](QWidget* parent) { return new CModuleDiagram(doc, parent); });
    pages.add(PageTable::kLogbook, [&doc](QWidget* parent) { return new CLogbookView(doc, {}, parent); });
    pages.add(PageTable::kAlerts, [](QWidget* parent) { return new CModuleAlerts({}, parent); });
    CMainFrame frame(std::move(pages));
    frame.show();
    for (const QSize size : {QSize(240, 320), QSize(800, 480)}) {
        frame.setFixedSize(size);
        for (const uint16_t command : {PageTable::kAltitude, PageTable::kSatellites, PageTable::kPosition,
                                       PageTable::kDiagrams, PageTable::kLogbook, PageTable::kAlerts}) {
            const std::string legend =
                PageTable::name(command).toStdString() +
                QStringLiteral(" at %1x%2").arg(size.width()).arg(size.height()).toStdString();
            ASSERT_TRUE(frame.SelectPage(command)) << legend;
            CPageView* page = frame.CurrentPage();
            page->OnUpdate(0);
            QApplication::processEvents();
            EXPECT_GT(colourCount(page->grab().toImage()), 2) << legend << " draws nothing";
            EXPECT_EQ(misfits(page).join(QStringLiteral("\n")).toStdString(), "") << legend;
        }
    }
}
