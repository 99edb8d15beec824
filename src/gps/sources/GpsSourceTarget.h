#pragma once

#include <QString>

struct MNPosition;

// What the source machinery needs from the document. Every call comes on the UI thread.
class GpsSourceTarget {
public:
    virtual ~GpsSourceTarget() = default;

    // One sentence with its line end: show it on the raw-data page, log it, interpret it and run
    // the epoch handling. (nullptr, 0) only clears the raw-data display before a source starts.
    virtual void HandleSentence(const char* pLine, int nLength) = 0;
    // A failure of the source ("Unable to open the port: ..."), for the user.
    virtual void ShowSourceMessage(const QString& strText) = 0;
    // Before the source changes: clear the pending changes; with reset, also the tour figures.
    virtual void PrepareSourceChange(bool bResetStatistics) = 0;
    // The source `nIndex` (SourceTable) is selected and started. The fix takes the index; with
    // reset, a new log is opened unless the source is "Datei", and every page is redrawn. For
    // "Datei", `strFile` is the recorded file to open for viewing.
    virtual void SourceStarted(int nIndex, const QString& strFile, bool bResetStatistics) = 0;
    // A new position of the navigation program (only when position, speed or course moved).
    virtual void TakeNavigationPosition(const MNPosition& position) = 0;
    // The rest of the 973 ms supervision tick: refresh the periodic pages and run the epoch
    // handling with what is pending (which counts ticks without data and asks for a reconnect).
    virtual void SupervisionTick() = 0;
};
