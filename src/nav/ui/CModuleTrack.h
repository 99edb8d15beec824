#pragma once

#include "nav/track/TrackFiles.h"
#include "shell/ui/CPageView.h"

#include <functional>

class CGoToTarget;
class CMeasurement;
class QLabel;
class QMenu;
class QTreeWidget;

// The track page ("Track"): one editable track, opened from a ".tk" file, a recorded log (".txt") or
// GPX, listed with index, longitude, latitude and the running km, edited through its menu (also on a
// right tap of the list) and saved as ".tk" or GPX. The "Track" setting names the file loaded at start.
class CModuleTrack : public CPageView {
    Q_OBJECT
public:
    using ChooseFile =
        std::function<QString(const QString& title, const QString& start, const QString& filter, bool bSave)>;
    CModuleTrack(const CGoToTarget& target, LogPositionReader readLog, ChooseFile chooseFile = {},
                 QWidget* parent = nullptr);

    void OnUpdate(uint16_t) override {}

    // Empties the track and reads the file (host path); stores it in "Track". False when unreadable.
    bool Open(const QString& path);
    // Writes to the path in "Track" (asks for one when there is none); "Could not write file" on failure.
    void Save();
    void SaveAs();
    void DeleteSelected();
    void DeleteAll();
    // The GoTo target before the first selected entry, or at the end when nothing is selected.
    void InsertGoToTarget();
    // The points of the map's measurement, placed as the GoTo target is; enabled once it is given.
    void SetMeasurement(const CMeasurement* pMeasurement);
    void InsertMeasurement();
    QAction* Command(const QString& text) const;

    const TrackVertices& Track() const { return m_track; }
    QTreeWidget* List() const { return m_pList; }

Q_SIGNALS:
    // The map redraws the track.
    void trackChanged();

private:
    void OpenChosen();
    bool WriteTo(const QString& path);
    void Rebuild();
    void InsertPoints(const TrackVertices& points);

    const CGoToTarget& m_target;
    const CMeasurement* m_pMeasurement = nullptr;
    LogPositionReader m_readLog;
    ChooseFile m_chooseFile;
    TrackVertices m_track;
    QString m_strPath;
    QLabel* m_pPath;
    QTreeWidget* m_pList;
    QMenu* m_pMenu;
};
