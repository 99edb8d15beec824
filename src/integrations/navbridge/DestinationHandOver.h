#pragma once

#include "integrations/navbridge/NavitClient.h"

#include <QString>
#include <QStringList>
#include <functional>

class DeviceRoot;

// What a hand-over did: the files written (host paths), the program line started (or that would be
// started), and why it failed.
struct HandOverResult {
    bool bOk = true;
    QStringList files;
    QString command;
    QString error;
};

// Hands one destination (degrees, longitude first) to the navigation program by its kind:
// MobileNavigator gets "Routenpunkte.ini" and "Routes\ Tarvik.rte" in its folder, TomTom an SDK file
// call, Falk and Marco Polo a start with "-e x,y" in Mercator metres, Navit a D-Bus call and the
// desktop's default a geo: link through xdg-open.
class DestinationHandOver {
public:
    // Starts a program detached; false with the system's error text when that fails.
    using StartProgram =
        std::function<bool(const QString& program, const QStringList& arguments, QString& error)>;

    struct Services {
        StartProgram start;                // empty: the command is only described
        std::function<void()> sdkCallSent; // after a TomTom file call, to start the clean-up
        NavitClient navit;
    };

    DestinationHandOver(const DeviceRoot& root, Services services);

    // `programPath` is the navigation program's system path ("\" separators).
    HandOverResult Navigate(int kind, const QString& programPath, double lon, double lat,
                            const QString& name) const;

    // The program and arguments that start `programPath` with `arguments`: a Windows .exe through
    // wine when wine is installed.
    static QStringList ProgramLine(const QString& hostProgram, const QStringList& arguments);
    // The desktop's geo: link, "geo:LAT,LON?q=NAME".
    static QString GeoUri(double lon, double lat, const QString& name);
    // Bridges QProcess::startDetached to StartProgram.
    static bool StartDetached(const QString& program, const QStringList& arguments, QString& error);

private:
    HandOverResult MobileNavigator(const QString& folder, double lon, double lat, const QString& name) const;
    HandOverResult FalkMarcoPolo(const QString& programPath, double lon, double lat) const;
    HandOverResult TomTom(double lon, double lat, const QString& name) const;
    HandOverResult Navit(double lon, double lat, const QString& name) const;
    HandOverResult Run(const QStringList& line) const;

    const DeviceRoot& m_root;
    Services m_services;
};
