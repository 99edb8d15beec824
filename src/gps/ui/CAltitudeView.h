#pragma once

#include "shell/ui/CPageView.h"

#include <QPointF>
#include <vector>

class CFendixDoc;
class FittedLabel;
class LinePlot;

// The altitude page: the altitude in large digits, the slope, minimum and maximum of the run, the
// altitude offset in use, and the altitude profile of the run over its distance.
class CAltitudeView : public CPageView {
    Q_OBJECT
public:
    explicit CAltitudeView(const CFendixDoc& doc, QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;

private:
    const CFendixDoc& m_doc;
    FittedLabel* m_pAltitude;
    FittedLabel* m_pGradient;
    FittedLabel* m_pExtremes;
    FittedLabel* m_pOffset;
    LinePlot* m_pProfile;
    std::vector<QPointF> m_profile; // km of the run, metres
    int64_t m_tLastSample = 0;
};
