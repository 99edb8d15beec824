#pragma once

#include "integrations/ui/CInfoElement.h"

// An element of "Type" 1 or 2: drawn pressed while touched, and tapped when the touch ends on it.
// A "Passive" button ignores touches.
class CInfoButton : public CInfoElement {
    Q_OBJECT
public:
    using CInfoElement::CInfoElement;

Q_SIGNALS:
    void tapped();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool IsPressed() const override { return m_bPressed; }

private:
    bool m_bPressed = false;
};
