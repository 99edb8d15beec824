#pragma once

#include "settings/ValueText.h"
#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

// "MN AddOns": the navigation program's path, its start with Tarvik, the information box over it,
// the route point advance and the automatic announcements and TMC searches. Every change is
// written at once.
class CMNAddOnPage : public CPageView {
    Q_OBJECT
public:
    // `infoBoxChanged` is told after any setting of the information box changed.
    explicit CMNAddOnPage(std::function<void()> infoBoxChanged, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    void Load();

    static QString InfoWarning();

private:
    void WriteInfoBox();
    void BrowseProgram();
    void ChooseColour(QPushButton* button, const char* valueName);
    void ShowColour(QPushButton* button, const char* valueName);

    std::function<void()> m_infoBoxChanged;
    QLineEdit* m_pProgram;
    QCheckBox* m_pAutoStartMN;
    QCheckBox* m_pInfo;
    QLineEdit* m_pInfoText;
    QSpinBox* m_pRect[4];
    QPushButton* m_pColorBG;
    QPushButton* m_pColorText;
    QCheckBox* m_pNextWP;
    QSpinBox* m_pNextWPRadius;
    QCheckBox* m_pAnnouncement;
    QCheckBox* m_pZoomOut;
    QSpinBox* m_pAutoAnnouncement;
    QSpinBox* m_pAutoTmc;
    bool m_bLoading = false;
};
