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

void FittedLabel::paintEvent(QPaintEvent*) {
    if (m_strText.isEmpty()) return;
    QPainter painter(this);
    QFont font = painter.font();
    font.setPixelSize(100);
    const QFontMetricsF metrics(font);
    // Lines one above the other (the GoTo page's "km\nGrad") are fitted as a block.
    const QRectF natural = m_strText.contains('\n')
                               ? metrics.boundingRect(QRectF(0, 0, 1e6, 1e6), int(m_alignment), m_strText)
                               : metrics.boundingRect(m_strText);
    const double scale = std::min(width() * 0.95 / natural.width(), height() * 0.9 / natural.height());
    font.setPixelSize(std::max(6, int(100 * scale)));
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), int(m_alignment), m_strText);
}
