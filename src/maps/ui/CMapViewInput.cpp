// The map view's input: fingers, mouse, wheel and keys, and the page table's commands.
#include "maps/ui/CMapOverlay.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/MapGestures.h"
#include "maps/ui/MapMenus.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <cmath>

bool CMapView::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: {
        const auto* touch = static_cast<QTouchEvent*>(event);
        const QList<QEventPoint>& points = touch->points();
        if (points.size() >= 2) {
            m_pGestures->Pinch(points[0].position(), points[1].position());
            if (event->type() == QEvent::TouchEnd) m_pGestures->EndPinch();
        } else if (points.size() == 1) {
            const QPointF at = points[0].position();
            if (event->type() == QEvent::TouchBegin)
                m_pGestures->Press(at);
            else if (event->type() == QEvent::TouchUpdate)
                m_pGestures->Move(at);
            else
                m_pGestures->Release(at);
        }
        event->accept();
        return true;
    }
    default:
        return CPageView::event(event);
    }
}

void CMapView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        ShowCalibrationMenu(event->position());
    else if (event->button() == Qt::LeftButton)
        m_pGestures->Press(event->position());
}

void CMapView::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of a double click; the gestures tell double taps themselves.
    if (event->button() == Qt::LeftButton) m_pGestures->Press(event->position());
}

void CMapView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) m_pGestures->Move(event->position());
}

void CMapView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_pGestures->Release(event->position());
}

void CMapView::wheelEvent(QWheelEvent* event) {
    // One notch (120) enlarges by a fifth of a doubling and a bit.
    ZoomAt(event->position(), std::pow(2.0, event->angleDelta().y() / 480.0));
    event->accept();
}

void CMapView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        ZoomAt(m_viewport.Anchor(), 2.0);
        break;
    case Qt::Key_Minus:
        ZoomAt(m_viewport.Anchor(), 0.5);
        break;
    default:
        CPageView::keyPressEvent(event);
    }
}

void CMapView::OnTapped(QPointF at) {
    UpdateViewport();
    if (!m_strCalibrationInfo.isEmpty()) {
        m_strCalibrationInfo.clear(); // read: the tap puts it away
        update();
        return;
    }
    if (!m_bImagePlane && PickedPosition(at)) return;
    const auto position = m_bImagePlane ? std::nullopt : m_viewport.FromScreen(at);
    if (!position) return;
    for (const ShownOverlay& overlay : m_overlays)
        if (overlay.m_bShown && overlay.m_pOverlay->Tapped(*position)) {
            update();
            return;
        }
}

bool CMapView::OnCommand(PageCommand command) {
    switch (command) {
    case PageCommand::FollowPosition:
        SetFollowing(!m_bFollowing);
        return true;
    case PageCommand::ExtendedMenuBar:
        ShowPageMenu();
        return true;
    }
    return false;
}

void CMapView::ShowPageMenu() {
    QMenu* menu = MapMenus::PageMenu(*this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(
        mapToGlobal(QPoint(width() - menu->sizeHint().width(), height() - menu->sizeHint().height())));
}

void CMapView::ShowCalibrationMenu(QPointF at) {
    QMenu* menu = MapMenus::CalibrationMenu(*this, at);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(mapToGlobal(at.toPoint()));
}
