#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class CLiveposLookup;
class CLiveposSender;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct LiveposAnswer;

// The page "Livepos": the own account, the send interval, the send address (a Traccar server at
// the flip of a switch), the offline queue, and the look-up of another user's last position, which
// can become the GoTo target or the navigation program's destination. Leaving the page stores the
// fields and postpones the next send by one interval.
class CModuleLivepos : public CPageView {
    Q_OBJECT
public:
    struct Actions {
        // Switches to the GoTo page with the position as target (degrees) and the text as name.
        std::function<void(double lon, double lat, const QString& name)> setGoToTarget;
        // Hands the position to the navigation program; empty: the button stays off.
        std::function<void(double lon, double lat, const QString& name)> handToNavigation;
        std::function<void(const QString& url)> openBrowser;
    };
    CModuleLivepos(CLiveposSender& sender, Actions actions, QWidget* parent = nullptr);
    ~CModuleLivepos() override;
    void OnUpdate(uint16_t) override {}

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void Store();
    void GetPos();
    void ShowLookup(const QString& shown, const LiveposAnswer& answer);
    void ShowSendStatus();
    void UseTraccar(bool bOn);

    CLiveposSender& m_sender;
    Actions m_actions;
    CLiveposLookup* m_pLookup;
    QLineEdit* m_pNickName;
    QLineEdit* m_pPassword;
    QLineEdit* m_pComment;
    QCheckBox* m_pSend;
    QComboBox* m_pInterval;
    QLineEdit* m_pSendUrl;
    QCheckBox* m_pTraccar;
    QCheckBox* m_pQueue;
    QLabel* m_pStatus;
    QLineEdit* m_pSearchNickName;
    QLineEdit* m_pSearchPassword;
    QPushButton* m_pGetPos;
    QLabel* m_pResult;
    QPushButton* m_pToGoTo;
    QPushButton* m_pToNavigation;
    double m_dLong = 0;
    double m_dLat = 0;
    QString m_strText;
};
