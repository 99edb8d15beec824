#include "gps/TrackLogWriter.h"

#include "gps/RecordingSettings.h"
#include "gps/sources/SourceSettings.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstring>

namespace {

constexpr size_t kFileBufferSize = 64 * 1024;
constexpr const char* kAlwaysLogged = "$GPGGA";

std::FILE* openFile(const QString& path, const char* mode) {
    std::FILE* file = std::fopen(QFile::encodeName(path).constData(), mode);
    if (file) std::setvbuf(file, nullptr, _IOFBF, kFileBufferSize);
    return file;
}

int64_t minuteOf(int64_t localSeconds) {
    return localSeconds >= 0 ? localSeconds / 60 : (localSeconds - 59) / 60;
}

} // namespace

TrackLogWriter::TrackLogWriter(const DeviceRoot& root, const DeviceClock& clock)
    : m_root(root), m_clock(clock) {}

TrackLogWriter::~TrackLogWriter() {
    close();
}

QByteArray TrackLogWriter::headerLine() {
    return QByteArray("$Tarvik,") + QByteArray(kReservedHeaderSpace, ' ') + QByteArray("\r\n");
}

QString TrackLogWriter::fileName(int64_t localSeconds) {
    // Local seconds read as UTC give the local calendar fields without asking the time zone.
    const QDateTime time = QDateTime::fromSecsSinceEpoch(localSeconds, Qt::UTC);
    return QString::asprintf("%d-%02d-%02d_%02d-%02d.txt", time.date().year(), time.date().month(),
                             time.date().day(), time.time().hour(), time.time().minute());
}

void TrackLogWriter::close() {
    // The last buffered sentences reach the disk here; a full disk shows only now.
    if (m_pFile && std::fclose(m_pFile) != 0) noteFailure("cannot write");
    m_pFile = nullptr;
}

void TrackLogWriter::noteFailure(const char* what) {
    if (m_strFailure.isEmpty())
        m_strFailure = QStringLiteral("%1 the track log %2: %3")
                           .arg(QLatin1String(what), m_strPath, QString::fromLocal8Bit(std::strerror(errno)));
}

bool TrackLogWriter::open() {
    close();
    CRegistryKey key;
    m_nLogDelay = readSetting(key, RecordingSettings::kLogDelay);
    if (m_nLogDelay == RecordingSettings::kLogDelayOff) {
        // Off means off: sentences must not be appended to the previous run's file.
        m_strPath.clear();
        return false;
    }
    const int64_t now = m_clock.localNow();
    buildTypeTable(readSetting(key, RecordingSettings::kLogType), now);
    return createFile(now);
}

void TrackLogWriter::buildTypeTable(QString logType, int64_t now) {
    m_types.clear();
    if (!logType.contains(QLatin1String(kAlwaysLogged)))
        logType = logType.isEmpty() ? QString::fromLatin1(kAlwaysLogged)
                                    : QLatin1String(kAlwaysLogged) + ',' + logType;
    for (const QString& part : logType.split(',')) {
        LoggedType type{};
        const QByteArray name = part.left(kTypeNameLength).toLatin1();
        std::memcpy(type.m_szName, name.constData(), static_cast<size_t>(name.size()));
        type.m_nNameLength = static_cast<int>(name.size());
        type.m_tNextTime = now;
        m_types.push_back(type);
    }
}

bool TrackLogWriter::createFile(int64_t now) {
    CRegistryKey key;
    QString directory = m_root.hostPath(readSetting(key, RecordingSettings::kLogDirectory));
    QDir().mkpath(directory);
    if (!directory.endsWith('/')) directory += '/';
    const QString path = directory + fileName(now);
    m_strPath.clear();
    m_pFile = openFile(path, "w+b");
    if (!m_pFile) {
        m_strPath = path;
        noteFailure("cannot create");
        m_strPath.clear();
        devLog("!!!!Cannot create log file %s", QFile::encodeName(path).constData());
        return false;
    }
    m_strPath = path;
    m_nFlushedMinute = minuteOf(now);
    m_bUnflushed = true;
    const QByteArray header = headerLine();
    if (std::fwrite(header.constData(), 1, static_cast<size_t>(header.size()), m_pFile) !=
        static_cast<size_t>(header.size()))
        ReopenLog();
    return isOpen();
}

// A name shorter than six characters never matches, as a six-character comparison with its end
// would not.
TrackLogWriter::LoggedType* TrackLogWriter::findType(const char* line, int length) {
    if (length < kTypeNameLength) return nullptr;
    for (LoggedType& type : m_types) {
        if (type.m_nNameLength == kTypeNameLength && std::memcmp(type.m_szName, line, kTypeNameLength) == 0)
            return &type;
    }
    return nullptr;
}

void TrackLogWriter::writeSentence(const char* line, int length) {
    if (!m_pFile && !ReopenLog()) return;
    LoggedType* type = findType(line, length);
    if (!type) return;
    const int64_t now = m_clock.localNow();
    if (type->m_tNextTime > now) return;
    type->m_tNextTime = now + m_nLogDelay;
    if (std::fwrite(line, 1, static_cast<size_t>(length), m_pFile) != static_cast<size_t>(length)) {
        noteFailure("cannot write");
        ReopenLog();
        return;
    }
    m_bUnflushed = true;
    flushWhenMinuteTurned();
}

void TrackLogWriter::flushWhenMinuteTurned() {
    if (!m_pFile || !m_bUnflushed) return;
    const int64_t minute = minuteOf(m_clock.localNow());
    if (minute == m_nFlushedMinute) return;
    if (std::fflush(m_pFile) != 0) noteFailure("cannot write");
    m_nFlushedMinute = minute;
    m_bUnflushed = false;
}

bool TrackLogWriter::ReopenLog() {
    if (m_strPath.isEmpty()) return false;
    close();
    m_pFile = openFile(m_strPath, "r+b");
    if (!m_pFile || std::fseek(m_pFile, 0, SEEK_END) != 0) {
        close();
        devLog("ReopenLog() failed!!!!!!");
        return false;
    }
    devLog("ReopenLog() !!!!!!");
    return true;
}
