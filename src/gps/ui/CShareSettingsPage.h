#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// "Datenweitergabe": whether and where the receiver's lines are passed on to other programs (the
// pseudo-terminal's link, the TCP server) and the speed of the simulated drive. Applying writes the
// settings under the splitter's key and restarts sharing; a failure shows in one line on the page.
class CShareSettingsPage : public CPageView {
    Q_OBJECT
public:
    // `apply` restarts sharing from the settings and returns an empty text or the failure.
    CShareSettingsPage(std::function<QString()> apply, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    void Load();
    void Apply();

private:
    std::function<QString()> m_apply;
    QCheckBox* m_pShare;
    QLineEdit* m_pPortLink;
    QComboBox* m_pTcpMode;
    QSpinBox* m_pTcpPort;
    QSpinBox* m_pSimulationSpeed;
    QLabel* m_pStatus;
};
