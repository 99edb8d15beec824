#pragma once

#include <QWidget>
#include <optional>

// The direction arrow of the GoTo page: points `angle` degrees clockwise from straight up; without an
// angle (no fix or no target) only the ring is drawn.
class GoToArrow : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    void setAngle(std::optional<double> degrees);
    std::optional<double> angle() const { return m_angle; }
    QSize sizeHint() const override { return {80, 80}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<double> m_angle;
};
