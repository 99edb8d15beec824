#include "gps/ui/CPositionView.h"

#include "gps/CFendixDoc.h"
#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/MercatorMetres.h"
#include "nav/Mgrs.h"
#include "nav/PosFormat.h"
#include "nav/Utm.h"
#include "platform/DeviceClock.h"
#include "shell/ui/FittedLabel.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QVBoxLayout>

// One notation: its name small above, its text as large as the row allows; a tap copies the text.
class NotationRow : public QWidget {
public:
    NotationRow(const QString& name, std::function<void(const QString&)> copied, QWidget* parent)
        : QWidget(parent), m_strName(name), m_copied(std::move(copied)) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(4, 1, 4, 1);
        layout->setSpacing(0);
        auto* title = new QLabel(name, this);
        title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        m_pValue = new FittedLabel(this, Qt::AlignLeft | Qt::AlignVCenter);
        layout->addWidget(title);
        layout->addWidget(m_pValue, 1);
        setToolTip(QStringLiteral("Tippen kopiert den Text"));
    }
    void setText(const QString& text) { m_pValue->setText(text); }
    const QString& text() const { return m_pValue->text(); }

protected:
    void mouseReleaseEvent(QMouseEvent*) override {
        if (text().isEmpty()) return;
        QApplication::clipboard()->setText(text());
        m_copied(m_strName);
    }

private:
    QString m_strName;
    std::function<void(const QString&)> m_copied;
    FittedLabel* m_pValue;
};

namespace {

QString degreesText(double lat, double lon, PosFormat format) {
    return FormatCoordinate(lat, format, true) + QStringLiteral("  ") + FormatCoordinate(lon, format, false);
}

QString utmText(double lat, double lon) {
    int32_t zone = 0;
    char hemisphere = 'N';
    double easting = 0, northing = 0;
    if (GeodeticToUtm(lat * DegToRad, lon * DegToRad, zone, hemisphere, easting, northing) &
        (UtmError::Latitude | UtmError::Longitude))
        return {};
    return QString::asprintf("%d%c  %.0f  %.0f", zone, hemisphere, easting, northing);
}

QString mgrsText(double lat, double lon) {
    QByteArray mgrs;
    if (GeodeticToMgrs(lat * DegToRad, lon * DegToRad, 5, mgrs) != 0 || mgrs.size() < 15) return {};
    // "32UPU1234567890" as "32U PU 12345 67890": the way it is read out and typed.
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::fromLatin1(mgrs.left(3)), QString::fromLatin1(mgrs.mid(3, 2)),
             QString::fromLatin1(mgrs.mid(5, 5)), QString::fromLatin1(mgrs.mid(10, 5)));
}

QString mercatorText(double lat, double lon) {
    int32_t x = 0, y = 0;
    if (!GeodeticToMercatorMetres(lat, lon, x, y)) return {};
    return QStringLiteral("x %1  y %2").arg(x).arg(y);
}

QString timeText(int64_t seconds) {
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(QStringLiteral("dd.MM.yyyy  HH:mm:ss"));
}

} // namespace

CPositionView::CPositionView(const CFendixDoc& doc, QWidget* parent) : CPageView(parent), m_doc(doc) {
    const QStringList formats = posFormatNames();
    QStringList names = {formats.value(0),
                         formats.value(1),
                         formats.value(2),
                         QStringLiteral("UTM"),
                         QStringLiteral("MGRS"),
                         QStringLiteral("Mercator (Falk/Marco Polo, m)"),
                         QStringLiteral("Höhe / HDOP / Satelliten"),
                         QStringLiteral("Zeit UTC"),
                         QStringLiteral("Ortszeit")};
    // The rows keep a height that reads at a glance; when the screen has less, the page scrolls.
    m_pContent = new QWidget;
    for (const QString& name : names) {
        m_rows.push_back(new NotationRow(
            name, [this](const QString& copied) { Copied(copied); }, m_pContent));
        m_rows.back()->setMinimumHeight(kMinRowHeight);
    }
    auto* grid = new QGridLayout(m_pContent);
    grid->setContentsMargins(2, 2, 2, 2);
    grid->setSpacing(2);
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(m_pContent);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pNote = new QLabel(this);
    m_pNote->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(scroll, 1);
    layout->addWidget(m_pNote);
    PlaceRows(1);
    OnUpdate(0);
}

void CPositionView::PlaceRows(int columns) {
    auto* grid = static_cast<QGridLayout*>(m_pContent->layout());
    if (m_nColumns == columns) return;
    m_nColumns = columns;
    for (NotationRow* row : m_rows)
        grid->removeWidget(row);
    const int perColumn = int(m_rows.size() + size_t(columns) - 1) / columns;
    for (size_t i = 0; i < m_rows.size(); ++i)
        grid->addWidget(m_rows[i], int(i) % perColumn, int(i) / perColumn);
}

void CPositionView::resizeEvent(QResizeEvent* event) {
    // Landscape screens take two columns: the rows get twice the height and are still wide enough.
    PlaceRows(width() > height() ? 2 : 1);
    CPageView::resizeEvent(event);
}

void CPositionView::Copied(const QString& name) {
    m_pNote->setText(QStringLiteral("%1 kopiert").arg(name));
}

QStringList CPositionView::RowTexts() const {
    QStringList texts;
    for (const NotationRow* row : m_rows)
        texts << row->text();
    return texts;
}

void CPositionView::OnUpdate(uint16_t) {
    const GpsFix& fix = m_doc.Fix();
    const double lat = fix.m_dPosLat, lon = fix.m_dPosLong;
    const QString texts[] = {
        degreesText(lat, lon, PosFormat::DegreesMinutes),
        degreesText(lat, lon, PosFormat::DegreesMinutesSeconds),
        degreesText(lat, lon, PosFormat::DecimalDegrees),
        utmText(lat, lon),
        mgrsText(lat, lon),
        mercatorText(lat, lon),
        QString::asprintf("%.0f m  HDOP %.1f  %d Sat.", fix.m_fAltitude, fix.m_fHdop, fix.m_nSatellites),
        timeText(fix.m_tFixTime - m_doc.Clock().localOffset()),
        timeText(fix.m_tFixTime), // fix times are local already
    };
    for (size_t i = 0; i < m_rows.size(); ++i)
        m_rows[i]->setText(texts[i]);
}
