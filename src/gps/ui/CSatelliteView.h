#pragma once

#include "shell/ui/CPageView.h"

class CFendixDoc;
class FittedLabel;
class SignalBars;
class SkyPlot;

// The satellites page: the sky view beside (wide screens) or above (narrow ones) the signal bars,
// and a line with fix quality, satellites used of those in view, and PDOP, HDOP and VDOP.
class CSatelliteView : public CPageView {
    Q_OBJECT
public:
    explicit CSatelliteView(const CFendixDoc& doc, QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    const CFendixDoc& m_doc;
    SkyPlot* m_pSky;
    SignalBars* m_pBars;
    FittedLabel* m_pFix;
    FittedLabel* m_pDop;
};
