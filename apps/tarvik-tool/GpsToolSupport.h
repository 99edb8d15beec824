#pragma once

#include "ToolContext.h"
#include "platform/DeviceClock.h"

#include <QByteArrayView>
#include <QFile>

#include <optional>
#include <string_view>
#include <vector>

// The clock of the GPS commands: fixed at `--now` (ISO 8601) when given, else at the machine's
// time of the start. A command never sets the machine's clock: requests are only recorded.
// Nothing when `--now` is no date and time.
std::optional<FixedDeviceClock> commandClock(const QString& nowOption);
// The one-line problem of an unreadable --now.
QString nowProblem(const ToolOptions& options);

// Whether other talkers' sentences are read as GPS ones: "--set AcceptAllTalkers=0|1" for this run
// (the commands that only read a log never change the settings), else the stored setting. Nothing,
// with the problem, for another --set.
std::optional<bool> acceptAllTalkers(const ToolOptions& options, QString& problem);

// A recorded NMEA log as the replaying commands read it: mapped rather than read (a day's log is
// replayed in less time than copying it would take), decoded when it starts with a byte order mark.
class RecordedLog {
public:
    explicit RecordedLog(const QString& path);
    bool ok() const { return m_bOk; }
    QByteArrayView bytes() const { return m_view; }

private:
    QFile m_file;
    QByteArray m_copy;
    QByteArrayView m_view;
    bool m_bOk = false;
};

// Writes CSV rows of plain fields (numbers, times, names without commas) to stdout in large
// blocks: a long log gives a long table, and its output must not cost more than its reading.
class CsvBlockWriter {
public:
    explicit CsvBlockWriter(ToolContext& ctx);
    ~CsvBlockWriter();
    CsvBlockWriter(const CsvBlockWriter&) = delete;
    CsvBlockWriter& operator=(const CsvBlockWriter&) = delete;

    CsvBlockWriter& text(std::string_view field);
    CsvBlockWriter& integer(long long value);
    CsvBlockWriter& number(double value); // shortest text that reads back to the same double
    CsvBlockWriter& number(float value);  // shortest text that reads back to the same float
    CsvBlockWriter& localTime(int64_t localSeconds, int32_t localOffset); // ISO 8601 with offset
    void endRow();

private:
    // Room for `length` bytes of the next field, behind its separator.
    char* startField(size_t length);
    void flush();

    std::vector<char> m_buffer;
    size_t m_nUsed = 0;
    bool m_bRowStarted = false;
};
