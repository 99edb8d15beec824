#include "integrations/ui/CInfoButton.h"

#include <QMouseEvent>

void CInfoButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_bPressed = true;
    update();
}

void CInfoButton::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_bPressed) return;
    m_bPressed = false;
    update();
    // Sliding off the button before lifting the finger cancels the tap.
    if (rect().contains(event->position().toPoint())) Q_EMIT tapped();
}
