#include "shell/ui/LinePlot.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPinchGesture>
#include <algorithm>
#include <cmath>

namespace {

// A step of 1, 2 or 5 times a power of ten that divides `span` into about `parts` pieces.
double niceStep(double span, int parts) {
    if (!(span > 0)) return 1;
    const double raw = span / parts;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (double factor : {1.0, 2.0, 5.0})
        if (raw <= factor * power) return factor * power;
    return 10 * power;
}

} // namespace

LinePlot::LinePlot(QWidget* parent) : QWidget(parent) {
    setMinimumSize(120, 80);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grabGesture(Qt::PinchGesture);
    m_xText = [](double x) { return QString::number(x); };
}

void LinePlot::setPoints(std::vector<QPointF> points, const QString& title, AxisText xText) {
    const bool bWasAll = m_dFrom <= m_dMinX && m_dTo >= m_dMaxX;
    m_points = std::move(points);
    m_strTitle = title;
    if (xText) m_xText = std::move(xText);
    m_dMinX = m_points.empty() ? 0 : m_points.front().x();
    m_dMaxX = m_points.empty() ? 1 : std::max(m_points.back().x(), m_dMinX + 1e-9);
    if (bWasAll) showAll(); // a growing line stays in view until the user zooms in
    update();
}

void LinePlot::showAll() {
    setVisible(m_dMinX, m_dMaxX);
}

void LinePlot::setVisible(double from, double to) {
    const double span = std::clamp(to - from, (m_dMaxX - m_dMinX) / 1000, m_dMaxX - m_dMinX);
    m_dFrom = std::clamp(from, m_dMinX, m_dMaxX - span);
    m_dTo = m_dFrom + span;
    update();
}

void LinePlot::zoom(double factor, double atX) {
    const double center = toAxis(atX);
    setVisible(center - (center - m_dFrom) / factor, center + (m_dTo - center) / factor);
}

QRectF LinePlot::plotArea() const {
    const double line = fontMetrics().height();
    const double left = fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 6;
    return QRectF(left, line * 1.4, std::max(10.0, width() - left - 8),
                  std::max(10.0, height() - line * 2.8));
}

double LinePlot::toAxis(double x) const {
    const QRectF area = plotArea();
    return m_dFrom + (x - area.left()) / area.width() * (m_dTo - m_dFrom);
}

bool LinePlot::event(QEvent* event) {
    if (event->type() == QEvent::Gesture) {
        pinch(static_cast<QGestureEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void LinePlot::pinch(QGestureEvent* event) {
    if (auto* gesture = static_cast<QPinchGesture*>(event->gesture(Qt::PinchGesture)))
        zoom(gesture->scaleFactor(), mapFromGlobal(gesture->centerPoint().toPoint()).x());
}

void LinePlot::wheelEvent(QWheelEvent* event) {
    zoom(event->angleDelta().y() > 0 ? 1.25 : 0.8, event->position().x());
}

void LinePlot::mousePressEvent(QMouseEvent* event) {
    m_dDragX = event->position().x();
}

void LinePlot::mouseMoveEvent(QMouseEvent* event) {
    if (m_dDragX < 0) return;
    const double shift = toAxis(m_dDragX) - toAxis(event->position().x());
    m_dDragX = event->position().x();
    setVisible(m_dFrom + shift, m_dTo + shift);
}

void LinePlot::mouseDoubleClickEvent(QMouseEvent*) {
    showAll();
}

void LinePlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = plotArea();
    const QColor text = palette().color(QPalette::WindowText);
    painter.setPen(text);
    painter.drawText(QRectF(0, 0, width(), area.top()), Qt::AlignLeft | Qt::AlignVCenter, m_strTitle);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(area);
    if (m_points.empty()) {
        painter.setPen(text);
        painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral("Noch keine Daten"));
        return;
    }
    const auto first = std::ranges::lower_bound(m_points, m_dFrom, {}, &QPointF::x);
    const auto last = std::ranges::upper_bound(m_points, m_dTo, {}, &QPointF::x);
    const auto from = first == m_points.begin() ? first : first - 1;
    const auto to = last == m_points.end() ? last : last + 1;
    double minY = from->y(), maxY = from->y();
    for (auto it = from; it != to; ++it) {
        minY = std::min(minY, it->y());
        maxY = std::max(maxY, it->y());
    }
    const double yStep = niceStep(std::max(maxY - minY, 1.0), 4);
    minY = std::floor(minY / yStep) * yStep;
    maxY = std::max(std::ceil(maxY / yStep) * yStep, minY + yStep);
    const auto toPixel = [&](const QPointF& p) {
        return QPointF(area.left() + (p.x() - m_dFrom) / (m_dTo - m_dFrom) * area.width(),
                       area.bottom() - (p.y() - minY) / (maxY - minY) * area.height());
    };
    const QColor grid = palette().color(QPalette::Midlight);
    for (double y = minY; y <= maxY + yStep / 2; y += yStep) {
        const double py = toPixel({m_dFrom, y}).y();
        painter.setPen(grid);
        painter.drawLine(QPointF(area.left(), py), QPointF(area.right(), py));
        painter.setPen(text);
        painter.drawText(QRectF(0, py - 10, area.left() - 4, 20), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(y));
    }
    const double xStep = niceStep(m_dTo - m_dFrom, std::max(1, int(area.width() / 90)));
    for (double x = std::ceil(m_dFrom / xStep) * xStep; x <= m_dTo; x += xStep) {
        const double px = toPixel({x, minY}).x();
        painter.setPen(grid);
        painter.drawLine(QPointF(px, area.top()), QPointF(px, area.bottom()));
        painter.setPen(text);
        painter.drawText(QRectF(px - 45, area.bottom() + 2, 90, area.top()), Qt::AlignHCenter | Qt::AlignTop,
                         m_xText(x));
    }
    QPainterPath path(toPixel(*from));
    for (auto it = from + 1; it != to; ++it)
        path.lineTo(toPixel(*it));
    painter.setClipRect(area);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.5));
    painter.drawPath(path);
}
