#include "integrations/ui/CInfoElement.h"

#include "integrations/ui/InfoElementPainter.h"

#include <QPainter>

CInfoElement::CInfoElement(const InfoElementSpec& spec, QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents, !spec.IsButton() || spec.bPassive);
    SetSpec(spec);
}

void CInfoElement::SetSpec(const InfoElementSpec& spec) {
    m_spec = spec;
    // A bitmap that cannot be loaded leaves the element without a picture.
    m_bitmap = loadElementBitmap(m_spec);
    update();
}

void CInfoElement::SetText(const QString& text) {
    if (text == m_strText) return;
    m_strText = text;
    update();
}

void CInfoElement::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintInfoElement(painter, rect(), m_spec, m_strText, m_bitmap, IsPressed());
}
