#include "nav/goto/TargetNames.h"

QString TarvikPosName(const QDateTime& t) {
    return QString::asprintf("Tarvik Pos: %02d.%02d.%02d %02d:%02d", t.date().day(), t.date().month(),
                             t.date().year(), t.time().hour(), t.time().minute());
}

QString TarvikPosNameWithAltitude(const QDateTime& t, double altitudeMetres) {
    return TarvikPosName(t) + QString::asprintf(" (Altitude: %d m)", static_cast<int>(altitudeMetres));
}

QString MNClickName(const QDateTime& t) {
    return QString::asprintf("MN Position: (%02d.%02d.%02d %02d:%02d)", t.date().day(), t.date().month(),
                             t.date().year(), t.time().hour(), t.time().minute());
}
