#pragma once

#include "shell/ui/CPageView.h"

#include <functional>
#include <optional>

class CFendixDoc;
class FittedLabel;
class SpeedBar;

// The speed page: the fix state, the speed in large digits, trip and tour averages and
// distances, a distance counter of its own (tap it to reset), a bar of the speed against the
// maximum, satellites and the time; "Ziel: %.02f km" while a GoTo target is set.
class CSpeedView : public CPageView {
    Q_OBJECT
public:
    // The distance (km) from the position to the GoTo target; nothing while no target is set.
    using TargetDistance = std::function<std::optional<double>()>;
    explicit CSpeedView(const CFendixDoc& doc, QWidget* parent = nullptr, TargetDistance targetDistance = {});
    void OnUpdate(uint16_t hint) override;
    // Sets the page's own distance counter to the trip distance now.
    void ResetCounter();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    double TripDistance() const;

    const CFendixDoc& m_doc;
    TargetDistance m_targetDistance;
    double m_dCounterStart = 0; // km: the trip distance at the last reset of the counter
    FittedLabel* m_pFixState;
    FittedLabel* m_pSpeed;
    FittedLabel* m_pAverage;
    FittedLabel* m_pTourAverage;
    FittedLabel* m_pDistance;
    FittedLabel* m_pTourDistance;
    FittedLabel* m_pCounter;
    FittedLabel* m_pStatus;
    FittedLabel* m_pTime;
    FittedLabel* m_pTarget;
    SpeedBar* m_pBar;
};
