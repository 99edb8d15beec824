#include "shell/ui/FittedLabel.h"

#include <QPainter>

FittedLabel::FittedLabel(QWidget* parent, Qt::Alignment alignment) : QWidget(parent), m_alignment(alignment) {
    setMinimumSize(24, 16);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FittedLabel::setText(const QString& text) {
    if (text == m_strText) return;
    m_strText = text;
    update();
}

int FittedLabel::fittedPixelSize() const {
    if (m_strText.isEmpty()) return 0;
    QFont measured = font();
    measured.setPixelSize(100);
    const QRectF natural = QFontMetricsF(measured).boundingRect(m_strText);
    const double scale = std::min(width() * 0.95 / natural.width(), height() * 0.9 / natural.height());
    return std::max(kMinPixelSize, int(100 * scale));
}

void FittedLabel::paintEvent(QPaintEvent*) {
    if (m_strText.isEmpty()) return;
    QPainter painter(this);
    QFont font = painter.font();
    font.setPixelSize(fittedPixelSize());
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), int(m_alignment), m_strText);
}
