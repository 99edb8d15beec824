#include "gps/ui/SkyPlot.h"

#include <QPainter>
#include <cmath>
#include <numbers>

QChar gnssLetter(GnssSystem system) {
    static constexpr char kLetters[] = {'G', 'S', 'R', 'E', 'C', 'J'};
    return QChar::fromLatin1(kLetters[static_cast<int>(system)]);
}

QColor gnssColor(GnssSystem system) {
    static const QColor kColors[] = {QColor(0x1f, 0x6f, 0xd0), QColor(0x70, 0x70, 0x70),
                                     QColor(0xc0, 0x30, 0x30), QColor(0x20, 0x90, 0x40),
                                     QColor(0xd0, 0x80, 0x00), QColor(0x90, 0x40, 0xb0)};
    return kColors[static_cast<int>(system)];
}

SkyPlot::SkyPlot(QWidget* parent) : QWidget(parent) {
    setMinimumSize(100, 100);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SkyPlot::setSatellites(std::vector<SatelliteInView> satellites) {
    m_satellites = std::move(satellites);
    update();
}

void SkyPlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double label = std::clamp(std::min(width(), height()) / 16.0, 9.0, 20.0);
    const double radius = std::min(width(), height()) / 2.0 - label - 2;
    const QPointF center(width() / 2.0, height() / 2.0);
    const QColor text = palette().color(QPalette::WindowText);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1.5));
    for (double ring : {1.0, 2.0 / 3.0, 1.0 / 3.0})
        painter.drawEllipse(center, radius * ring, radius * ring);
    painter.drawLine(center - QPointF(radius, 0), center + QPointF(radius, 0));
    painter.drawLine(center - QPointF(0, radius), center + QPointF(0, radius));
    QFont font = painter.font();
    font.setPixelSize(int(label));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(text);
    const double box = label * 1.2;
    painter.drawText(QRectF(center.x() - box, center.y() - radius - box - 1, 2 * box, box), Qt::AlignCenter,
                     "N");
    painter.drawText(QRectF(center.x() - box, center.y() + radius + 1, 2 * box, box), Qt::AlignCenter, "S");
    painter.drawText(QRectF(center.x() + radius + 1, center.y() - box / 2, box, box), Qt::AlignCenter, "O");
    painter.drawText(QRectF(center.x() - radius - box - 1, center.y() - box / 2, box, box), Qt::AlignCenter,
                     "W");

    font.setPixelSize(int(label * 0.8));
    painter.setFont(font);
    const double disc = std::max(label * 0.9, 7.0);
    for (const SatelliteInView& satellite : m_satellites) {
        if (satellite.m_nElevation < 0 || satellite.m_nAzimuth < 0) continue;
        const double distance = radius * (90 - std::clamp(satellite.m_nElevation, 0, 90)) / 90.0;
        const double angle = satellite.m_nAzimuth * std::numbers::pi / 180.0;
        const QPointF at = center + QPointF(distance * std::sin(angle), -distance * std::cos(angle));
        const QColor color = gnssColor(satellite.m_system);
        painter.setPen(QPen(color, 2));
        painter.setBrush(satellite.m_bUsed ? QBrush(color) : Qt::NoBrush);
        painter.drawEllipse(at, disc, disc);
        painter.setPen(satellite.m_bUsed ? Qt::white : text);
        painter.drawText(QRectF(at.x() - disc * 2, at.y() - disc, disc * 4, disc * 2), Qt::AlignCenter,
                         QString::number(satellite.m_nPrn));
    }
}

SignalBars::SignalBars(QWidget* parent) : QWidget(parent) {
    setMinimumSize(100, 50);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SignalBars::setSatellites(std::vector<SatelliteInView> satellites) {
    m_satellites = std::move(satellites);
    update();
}

void SignalBars::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText);
    if (m_satellites.empty()) {
        painter.setPen(text);
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Keine Satelliten"));
        return;
    }
    constexpr double kFullSnr = 50;
    const double slot = double(width()) / double(m_satellites.size());
    const double labelHeight = std::clamp(slot * 0.9, 8.0, 16.0);
    QFont font = painter.font();
    font.setPixelSize(int(labelHeight * 0.8));
    painter.setFont(font);
    const double barArea = height() - labelHeight * 2;
    for (size_t i = 0; i < m_satellites.size(); ++i) {
        const SatelliteInView& satellite = m_satellites[i];
        const double left = slot * double(i);
        const double barHeight = barArea * std::min(satellite.m_nSnr, int(kFullSnr)) / kFullSnr;
        const QRectF bar(left + slot * 0.12, barArea - barHeight, slot * 0.76, barHeight);
        const QColor color = gnssColor(satellite.m_system);
        painter.setPen(QPen(color, 1.5));
        painter.setBrush(satellite.m_bUsed ? QBrush(color) : Qt::NoBrush);
        painter.drawRect(bar);
        painter.setPen(text);
        painter.drawText(QRectF(left, barArea, slot, labelHeight), Qt::AlignCenter,
                         QString(gnssLetter(satellite.m_system)));
        painter.drawText(QRectF(left - 4, barArea + labelHeight, slot + 8, labelHeight), Qt::AlignCenter,
                         QString::number(satellite.m_nPrn));
    }
}
