#include "nav/waypoints/WaypointList.h"

#include "nav/waypoints/WaypointImport.h"

void CWaypointList::Load(const QString& path) {
    m_strPath = path;
    m_nCurrent.reset();
    m_items = LoadWaypointFile(path);
    Q_EMIT changed();
}

void CWaypointList::Append(const Waypoint& waypoint) {
    m_items.push_back(waypoint);
    Save();
}

void CWaypointList::RemoveCurrent() {
    if (!m_nCurrent) return;
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(*m_nCurrent));
    m_nCurrent.reset();
    Save();
}

Waypoints CWaypointList::Import(QByteArrayView bytes) {
    const Waypoints added = ImportWaypoints(bytes, m_items);
    Save();
    return added;
}

Waypoints CWaypointList::Merge(const Waypoints& incoming) {
    const Waypoints added = MergeWaypoints(incoming, m_items);
    Save();
    return added;
}

void CWaypointList::SetCurrent(std::optional<size_t> index) {
    if (index && *index >= m_items.size()) index.reset();
    if (index == m_nCurrent) return;
    m_nCurrent = index;
    Q_EMIT changed();
}

void CWaypointList::Save() {
    SaveWaypointFile(m_strPath, m_items); // a failed write is silent
    Q_EMIT changed();
}
