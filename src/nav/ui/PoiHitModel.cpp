#include "nav/ui/PoiHitModel.h"

#include "nav/poi/PoiName.h"

#include <array>

namespace {

// The course as an arrow of its eighth of the compass, readable at a glance, and its degrees.
QString courseText(int degrees) {
    static const std::array<const char16_t*, 8> arrows = {u"↑", u"↗", u"→", u"↘", u"↓", u"↙", u"←", u"↖"};
    const int eighth = ((degrees % 360 + 360) % 360 * 2 + 45) / 90 % 8;
    return QString::fromUtf16(arrows[eighth]) + QStringLiteral(" %1°").arg(degrees);
}

} // namespace

void PoiHitModel::setHits(std::vector<PoiHit> hits) {
    beginResetModel();
    m_hits = std::move(hits);
    endResetModel();
}

int PoiHitModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_hits.size());
}

int PoiHitModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PoiHitModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const PoiHit& hit = m_hits[size_t(index.row())];
    if (role == Qt::TextAlignmentRole)
        return index.column() == Name ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                                      : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    switch (index.column()) {
    case Distance:
        return QString::asprintf("%.2f", hit.m_dDistance);
    case Course:
        return courseText(hit.m_nCourse);
    default:
        return PoiNameText(hit.m_name);
    }
}

QVariant PoiHitModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Distance:
        return QStringLiteral("km");
    case Course:
        return QStringLiteral(" ");
    default:
        return QStringLiteral("Name");
    }
}
