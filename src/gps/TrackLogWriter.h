#pragma once

#include "platform/DeviceRoot.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <cstdio>
#include <vector>

class DeviceClock;

// Records the sentences of a live run into one file per run in "LogDirectory", named after the
// local time of opening ("2006-05-14_09-31.txt"). The file starts with a 266-byte header line
// whose 256 spaces the logbook fills in later, in place; then the sentences follow as received,
// thinned to one sentence per type every "LogDelay" seconds. Flushed at the first write of every
// new local minute, and by the document's tick when a minute has turned with sentences waiting, so
// a power loss or a killed process loses at most the last minute.
class TrackLogWriter {
public:
    static constexpr int kTypeNameLength = 6; // "$GPGGA"
    static constexpr int kReservedHeaderSpace = 256;

    TrackLogWriter(const DeviceRoot& root, const DeviceClock& clock);
    ~TrackLogWriter();
    TrackLogWriter(const TrackLogWriter&) = delete;
    TrackLogWriter& operator=(const TrackLogWriter&) = delete;

    // Closes the current file and starts the next one with the settings "LogDelay", "LogType"
    // and "LogDirectory". False when logging is off ("LogDelay" -1) or the file cannot be
    // created; logging then stays off until the next open.
    bool open();
    void close();

    // One sentence with its line end. Written when its type is in the table and its type's delay
    // has run out; dropped otherwise, and when no file can be opened.
    void writeSentence(const char* line, int length);
    // Writes the buffered sentences out when the local minute has changed since the last flush.
    void flushWhenMinuteTurned();

    // Reopens the current path for update at its end, after a short write or when a sentence
    // comes with no file open. Does nothing without a path.
    bool ReopenLog();

    bool isOpen() const { return m_pFile != nullptr; }
    // Host path of the current file; empty while logging is off.
    const QString& path() const { return m_strPath; }
    // Why sentences were lost (the first failure to create or write a file); empty while none were.
    const QString& failure() const { return m_strFailure; }

    // "$Tarvik," with the reserved spaces and "\r\n".
    static QByteArray headerLine();
    // "2006-05-14_09-31.txt" for local seconds since 1970.
    static QString fileName(int64_t localSeconds);

private:
    struct LoggedType {
        char m_szName[kTypeNameLength];
        int m_nNameLength;
        int64_t m_tNextTime; // local seconds before which no sentence of this type is written
    };
    void buildTypeTable(QString logType, int64_t now);
    LoggedType* findType(const char* line, int length);
    bool createFile(int64_t now);
    void noteFailure(const char* what);

    DeviceRoot m_root;
    const DeviceClock& m_clock;
    std::vector<LoggedType> m_types;
    std::FILE* m_pFile = nullptr;
    QString m_strPath;
    QString m_strFailure;
    int32_t m_nLogDelay = 0;      // seconds between two sentences of one type
    int64_t m_nFlushedMinute = 0; // local minute of the last flush
    bool m_bUnflushed = false;    // sentences written since then
};
