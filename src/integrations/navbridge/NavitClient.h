#pragma once

#include "nav/GeoPosition.h"

#include <QString>
#include <optional>

class QDBusMessage;

// Navit over the session D-Bus: service "org.navit_project.navit", object
// "/org/navit_project/navit/default_navit", interface "org.navit_project.navit.navit". Every call
// gives up after the time-out, so a hanging Navit never blocks Tarvik.
class NavitClient {
public:
    static constexpr int kDefaultTimeoutMs = 2000;
    explicit NavitClient(int timeoutMs = kDefaultTimeoutMs) : m_nTimeoutMs(timeoutMs) {}

    // set_destination("geo: LON LAT", name): longitude first, degrees.
    bool SetDestination(double lon, double lat, const QString& name) const;
    // zoom(factor): 2 zooms in, -2 out.
    bool Zoom(int factor) const;
    // The centre of Navit's map: get_attr("center"), a position in Navit's own Mercator units;
    // nothing when Navit does not answer or answers in another projection.
    std::optional<GeoPosition> MapCentre() const;
    // The "geo: LON LAT" position text Navit reads.
    static QString GeoText(double lon, double lat);
    // What went wrong with the last call, one line; empty after a success.
    const QString& LastError() const { return m_strError; }

private:
    bool Call(const char* method, const QVariantList& arguments, QDBusMessage* pReply = nullptr) const;

    int m_nTimeoutMs;
    mutable QString m_strError;
};
