#include "nav/ui/GoToArrow.h"

#include <QPainter>
#include <QPainterPath>

void GoToArrow::setAngle(std::optional<double> degrees) {
    if (degrees == m_angle) return;
    m_angle = degrees;
    update();
}

void GoToArrow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = std::min(width(), height()) / 2.0 - 2;
    painter.translate(width() / 2.0, height() / 2.0);
    painter.setPen(QPen(palette().color(QPalette::Mid), 2));
    painter.drawEllipse(QPointF(0, 0), radius, radius);
    if (!m_angle) return;
    painter.rotate(*m_angle);
    QPainterPath arrow;
    arrow.moveTo(0, -radius * 0.9);
    arrow.lineTo(radius * 0.45, radius * 0.6);
    arrow.lineTo(0, radius * 0.3);
    arrow.lineTo(-radius * 0.45, radius * 0.6);
    arrow.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 150, 0));
    painter.drawPath(arrow);
}
