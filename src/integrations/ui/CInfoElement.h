#pragma once

#include "integrations/infopage/InfoElementSpec.h"

#include <QImage>
#include <QWidget>

// One display element of a page file: a child window that draws its text, bitmap and colours.
class CInfoElement : public QWidget {
    Q_OBJECT
public:
    // The element window's identifier, as every element has it.
    static constexpr int kElementId = 1234;

    CInfoElement(const InfoElementSpec& spec, QWidget* parent);

    const InfoElementSpec& Spec() const { return m_spec; }
    // A new variant section of the same element (another state).
    void SetSpec(const InfoElementSpec& spec);
    // The expanded template; redraws only when it changed.
    void SetText(const QString& text);
    const QString& Text() const { return m_strText; }

protected:
    void paintEvent(QPaintEvent* event) override;
    virtual bool IsPressed() const { return false; }

private:
    InfoElementSpec m_spec;
    QImage m_bitmap;
    QString m_strText;
};
