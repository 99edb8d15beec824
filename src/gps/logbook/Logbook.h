#pragma once

#include "gps/logbook/LogHeader.h"

#include <QDateTime>
#include <QString>
#include <vector>

class DeviceRoot;

// One trip of the logbook: a log file with its start, distance, duration and comment.
struct LogbookEntry {
    QString m_strPath;     // host path
    QString m_strFileName; // "2006-05-14_09-31.txt"
    QDateTime m_start;     // local time from the file name; invalid when the name has another form
    LogbookFields m_fields;
    LogHeader::State m_headerState = LogHeader::State::NoHeader; // as the file is now
    QString m_strProblem; // why the figures are not stored in the file; empty when they are
};

// The logbook of trips over the log files. Distance and duration are the run distance and run
// time a replay of the log gives (HeadlessReplay's measureLog, with the settings of the current
// hive); they are computed once and written into the blank header of the log, in place: only the
// 256 reserved bytes change, never a byte of the sentences.
namespace Logbook {

// "%d-%02d-%02d_%02d-%02d.txt" as a local time; invalid for any other name.
QDateTime startFromName(const QString& fileName);

// One log. A blank or missing header is measured; with bFill the figures go into a blank header.
LogbookEntry readEntry(const QString& path, const DeviceRoot& root, bool bFill);

// Every "*.txt" of the folder, by file name. `inProgress` (the log being recorded) is measured
// but never filled: its trip is not over.
std::vector<LogbookEntry> list(const QString& folder, const DeviceRoot& root, bool bFill,
                               const QString& inProgress = {});

// Writes the comment into the header (measuring the trip first when the header is blank).
// False, with the reason, when the log has no header of its own, the header holds something
// else, the comment cannot be stored or the file cannot be written.
bool writeComment(const QString& path, const QString& comment, const DeviceRoot& root, QString& problem);

// The table of `tarvik-tool log list` and the logbook export: file,start,km,duration_s,comment.
QByteArray csv(const std::vector<LogbookEntry>& entries);

} // namespace Logbook
