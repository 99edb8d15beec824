#pragma once

#include <QWidget>

// A text drawn as large as its rectangle allows, for values read at a glance from a car mount; a text
// of several lines is fitted as a whole.
class FittedLabel : public QWidget {
    Q_OBJECT
public:
    explicit FittedLabel(QWidget* parent = nullptr, Qt::Alignment alignment = Qt::AlignCenter);
    void setText(const QString& text);
    const QString& text() const { return m_strText; }
    // The pixel size the text is drawn with in the label's present size; 0 without a text.
    int fittedPixelSize() const;
    // The smallest size drawn: below it the text is clipped rather than made unreadable.
    static constexpr int kMinPixelSize = 6;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_strText;
    Qt::Alignment m_alignment;
};
