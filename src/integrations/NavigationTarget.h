#pragma once

#include <QString>
#include <QStringList>

// What Tarvik knows of the navigation program's current destination. The bridge fills it when the
// navigation program reports one; until then it stays unknown and the places that show it stay empty.
struct NavigationTarget {
    bool bKnown = false;
    double dLong = 0.0;
    double dLat = 0.0;
    QString strName;
    QString strStreet;
    QString strTown;
    // The navigation program's text data, addressed by two numbers ("%Text:a,b%").
    QList<QStringList> textRows;

    QString Text(int nRow, int nColumn) const;
};
