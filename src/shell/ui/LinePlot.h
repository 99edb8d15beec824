#pragma once

#include <QPointF>
#include <QWidget>
#include <functional>
#include <vector>

class QGestureEvent;

// A line of values over an axis (time, distance) with its scales, for profiles and diagrams. The
// visible stretch of the axis is zoomed by pinching or the wheel and moved by dragging; a double
// tap shows everything again.
class LinePlot : public QWidget {
    Q_OBJECT
public:
    using AxisText = std::function<QString(double)>;

    explicit LinePlot(QWidget* parent = nullptr);

    // Points in ascending x. `title` names the values and their unit ("Höhe m").
    void setPoints(std::vector<QPointF> points, const QString& title, AxisText xText);
    void showAll();
    // The visible stretch of the axis.
    double visibleFrom() const { return m_dFrom; }
    double visibleTo() const { return m_dTo; }
    // Zooms by `factor` (> 1 closer) around the axis value at widget x `atX`.
    void zoom(double factor, double atX);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QRectF plotArea() const;
    double toAxis(double x) const;
    void setVisible(double from, double to);
    void pinch(QGestureEvent* event);

    std::vector<QPointF> m_points;
    QString m_strTitle;
    AxisText m_xText;
    double m_dMinX = 0, m_dMaxX = 1;
    double m_dFrom = 0, m_dTo = 1;
    double m_dDragX = -1;
};
