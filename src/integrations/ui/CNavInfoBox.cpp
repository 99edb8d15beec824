#include "integrations/ui/CNavInfoBox.h"

#include "integrations/ui/OverlayWindow.h"

#include <QPainter>

CNavInfoBox::CNavInfoBox(QWidget* parent) : QWidget(parent) {
    makeOverlayWindow(*this);
    setObjectName(QStringLiteral("MNInfoBox"));
}

void CNavInfoBox::SetText(const QString& text) {
    if (text == m_strText) return;
    m_strText = text;
    update();
}

void CNavInfoBox::SetColours(const QColor& background, const QColor& text) {
    m_background = background;
    m_textColour = text;
    update();
}

void CNavInfoBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_background.isValid() ? m_background : palette().window().color());
    painter.setPen(m_textColour.isValid() ? m_textColour : palette().windowText().color());
    QFont font = painter.font();
    font.setPixelSize(std::max(8, height() * 2 / 3));
    painter.setFont(font);
    painter.drawText(rect(), Qt::AlignCenter, m_strText);
}
