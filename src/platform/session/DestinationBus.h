#pragma once

#include <QObject>
#include <QString>
#include <functional>

// A destination handed to the running Tarvik over the session D-Bus: service "org.tarvik.Tarvik",
// object "/org/tarvik/Tarvik", method SetTarget(double lon, double lat, string name); Target() tells the
// current one as "lon,lat,name" (empty while none is set).
class DestinationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tarvik.Tarvik")
public:
    static constexpr const char* kService = "org.tarvik.Tarvik";
    static constexpr const char* kPath = "/org/tarvik/Tarvik";
    static constexpr const char* kInterface = "org.tarvik.Tarvik";

    using Take = std::function<void(double lon, double lat, const QString& name)>;
    using Describe = std::function<QString()>;
    DestinationService(Take take, Describe describe, QObject* parent = nullptr);
    // Claims the service name on the session bus; false without a session bus or when another
    // Tarvik holds it already.
    bool Register();

    // A second start: hands the destination (degrees) to the Tarvik that holds the service; false
    // when none runs (or it did not answer within a few seconds).
    static bool SendToRunning(double lon, double lat, const QString& name);

public Q_SLOTS:
    Q_SCRIPTABLE void SetTarget(double lon, double lat, const QString& name);
    Q_SCRIPTABLE QString Target() const;

private:
    Take m_take;
    Describe m_describe;
};
