#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

class CNavInfoBox;

// Keeps the information box over the navigation program's window: placed at "MNInfoRect" inside
// that window, moved with it, hidden while the window is gone or "MNInfo" is off. The text is the
// template "MNInfoText" expanded anew at each refresh.
class CNavOverlay : public QObject {
    Q_OBJECT
public:
    static constexpr int kFollowMs = 500;

    struct Services {
        std::function<std::optional<QRect>()> navWindowFrame; // on the screen; nothing while none
        std::function<QString(const QString&)> expand;        // the template language
    };
    explicit CNavOverlay(Services services, QObject* parent = nullptr);
    ~CNavOverlay() override;

    // Reads "MNInfo", "MNInfoText", "MNInfoRect" and the colours again.
    void LoadSettings();
    // Follows the window and refreshes the text once; the timer calls it every kFollowMs.
    void Refresh();
    CNavInfoBox& InfoBox() { return *m_pBox; }

private:
    Services m_services;
    std::unique_ptr<CNavInfoBox> m_pBox;
    QTimer m_follow;
    bool m_bOn = false;
    QString m_strTemplate;
    QRect m_inner;
};
