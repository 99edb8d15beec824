#pragma once

#include "nav/waypoints/WaypointFile.h"

#include <QObject>
#include <optional>

// The GoTo page's list of waypoints and its file: read on page start and after the user chose another
// file, written whole after every change (save, delete, import). Keeps the current waypoint (none or
// one entry); `changed` tells the page to refresh its list and command states. Shared with the frame,
// whose "Speicher aktuelle Pos" appends to it.
class CWaypointList : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Empties the list, clears the current waypoint and reads the file at the host path (missing: empty).
    void Load(const QString& path);
    const QString& Path() const { return m_strPath; }
    const Waypoints& Items() const { return m_items; }

    // Appends a record and saves the file.
    void Append(const Waypoint& waypoint);
    // Removes the current waypoint (if any), clears it and saves.
    void RemoveCurrent();
    // Runs the free-form import over the bytes and saves; returns the records added.
    Waypoints Import(QByteArrayView bytes);
    // Appends the records not held yet (a GPX file's waypoints) and saves.
    Waypoints Merge(const Waypoints& incoming);

    std::optional<size_t> Current() const { return m_nCurrent; }
    // Selects an entry (out of range: none). Cleared whenever the target changes by other means.
    void SetCurrent(std::optional<size_t> index);
    bool CanPrevious() const { return m_nCurrent && *m_nCurrent > 0; }
    bool CanNext() const { return m_nCurrent && *m_nCurrent + 1 < m_items.size(); }

Q_SIGNALS:
    void changed();

private:
    void Save();

    QString m_strPath;
    Waypoints m_items;
    std::optional<size_t> m_nCurrent;
};
