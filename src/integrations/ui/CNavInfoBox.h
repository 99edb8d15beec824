#pragma once

#include <QColor>
#include <QWidget>

// The single information box over the navigation program ("MNInfo"): a frameless window that stays
// above other windows, takes no focus, and shows one line of text in its colours.
class CNavInfoBox : public QWidget {
    Q_OBJECT
public:
    explicit CNavInfoBox(QWidget* parent = nullptr);
    void SetText(const QString& text);
    const QString& Text() const { return m_strText; }
    // Invalid colours draw with the palette's.
    void SetColours(const QColor& background, const QColor& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_strText;
    QColor m_background;
    QColor m_textColour;
};
