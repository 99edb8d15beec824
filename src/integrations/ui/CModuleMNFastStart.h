#pragma once

#include "integrations/navbridge/DestinationHandOver.h"
#include "integrations/navbridge/QuickStartTargets.h"
#include "shell/ui/CPageView.h"

#include <functional>

class QVBoxLayout;

// "MN Schnellstart": one large button for each destination of "MNTarget.ini"; a tap hands it to the
// navigation program. A failed start shows the system's reason in a box titled "Last Error".
class CModuleMNFastStart : public CPageView {
    Q_OBJECT
public:
    struct Actions {
        std::function<HandOverResult(double lon, double lat, const QString& name)> navigate;
        std::function<bool(QString& error)> bringToFront;
    };
    CModuleMNFastStart(QString targetFile, Actions actions, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    // Reads the target file again (made with the default entry when missing).
    void Reload();

private:
    void Navigate(const QuickStartTarget& target);
    void ShowError(const QString& error);

    QString m_strTargetFile;
    Actions m_actions;
    QVBoxLayout* m_pTargets;
};
