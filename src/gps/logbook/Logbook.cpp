#include "gps/logbook/Logbook.h"

#include "gps/HeadlessReplay.h"
#include "platform/DeviceClock.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace Logbook {

namespace {

QByteArray readAll(const QString& path, QString& problem) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return {};
    }
    return file.readAll();
}

LogbookFields measure(const QByteArray& log, const QDateTime& start, const DeviceRoot& root) {
    const QDateTime clockStart = start.isValid() ? start : QDateTime::currentDateTime();
    FixedDeviceClock clock(clockStart.toSecsSinceEpoch(), clockStart.offsetFromUtc());
    const ReplaySummary summary = measureLog(root, clock, log);
    return {summary.m_stats.m_dRunDistance, summary.m_stats.m_nRunTime, {}};
}

// Rewrites the reserved area of a header that is still in the state `expected`.
bool writeArea(const QString& path, const QByteArray& area, LogHeader::State expected, QString& problem) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) { // never truncates
        problem = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    if (LogHeader::read(file.read(LogHeader::kLineSize)).m_state != expected) {
        problem = QStringLiteral("%1 changed while it was read; left as it is").arg(path);
        return false;
    }
    if (!file.seek(LogHeader::kReservedOffset) || file.write(area) != area.size() || !file.flush()) {
        problem = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

QString stateProblem(const QString& path, LogHeader::State state) {
    if (state == LogHeader::State::NoHeader)
        return QStringLiteral("%1 has no logbook header; its figures are not stored").arg(path);
    if (state == LogHeader::State::Foreign)
        return QStringLiteral("the header of %1 holds something else; left as it is").arg(path);
    return {};
}

QByteArray csvField(const QString& text) {
    QByteArray field = text.toUtf8();
    if (!field.contains(',') && !field.contains('"') && !field.contains('\n')) return field;
    return '"' + field.replace("\"", "\"\"") + '"';
}

} // namespace

QDateTime startFromName(const QString& fileName) {
    static const QRegularExpression kName(QStringLiteral("^(\\d+)-(\\d\\d)-(\\d\\d)_(\\d\\d)-(\\d\\d)\\.txt$"));
    const QRegularExpressionMatch match = kName.match(fileName);
    if (!match.hasMatch()) return {};
    const QDate date(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt());
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

LogbookEntry readEntry(const QString& path, const DeviceRoot& root, bool bFill) {
    LogbookEntry entry;
    entry.m_strPath = path;
    entry.m_strFileName = QFileInfo(path).fileName();
    entry.m_start = startFromName(entry.m_strFileName);
    const QByteArray log = readAll(path, entry.m_strProblem);
    if (!entry.m_strProblem.isEmpty()) return entry;
    const LogHeader::Reading header = LogHeader::read(log);
    entry.m_headerState = header.m_state;
    if (header.m_state == LogHeader::State::Filled) {
        entry.m_fields = header.m_fields;
        return entry;
    }
    entry.m_fields = measure(log, entry.m_start, root);
    entry.m_strProblem = stateProblem(path, header.m_state);
    if (header.m_state != LogHeader::State::Blank || !bFill) return entry;
    const std::optional<QByteArray> area = LogHeader::reservedArea(entry.m_fields, entry.m_strProblem);
    if (area && writeArea(path, *area, LogHeader::State::Blank, entry.m_strProblem))
        entry.m_headerState = LogHeader::State::Filled;
    return entry;
}

std::vector<LogbookEntry> list(const QString& folder, const DeviceRoot& root, bool bFill, const QString& inProgress) {
    std::vector<LogbookEntry> entries;
    const QDir dir(folder);
    for (const QString& name : dir.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name)) {
        const QString path = dir.filePath(name);
        entries.push_back(readEntry(path, root, bFill && QFileInfo(path) != QFileInfo(inProgress)));
    }
    return entries;
}

bool writeComment(const QString& path, const QString& comment, const DeviceRoot& root, QString& problem) {
    problem = LogHeader::commentProblem(comment);
    if (!problem.isEmpty()) return false;
    LogbookEntry entry = readEntry(path, root, false);
    if (entry.m_headerState != LogHeader::State::Blank && entry.m_headerState != LogHeader::State::Filled) {
        problem = entry.m_strProblem;
        return false;
    }
    entry.m_fields.m_strComment = comment;
    const std::optional<QByteArray> area = LogHeader::reservedArea(entry.m_fields, problem);
    return area && writeArea(path, *area, entry.m_headerState, problem);
}

QByteArray csv(const std::vector<LogbookEntry>& entries) {
    QByteArray table = "file,start,km,duration_s,comment\n";
    for (const LogbookEntry& entry : entries) {
        const QString start = entry.m_start.isValid() ? entry.m_start.toString(QStringLiteral("yyyy-MM-ddTHH:mm")) : QString();
        table += csvField(entry.m_strFileName) + ',' + start.toLatin1() + ',' +
                 QString::asprintf("%.1f", entry.m_fields.m_dKm).toLatin1() + ',' +
                 QByteArray::number(entry.m_fields.m_nSeconds) + ',' + csvField(entry.m_fields.m_strComment) + '\n';
    }
    return table;
}

} // namespace Logbook
