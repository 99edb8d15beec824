#pragma once

#include <QString>

class DeviceRoot;

// The host path of the waypoint file: "Waypoints", or the default in the program folder, which is
// then written back.
QString WaypointFilePath(const DeviceRoot& root);
// Stores a file the user chose as the waypoint file.
void StoreWaypointFilePath(const QString& hostPath);
// Whether the splitter driver's simulation is on ("Simulate" under HKLM Drivers\BuiltIn\Vantrel).
bool VantrelSimulationOn();
