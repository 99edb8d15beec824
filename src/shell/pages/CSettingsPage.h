#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QDoubleSpinBox;
class QLineEdit;
class QSpinBox;

// The page of general settings: volume, the program started with this one, power and priority, the clock
// and the heading threshold. Every change is written at once.
class CSettingsPage : public CPageView {
    Q_OBJECT
public:
    struct Actions {
        std::function<void()> volumeSettingsChanged; // re-read volume settings, update the volume
        std::function<void(bool)> noPowerdownChanged;
    };
    explicit CSettingsPage(Actions actions, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    void Load();

private:
    void WriteVolume();
    void WriteAutoStart();
    void BrowseAutoStart();

    Actions m_actions;
    QCheckBox* m_pSpeedVol;
    QSpinBox* m_pMinVol;
    QSpinBox* m_pMaxVol;
    QSpinBox* m_pMaxVolSpeed;
    QCheckBox* m_pAutoStart;
    QLineEdit* m_pAutoStartPath;
    QCheckBox* m_pPostNavi;
    QCheckBox* m_pDynaSound;
    QSpinBox* m_pDynaSoundValue;
    QCheckBox* m_pLowPriority;
    QCheckBox* m_pSetSystemTime;
    QCheckBox* m_pNoPowerdown;
    QLineEdit* m_pThresholdHeading;
    QCheckBox* m_pCleanIECache;
    QCheckBox* m_pCloseByTitleBar;
    bool m_bLoading = false;
};
