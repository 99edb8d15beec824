#include "demo/DemoMaps.h"

#include "demo/DemoRoute.h"
#include "demo/DemoWorld.h"
#include "maps/MapCalibration.h"
#include "maps/MapPaths.h"
#include "nav/GeoConstants.h"

#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace {

using Kind = DemoFeature::Kind;
using LabelKind = DemoLabel::Kind;

double metresPerDegree() {
    return KmPerRadian * DegToRad * 1000.0;
}

const QColor kScanner(214, 214, 208);
const QColor kPaper(250, 247, 236);
const QColor kTown(236, 221, 212);
const QColor kForest(190, 218, 165);
const QColor kWater(160, 200, 236);
const QColor kWaterLine(70, 120, 190);
const QColor kCasing(120, 110, 100);
const QColor kMainRoad(247, 208, 96);

// Line widths and text sizes in pixels of the two kinds of sheet.
struct Style {
    double street, road, route, river;
    int townText, villageText, waterText, forestText, streetText, roadNumberText, titleText;
};
constexpr Style kTownStyle{6, 9, 12, 5, 34, 20, 17, 18, 14, 13, 26};
constexpr Style kOverviewStyle{0, 3, 5, 2.5, 24, 15, 14, 14, 0, 11, 22};

QPolygonF polygonOn(const DemoSheet& sheet, const std::vector<GeoPosition>& points) {
    QPolygonF polygon;
    for (const GeoPosition& p : points)
        polygon << paperPoint(sheet, p);
    return polygon;
}

void strokeLine(QPainter& painter, const QPolygonF& line, const QColor& colour, double width,
                Qt::PenStyle style = Qt::SolidLine) {
    QPen pen(colour, width, style, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);
}

// A road: a darker casing under a lighter fill.
void drawRoad(QPainter& painter, const QPolygonF& line, const QColor& fill, double width) {
    strokeLine(painter, line, kCasing, width + 2.5);
    strokeLine(painter, line, fill, width);
}

void drawFeatures(QPainter& painter, const DemoSheet& sheet, const DemoWorld& world, const Style& style) {
    QPainterPath towns;
    for (const DemoFeature& feature : world.m_features)
        if (feature.m_kind == Kind::Town) towns.addPolygon(polygonOn(sheet, feature.m_points));
    for (const DemoFeature& feature : world.m_features) {
        const QPolygonF shape = polygonOn(sheet, feature.m_points);
        switch (feature.m_kind) {
        case Kind::Town:
            painter.setPen(QPen(kTown.darker(115), 1));
            painter.setBrush(kTown);
            painter.drawPolygon(shape);
            break;
        case Kind::Forest:
            painter.setPen(QPen(kForest.darker(120), 1));
            painter.setBrush(kForest);
            painter.drawPolygon(shape);
            break;
        case Kind::Water:
            painter.setPen(QPen(kWaterLine, 1.5));
            painter.setBrush(kWater);
            painter.drawPolygon(shape);
            break;
        case Kind::River:
            strokeLine(painter, shape, kWater.darker(110), style.river);
            break;
        case Kind::Street:
            if (style.street <= 0) break;
            painter.save();
            painter.setClipPath(towns, Qt::IntersectClip);
            drawRoad(painter, shape, Qt::white, style.street);
            painter.restore();
            break;
        case Kind::Road:
            drawRoad(painter, shape, Qt::white, style.road);
            break;
        case Kind::Railway:
            strokeLine(painter, shape, QColor(60, 60, 60), style.road * 0.6 + 1.5);
            strokeLine(painter, shape, Qt::white, style.road * 0.6, Qt::DashLine);
            break;
        }
    }
    for (const DemoWorld::Piece& piece : world.m_route) {
        const QPolygonF line = polygonOn(sheet, piece.m_points);
        if (piece.m_bTunnel)
            strokeLine(painter, line, kCasing, style.route * 0.6, Qt::DashLine);
        else
            drawRoad(painter, line, kMainRoad, style.route);
    }
}

// A text centred on `at` with a light halo, as map labels are.
void drawLabel(QPainter& painter, QPointF at, const QString& text, QFont font, const QColor& colour,
               bool boxed) {
    const QFontMetricsF metrics(font);
    const QRectF bounds = metrics.boundingRect(text);
    const QPointF origin = at - QPointF(bounds.width() / 2, -metrics.ascent() / 2 + metrics.descent() / 2);
    if (boxed) {
        const QRectF box = bounds.translated(origin).adjusted(-3, -1, 3, 1);
        painter.setPen(QPen(kCasing, 1));
        painter.setBrush(kMainRoad);
        painter.drawRect(box);
    }
    QPainterPath path;
    path.addText(origin, font, text);
    if (!boxed) {
        painter.setPen(QPen(QColor(255, 255, 255, 220), std::max(2.0, font.pixelSize() / 5.0), Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPath(path);
}

void drawLabels(QPainter& painter, const DemoSheet& sheet, const DemoWorld& world, const Style& style) {
    for (const DemoLabel& label : world.m_labels) {
        QFont font(QStringLiteral("DejaVu Sans"));
        QColor colour(40, 40, 40);
        bool boxed = false;
        switch (label.m_kind) {
        case LabelKind::Town:
            font.setPixelSize(style.townText);
            font.setBold(true);
            break;
        case LabelKind::Village:
            font.setPixelSize(style.villageText);
            font.setBold(true);
            break;
        case LabelKind::Water:
            font.setPixelSize(style.waterText);
            font.setItalic(true);
            colour = kWaterLine.darker(130);
            break;
        case LabelKind::Forest:
            font.setPixelSize(style.forestText);
            font.setItalic(true);
            colour = QColor(50, 100, 40);
            break;
        case LabelKind::Street:
            if (style.streetText == 0) continue; // too small for street names
            font.setPixelSize(style.streetText);
            break;
        case LabelKind::RoadNumber:
            font.setPixelSize(style.roadNumberText);
            font.setBold(true);
            boxed = true;
            break;
        }
        drawLabel(painter, paperPoint(sheet, label.m_at), label.m_strText, font, colour, boxed);
    }
}

// The paper's margin: a frame, the title and a north arrow.
void drawMargin(QPainter& painter, const DemoSheet& sheet, const Style& style, const QRectF& paper) {
    painter.setPen(QPen(QColor(40, 40, 40), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(paper.adjusted(12, 12, -12, -12));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(style.titleText);
    font.setBold(true);
    const QString scale = QStringLiteral("Demokarte · 1 Pixel = %1 m").arg(sheet.m_dMetresPerPixel);
    QFont small = font;
    small.setPixelSize(style.titleText * 2 / 3);
    small.setBold(false);
    const double width = std::max(QFontMetricsF(font).horizontalAdvance(QString::fromUtf8(sheet.m_pszTitle)),
                                  QFontMetricsF(small).horizontalAdvance(scale)) +
                         24;
    const QRectF box(paper.left() + 24, paper.top() + 24, width, style.titleText * 2.4);
    painter.setPen(QPen(QColor(40, 40, 40), 1.5));
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawRect(box);
    painter.setPen(QColor(30, 30, 30));
    painter.setFont(font);
    painter.drawText(box.adjusted(12, 6, -12, 0), Qt::AlignLeft | Qt::AlignTop,
                     QString::fromUtf8(sheet.m_pszTitle));
    painter.setFont(small);
    painter.drawText(box.adjusted(12, 0, -12, -6), Qt::AlignLeft | Qt::AlignBottom, scale);
    // North arrow at the top right.
    const QPointF tip(paper.right() - 50, paper.top() + 36);
    QPainterPath arrow;
    arrow.moveTo(tip);
    arrow.lineTo(tip + QPointF(14, 44));
    arrow.lineTo(tip + QPointF(0, 34));
    arrow.lineTo(tip + QPointF(-14, 44));
    arrow.closeSubpath();
    painter.setPen(QPen(QColor(30, 30, 30), 1.5));
    painter.setBrush(QColor(30, 30, 30));
    painter.drawPath(arrow);
    font.setPixelSize(18);
    painter.setFont(font);
    painter.drawText(QRectF(tip.x() - 20, tip.y() + 46, 40, 24), Qt::AlignCenter, QStringLiteral("N"));
}

} // namespace

std::vector<DemoSheet> demoSheets() {
    const GeoPosition start = demoRoute().m_start;
    return {
        {"Leutkirch.png",
         "Leutkirch im Allgäu – Stadtplan",
         offsetBy(start, 850, -1100),
         2.5,
         4.0,
         QSize(1500, 1420),
         {{150, 120}, {1380, 200}, {260, 1300}},
         true},
        {"Allgaeu.jpg",
         "Leutkirch – Isny, Übersicht",
         offsetBy(start, 800, -7600),
         12.0,
         0.0,
         QSize(1400, 2000),
         {{100, 100}, {1300, 120}, {1280, 1900}, {120, 1880}},
         false},
    };
}

GeoPosition sheetPixelToGeo(const DemoSheet& sheet, double x, double y) {
    // Undo the turn of the scan about the image's centre, then the paper's scale.
    const double turn = sheet.m_dTurnDeg * DegToRad;
    const double u = x - sheet.m_size.width() / 2.0, v = y - sheet.m_size.height() / 2.0;
    const double paperU = u * std::cos(turn) - v * std::sin(turn);
    const double paperV = u * std::sin(turn) + v * std::cos(turn);
    const double k = metresPerDegree();
    return {sheet.m_centre.m_dPosLat - paperV * sheet.m_dMetresPerPixel / k,
            sheet.m_centre.m_dPosLong +
                paperU * sheet.m_dMetresPerPixel / (k * std::cos(sheet.m_centre.m_dPosLat * DegToRad))};
}

QPointF paperPoint(const DemoSheet& sheet, const GeoPosition& position) {
    const double k = metresPerDegree();
    const double east =
        (position.m_dPosLong - sheet.m_centre.m_dPosLong) * k * std::cos(sheet.m_centre.m_dPosLat * DegToRad);
    const double north = (position.m_dPosLat - sheet.m_centre.m_dPosLat) * k;
    return QPointF(sheet.m_size.width() / 2.0 + east / sheet.m_dMetresPerPixel,
                   sheet.m_size.height() / 2.0 - north / sheet.m_dMetresPerPixel);
}

QImage drawDemoSheet(const DemoSheet& sheet, const DemoWorld& world) {
    QImage image(sheet.m_size, QImage::Format_RGB32);
    image.fill(kScanner);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // The paper lies turned on the scanner: everything below is drawn on the paper.
    const QPointF middle(sheet.m_size.width() / 2.0, sheet.m_size.height() / 2.0);
    painter.translate(middle);
    painter.rotate(-sheet.m_dTurnDeg);
    painter.translate(-middle);
    const QRectF paper = QRectF(QPointF(0, 0), QSizeF(sheet.m_size)).adjusted(20, 20, -20, -20);
    painter.fillRect(paper, kPaper);
    painter.setClipRect(paper);
    const Style& style = sheet.m_bDetailed ? kTownStyle : kOverviewStyle;
    drawFeatures(painter, sheet, world, style);
    drawLabels(painter, sheet, world, style);
    drawMargin(painter, sheet, style, paper);
    return image;
}

bool writeDemoMaps(const QString& folder, QString& failedFile) {
    const DemoWorld world = demoWorld();
    for (const DemoSheet& sheet : demoSheets()) {
        const QString path = QDir(folder).filePath(QString::fromLatin1(sheet.m_pszFile));
        failedFile = path;
        if (!drawDemoSheet(sheet, world).save(path, nullptr, 88)) return false;
        MapCalibration map(path);
        map.SetMapSize(Size{sheet.m_size.width(), sheet.m_size.height()});
        for (size_t i = 0; i < sheet.m_calibrationPixels.size(); ++i) {
            const Point pixel = sheet.m_calibrationPixels[i];
            const GeoPosition position = sheetPixelToGeo(sheet, pixel.x, pixel.y);
            map.SetPoint(int(i), pixel, position.m_dPosLong, position.m_dPosLat);
        }
        failedFile = MapPaths::CalibrationPathFor(path);
        if (!map.Verify() || !map.SaveCalibration()) return false;
    }
    failedFile.clear();
    return true;
}
