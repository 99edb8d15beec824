#include "integrations/ui/OverlayWindow.h"

#include <QWidget>

void makeOverlayWindow(QWidget& window) {
    window.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
}
