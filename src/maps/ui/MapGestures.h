#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QTimer>

// What a finger or the mouse does on the map: a drag, a tap, a double tap, a long press, or two
// fingers pinching. The view feeds it the pointer positions (screen pixels) and acts on the signals.
class MapGestures : public QObject {
    Q_OBJECT
public:
    static constexpr int kLongPressMs = 600;
    static constexpr int kDoubleTapMs = 400;

    // `slop`: how far a finger may wander before a press becomes a drag (pixels).
    explicit MapGestures(double slop, QObject* parent = nullptr);

    // One pointer: the left mouse button or a single finger.
    void Press(QPointF at);
    void Move(QPointF at);
    void Release(QPointF at);
    // Two fingers, at every move while both touch; EndPinch when one lifts.
    void Pinch(QPointF a, QPointF b);
    void EndPinch();

Q_SIGNALS:
    void dragged(QPointF from, QPointF to);
    void tapped(QPointF at);
    void doubleTapped(QPointF at);
    void longPressed(QPointF at);
    // The fingers' distance grew by `factor` around `centre`, which itself moved from `from`.
    void pinched(QPointF centre, double factor, QPointF from);

private:
    enum class State { Idle, Pressed, Dragging, Pinching, Held };

    double m_dSlop;
    State m_state = State::Idle;
    QPointF m_pressAt, m_lastAt;
    QTimer m_longPress;
    QElapsedTimer m_sinceTap;
    QPointF m_lastTapAt;
    QPointF m_pinchCentre;
    double m_dPinchSpan = 0;
};
