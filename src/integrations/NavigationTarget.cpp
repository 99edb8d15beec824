#include "integrations/NavigationTarget.h"

QString NavigationTarget::Text(int nRow, int nColumn) const
{
    if (nRow < 0 || nRow >= textRows.size())
        return {};
    const QStringList& row = textRows.at(nRow);
    if (nColumn < 0 || nColumn >= row.size())
        return {};
    return row.at(nColumn);
}
