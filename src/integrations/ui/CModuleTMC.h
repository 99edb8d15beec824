#pragma once

#include "shell/ui/CPageView.h"

class CTmcReceiver;
class QButtonGroup;
class QLabel;
struct TmcStatus;

// The page "Einstellungen TMC": the six station control modes and the receiver's state (status,
// station, "TMC alle: %d", the health counters "%d %d %d" and the seconds since the last update).
class CModuleTMC : public CPageView {
    Q_OBJECT
public:
    CModuleTMC(CTmcReceiver& receiver, const TmcStatus& status, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}

private:
    void ShowState();

    CTmcReceiver& m_receiver;
    const TmcStatus& m_status;
    QButtonGroup* m_pModes;
    QLabel* m_pStatus;
    QLabel* m_pStation;
    QLabel* m_pCount;
    QLabel* m_pHealth;
    QLabel* m_pAge;
};
