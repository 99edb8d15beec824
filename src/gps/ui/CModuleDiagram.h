#pragma once

#include "gps/GpsFix.h"
#include "shell/ui/CPageView.h"

#include <vector>

class CFendixDoc;
class LinePlot;
class QComboBox;
class QLabel;
class QPushButton;

// The diagrams page: speed and altitude of the current run or of a chosen log over time or over
// distance, zoomed by pinching or the wheel and moved by dragging, with the figures of the run
// beside (wide screens) or below them.
class CModuleDiagram : public CPageView {
    Q_OBJECT
public:
    explicit CModuleDiagram(const CFendixDoc& doc, QWidget* parent = nullptr);
    void OnUpdate(uint16_t hint) override;
    // Shows a log file (host path) instead of the current run.
    void ShowLog(const QString& path);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FillChoices();
    void Load();
    void Draw();

    const CFendixDoc& m_doc;
    QComboBox* m_pChoice;
    QPushButton* m_pAxis;
    LinePlot* m_pSpeed;
    LinePlot* m_pAltitude;
    QLabel* m_pFigures;
    std::vector<TrackPoint> m_points;
    std::vector<double> m_km; // distance from the start at each point
    bool m_bOverDistance = false;
    int64_t m_tLoaded = 0; // fix time of the last reading of the current run
};
