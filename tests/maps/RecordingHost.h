#pragma once

#include "maps/CMapCatalogue.h"

// A map view without a screen that shows a spot the test sets and records what the catalogue asks.
class CRecordingHost : public CMapViewHost {
public:
    MapViewSpot m_spot;
    QString m_strTitle, m_strStatus;
    int m_nFreeMemoryCalls = 0;
    MapCalibration* m_pDisplayed = nullptr;

    MapViewSpot ShownSpot() const override { return m_spot; }
    QSize ScreenSize() const override { return {320, 240}; }
    void DisplayMap(MapCalibration* map) override { m_pDisplayed = map; }
    void SetStatusText(const QString& text) override { m_strStatus = text; }
    void SetTitle(const QString& title) override { m_strTitle = title; }
    void FreeMemory() override { ++m_nFreeMemoryCalls; }
};
