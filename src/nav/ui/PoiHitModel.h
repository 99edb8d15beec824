#pragma once

#include "nav/poi/NearestPois.h"

#include <QAbstractTableModel>
#include <vector>

// The nearest-POI list as a table of three columns: "km", " " (the course) and "Name". The rows are
// the hits in the order given; sorting is the page's.
class PoiHitModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Distance, Course, Name, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;
    void setHits(std::vector<PoiHit> hits);
    const std::vector<PoiHit>& hits() const { return m_hits; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<PoiHit> m_hits;
};
