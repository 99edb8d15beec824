#include "maps/ui/MapGestures.h"

#include <QLineF>

MapGestures::MapGestures(double slop, QObject* parent) : QObject(parent), m_dSlop(slop) {
    m_longPress.setSingleShot(true);
    m_longPress.setInterval(kLongPressMs);
    connect(&m_longPress, &QTimer::timeout, this, [this] {
        if (m_state != State::Pressed) return;
        m_state = State::Held; // its release is no tap
        Q_EMIT longPressed(m_pressAt);
    });
}

void MapGestures::Press(QPointF at) {
    m_state = State::Pressed;
    m_pressAt = m_lastAt = at;
    m_longPress.start();
}

void MapGestures::Move(QPointF at) {
    if (m_state == State::Pressed && QLineF(m_pressAt, at).length() > m_dSlop) {
        m_longPress.stop();
        m_state = State::Dragging;
    }
    if (m_state == State::Dragging) {
        Q_EMIT dragged(m_lastAt, at);
        m_lastAt = at;
    }
}

void MapGestures::Release(QPointF at) {
    m_longPress.stop();
    const State state = m_state;
    m_state = State::Idle;
    if (state == State::Dragging && at != m_lastAt) Q_EMIT dragged(m_lastAt, at);
    if (state != State::Pressed) return;
    const bool second = m_sinceTap.isValid() && m_sinceTap.elapsed() < kDoubleTapMs &&
                        QLineF(m_lastTapAt, at).length() < 3 * m_dSlop;
    if (second) {
        m_sinceTap.invalidate();
        Q_EMIT doubleTapped(at);
        return;
    }
    m_sinceTap.start();
    m_lastTapAt = at;
    Q_EMIT tapped(at);
}

void MapGestures::Pinch(QPointF a, QPointF b) {
    const QPointF centre = (a + b) / 2;
    const double span = QLineF(a, b).length();
    m_longPress.stop();
    if (m_state != State::Pinching) {
        m_state = State::Pinching;
        m_pinchCentre = centre;
        m_dPinchSpan = span;
        return;
    }
    if (m_dPinchSpan > 0 && span > 0) Q_EMIT pinched(centre, span / m_dPinchSpan, m_pinchCentre);
    m_pinchCentre = centre;
    m_dPinchSpan = span;
}

void MapGestures::EndPinch() {
    m_state = State::Idle;
}
