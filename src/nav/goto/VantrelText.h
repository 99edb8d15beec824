#pragma once

#include <QByteArray>

// The splitter driver's in-band command for a target (degrees): "@Vantrel:Simulate=" with degrees and
// decimal minutes, "%02d%08.5f,%c,%03d%08.5f,%c" (a zero coordinate counts as south or west). With
// `bSimulate` off, the bare "@Vantrel:Simulate=" that ends the simulation.
QByteArray VantrelSimulationText(double lon, double lat, bool bSimulate);
