#pragma once

#include "gps/SatelliteTable.h"

#include <QWidget>
#include <vector>

// The sky seen from above: north up, the horizon as the outer ring, 30° and 60° elevation as inner
// rings; a satellite is a disc at its azimuth and elevation, filled when used in the fix, drawn
// hollow when only in view, with its PRN and a letter for its system (G GPS, S SBAS, R GLONASS,
// E Galileo, C BeiDou, J QZSS) in the colour of the system.
class SkyPlot : public QWidget {
public:
    explicit SkyPlot(QWidget* parent = nullptr);
    void setSatellites(std::vector<SatelliteInView> satellites);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<SatelliteInView> m_satellites;
};

// One bar per satellite in view, as high as its signal (0..50 dB-Hz), filled when used, with its
// system letter and PRN below.
class SignalBars : public QWidget {
public:
    explicit SignalBars(QWidget* parent = nullptr);
    void setSatellites(std::vector<SatelliteInView> satellites);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<SatelliteInView> m_satellites;
};

// The system's letter and colour, as GPS apps mark them.
QChar gnssLetter(GnssSystem system);
QColor gnssColor(GnssSystem system);
