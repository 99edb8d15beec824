#pragma once

#include <QLabel>
#include <QTimer>

// A short text over the middle of a window ("Heller", "Sound Aus") that goes away by itself.
class FlashNotice : public QLabel {
    Q_OBJECT
public:
    explicit FlashNotice(QWidget* window);
    void Flash(const QString& text);

private:
    QTimer m_hide;
};
