#include "shell/hotkeys/FlashNotice.h"

namespace {
constexpr int kShownMs = 1500;
}

FlashNotice::FlashNotice(QWidget* window) : QLabel(window) {
    setAlignment(Qt::AlignCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyleSheet(QStringLiteral("background: rgba(0, 0, 0, 180); color: white; font-size: 24pt; "
                                 "padding: 12px; border-radius: 8px;"));
    hide();
    m_hide.setSingleShot(true);
    connect(&m_hide, &QTimer::timeout, this, &QWidget::hide);
}

void FlashNotice::Flash(const QString& text) {
    setText(text);
    adjustSize();
    const QWidget* window = parentWidget();
    move((window->width() - width()) / 2, (window->height() - height()) / 2);
    show();
    raise();
    m_hide.start(kShownMs);
}
