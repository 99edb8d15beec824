#pragma once

#include <QObject>
#include <QString>

// The one navigation target of the program: a position with a name. It counts as set only while both
// coordinates are non-zero; a target on the equator or the prime meridian is kept but treated as none.
// Lives on the UI thread; the GoTo page, the speed page, the track page and a destination handed over
// from outside share it.
class CGoToTarget : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Longitude and latitude in degrees. Announces `changed` even when the values are the same: a new
    // choice of the same place is still a new target (the simulation text is sent again).
    void SetTarget(double dLon, double dLat, const QString& strName);
    // False when no target is set; the coordinates are given all the same.
    bool GetTarget(double& dLon, double& dLat) const;
    const QString& Name() const { return m_strName; }

Q_SIGNALS:
    void changed();

private:
    double m_dLon = 0;
    double m_dLat = 0;
    QString m_strName;
};
