#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

class CNavElements;
class CNavInfoBox;

// Keeps Tarvik's windows over the navigation program's window, moved with it and hidden while it is
// gone: the information box at "MNInfoRect" while "MNInfo" is on, its text the template "MNInfoText"
// expanded anew at each refresh; and the element windows of "MNInfo.ini".
class CNavOverlay : public QObject {
    Q_OBJECT
public:
    static constexpr int kFollowMs = 500;

    struct Services {
        std::function<std::optional<QRect>()> navWindowFrame; // on the screen; nothing while none
        std::function<QString(const QString&)> expand;        // the template language
        // "MNInfo.ini" (a host path, empty for none) and the element list section the bridge supplies.
        std::function<std::pair<QString, QString>()> infoFile;
        std::function<void(const QString&)> onAction; // a tapped element's "Action"
    };
    explicit CNavOverlay(Services services, QObject* parent = nullptr);
    ~CNavOverlay() override;

    // Reads "MNInfo", "MNInfoText", "MNInfoRect", the colours and "MNInfo.ini" again.
    void LoadSettings();
    // Follows the window and refreshes the text once; the timer calls it every kFollowMs.
    void Refresh();
    CNavInfoBox& InfoBox() { return *m_pBox; }
    CNavElements& Elements() { return *m_pElements; }

private:
    // Loads "MNInfo.ini" again when another file or section is due, or when `bAlways`.
    void LoadElements(bool bAlways);

    Services m_services;
    std::unique_ptr<CNavInfoBox> m_pBox;
    std::unique_ptr<CNavElements> m_pElements;
    std::pair<QString, QString> m_infoFile;
    QTimer m_follow;
    bool m_bOn = false;
    QString m_strTemplate;
    QRect m_inner;
};
