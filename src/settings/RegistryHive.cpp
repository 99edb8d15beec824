#include "settings/RegistryHive.h"

#include <QDateTime>
#include <QFile>
#include <QUrl>
#include <cstdio>
#include <sqlite3.h>

namespace {

enum Statement {
    FindKey,
    InsertKey,
    GetValue,
    SetValue,
    DeleteValue,
    ValueNameAt,
    ValueNames,
    SubkeyNames,
    DeleteKey,
    HasSubkey,
    StatementCount
};

const char* const kStatementSql[StatementCount] = {
    "SELECT id FROM keys WHERE root=?1 AND path_lc=?2",
    "INSERT OR IGNORE INTO keys(root, path, path_lc, parent_lc) VALUES(?1, ?2, ?3, ?4)",
    "SELECT type, data FROM vals WHERE key_id=?1 AND name_lc=?2",
    "INSERT INTO vals(key_id, name, name_lc, type, data) VALUES(?1, ?2, ?3, ?4, ?5) "
    "ON CONFLICT(key_id, name_lc) DO UPDATE SET type=excluded.type, data=excluded.data",
    "DELETE FROM vals WHERE key_id=?1 AND name_lc=?2",
    "SELECT name FROM vals WHERE key_id=?1 ORDER BY id LIMIT 1 OFFSET ?2",
    "SELECT name FROM vals WHERE key_id=?1 ORDER BY id",
    "SELECT path FROM keys WHERE root=?1 AND parent_lc=?2 ORDER BY id",
    "DELETE FROM keys WHERE id=?1",
    "SELECT 1 FROM keys WHERE root=?1 AND parent_lc=?2 LIMIT 1",
};

const char* const kSchema = R"(
CREATE TABLE IF NOT EXISTS keys(
    id INTEGER PRIMARY KEY, root INTEGER NOT NULL, path TEXT NOT NULL, path_lc TEXT NOT NULL,
    parent_lc TEXT, UNIQUE(root, path_lc));
CREATE INDEX IF NOT EXISTS keys_parent ON keys(root, parent_lc);
CREATE TABLE IF NOT EXISTS vals(
    id INTEGER PRIMARY KEY, key_id INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
    name TEXT NOT NULL, name_lc TEXT NOT NULL, type INTEGER NOT NULL, data BLOB NOT NULL,
    UNIQUE(key_id, name_lc));
INSERT OR IGNORE INTO keys(root, path, path_lc, parent_lc) VALUES(1, '', '', NULL), (2, '', '', NULL);
)";

std::shared_ptr<RegistryHive>& currentHive() {
    static std::shared_ptr<RegistryHive> hive;
    return hive;
}

// "\a\\b\" -> "a\b": the registry ignores empty components at the ends; inside they are dropped too.
QString normalisedPath(const QString& path) {
    return path.split('\\', Qt::SkipEmptyParts).join('\\');
}

void bindText(sqlite3_stmt* st, int index, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(st, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

QString columnText(sqlite3_stmt* st, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, column)),
                             sqlite3_column_bytes(st, column));
}

// Resets the statement when the scope ends, so that no read transaction stays open.
struct StatementScope {
    sqlite3_stmt* st;
    ~StatementScope() {
        if (st) {
            sqlite3_reset(st);
            sqlite3_clear_bindings(st);
        }
    }
};

bool execAll(sqlite3* db, const char* sql) {
    return sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

} // namespace

RegistryHive::RegistryHive(const QString& file, Access access) {
    if (access == Access::ReadOnly) {
        if (!QFile::exists(file)) {
            openEmpty();
        } else if (openForReading(file) != OpenResult::Ok) {
            closeDb();
            std::fprintf(stderr, "tarvik: cannot read settings file %s; reading it as empty\n",
                         qPrintable(file));
            openEmpty();
        }
        return;
    }
    OpenResult result = openFile(file);
    if (result == OpenResult::Ok) {
        m_bWritable = true;
        return;
    }
    closeDb();
    if (result == OpenResult::Damaged && QFile::exists(file)) {
        const QString aside = file + ".damaged-" + QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
        if (QFile::rename(file, aside)) {
            for (const char* suffix : {"-wal", "-shm"})
                QFile::rename(file + suffix, aside + suffix);
            m_strSetAside = aside;
            std::fprintf(stderr, "tarvik: settings file %s is damaged; kept as %s, starting with defaults\n",
                         qPrintable(file), qPrintable(aside));
            if (openFile(file) == OpenResult::Ok) {
                m_bWritable = true;
                return;
            }
            closeDb();
        }
    }
    // Not writable here: what is stored still reads, and writes fail loudly instead of vanishing.
    if (QFile::exists(file) && openForReading(file) == OpenResult::Ok) return;
    closeDb();
    std::fprintf(stderr, "tarvik: cannot open settings file %s; settings cannot be saved\n",
                 qPrintable(file));
    openEmpty();
}

RegistryHive::~RegistryHive() {
    closeDb();
}

void RegistryHive::setCurrent(std::shared_ptr<RegistryHive> hive) {
    currentHive() = std::move(hive);
}

std::shared_ptr<RegistryHive> RegistryHive::current() {
    return currentHive();
}

RegistryHive::OpenResult RegistryHive::openFile(const QString& file) {
    const QByteArray name = file.toUtf8();
    if (sqlite3_open_v2(name.constData(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK)
        return OpenResult::Unavailable;
    sqlite3_busy_timeout(m_db, 10000);
    // WAL with NORMAL sync: a committed write is in the log file before the call returns, so a killed
    // process loses nothing, and a write costs a few tens of microseconds instead of an fsync.
    // Only a file that SQLite calls damaged is set aside; a locked or unreadable one is left alone.
    const auto failure = [this] {
        const int code = sqlite3_errcode(m_db) & 0xFF;
        return code == SQLITE_NOTADB || code == SQLITE_CORRUPT ? OpenResult::Damaged
                                                               : OpenResult::Unavailable;
    };
    if (!execAll(m_db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA foreign_keys=ON;"))
        return failure();
    sqlite3_stmt* check = nullptr;
    if (sqlite3_prepare_v2(m_db, "PRAGMA quick_check", -1, &check, nullptr) != SQLITE_OK) return failure();
    const int step = sqlite3_step(check);
    const bool healthy = step == SQLITE_ROW && columnText(check, 0) == QLatin1String("ok");
    sqlite3_finalize(check);
    if (step == SQLITE_ROW && !healthy) return OpenResult::Damaged;
    if (!healthy || !execAll(m_db, "BEGIN IMMEDIATE") || !execAll(m_db, kSchema) || !execAll(m_db, "COMMIT"))
        return failure();
    return prepareStatements() ? OpenResult::Ok : failure();
}

RegistryHive::OpenResult RegistryHive::openForReading(const QString& file) {
    // A WAL file that cannot get its shared-memory index (read-only folder) still opens with
    // "immutable", which reads the main file only; tried second, as it misses an unmerged log.
    for (const char* mode : {"mode=ro", "immutable=1"}) {
        closeDb();
        const QByteArray uri = "file:" + QUrl::toPercentEncoding(file, "/") + "?" + mode;
        if (sqlite3_open_v2(uri.constData(), &m_db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) !=
            SQLITE_OK)
            continue;
        sqlite3_busy_timeout(m_db, 10000);
        if (prepareStatements()) return OpenResult::Ok;
    }
    return OpenResult::Unavailable;
}

void RegistryHive::openEmpty() {
    closeDb();
    sqlite3_open_v2(":memory:", &m_db, SQLITE_OPEN_READWRITE, nullptr);
    execAll(m_db, kSchema);
    prepareStatements();
}

bool RegistryHive::prepareStatements() {
    for (int i = 0; i < StatementCount; ++i)
        if (sqlite3_prepare_v3(m_db, kStatementSql[i], -1, SQLITE_PREPARE_PERSISTENT, &m_statements[i],
                               nullptr) != SQLITE_OK)
            return false;
    // A read proves the file is a hive; preparing alone does not read it.
    sqlite3_stmt* st = m_statements[FindKey];
    StatementScope scope{st};
    sqlite3_bind_int(st, 1, int(RegistryRoot::CurrentUser));
    bindText(st, 2, QString());
    return sqlite3_step(st) == SQLITE_ROW;
}

bool RegistryHive::writeFailed() {
    if (!m_bWriteFailureReported && m_onWriteFailure) {
        m_bWriteFailureReported = true;
        m_onWriteFailure();
    }
    return false;
}

void RegistryHive::closeDb() {
    for (sqlite3_stmt*& st : m_statements) {
        sqlite3_finalize(st);
        st = nullptr;
    }
    sqlite3_close(m_db);
    m_db = nullptr;
}

sqlite3_stmt* RegistryHive::statement(int which) {
    return m_statements[which];
}

std::optional<int64_t> RegistryHive::findKey(RegistryRoot root, const QString& path) {
    std::lock_guard lock(m_mutex);
    sqlite3_stmt* st = statement(FindKey);
    if (!st) return std::nullopt;
    StatementScope scope{st};
    sqlite3_bind_int(st, 1, int(root));
    bindText(st, 2, normalisedPath(path).toLower());
    if (sqlite3_step(st) != SQLITE_ROW) return std::nullopt;
    return sqlite3_column_int64(st, 0);
}

std::optional<int64_t> RegistryHive::createKey(RegistryRoot root, const QString& path) {
    std::lock_guard lock(m_mutex);
    if (!m_bWritable) {
        if (const auto existing = findKey(root, path)) return existing;
        writeFailed();
        return std::nullopt;
    }
    if (!execAll(m_db, "BEGIN IMMEDIATE")) {
        writeFailed();
        return std::nullopt;
    }
    const QStringList parts = normalisedPath(path).split('\\', Qt::SkipEmptyParts);
    QString prefix;
    bool ok = true;
    for (const QString& part : parts) {
        const QString parentLc = prefix.toLower();
        prefix = prefix.isEmpty() ? part : prefix + '\\' + part;
        sqlite3_stmt* st = statement(InsertKey);
        StatementScope scope{st};
        sqlite3_bind_int(st, 1, int(root));
        bindText(st, 2, prefix);
        bindText(st, 3, prefix.toLower());
        bindText(st, 4, parentLc);
        ok = ok && sqlite3_step(st) == SQLITE_DONE;
    }
    if (!ok || !execAll(m_db, "COMMIT")) {
        execAll(m_db, "ROLLBACK");
        writeFailed();
        return std::nullopt;
    }
    return findKey(root, path);
}

bool RegistryHive::deleteKey(RegistryRoot root, const QString& path) {
    std::lock_guard lock(m_mutex);
    const QString normal = normalisedPath(path);
    const auto key = findKey(root, normal);
    if (normal.isEmpty() || !key) return false;
    if (!m_bWritable) return writeFailed();
    {
        sqlite3_stmt* st = statement(HasSubkey);
        StatementScope scope{st};
        sqlite3_bind_int(st, 1, int(root));
        bindText(st, 2, normal.toLower());
        if (sqlite3_step(st) == SQLITE_ROW) return false;
    }
    sqlite3_stmt* st = statement(DeleteKey);
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, *key);
    if (sqlite3_step(st) != SQLITE_DONE) return writeFailed();
    return sqlite3_changes(m_db) == 1;
}

bool RegistryHive::deleteTree(RegistryRoot root, const QString& path) {
    std::lock_guard lock(m_mutex);
    const QString normal = normalisedPath(path);
    for (const QString& sub : subkeyNames(root, normal))
        deleteTree(root, normal + '\\' + sub);
    return deleteKey(root, normal);
}

QStringList RegistryHive::subkeyNames(RegistryRoot root, const QString& path) {
    std::lock_guard lock(m_mutex);
    QStringList names;
    sqlite3_stmt* st = statement(SubkeyNames);
    if (!st) return names;
    StatementScope scope{st};
    sqlite3_bind_int(st, 1, int(root));
    bindText(st, 2, normalisedPath(path).toLower());
    while (sqlite3_step(st) == SQLITE_ROW)
        names << columnText(st, 0).section('\\', -1);
    return names;
}

std::optional<RegistryValue> RegistryHive::value(int64_t key, const QString& name) {
    std::lock_guard lock(m_mutex);
    sqlite3_stmt* st = statement(GetValue);
    if (!st) return std::nullopt;
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, key);
    bindText(st, 2, name.toLower());
    if (sqlite3_step(st) != SQLITE_ROW) return std::nullopt;
    RegistryValue result;
    result.type = static_cast<RegistryType>(sqlite3_column_int(st, 0));
    result.data =
        QByteArray(static_cast<const char*>(sqlite3_column_blob(st, 1)), sqlite3_column_bytes(st, 1));
    return result;
}

bool RegistryHive::setValue(int64_t key, const QString& name, const RegistryValue& value) {
    std::lock_guard lock(m_mutex);
    if (!m_bWritable) return writeFailed();
    sqlite3_stmt* st = statement(SetValue);
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, key);
    bindText(st, 2, name);
    bindText(st, 3, name.toLower());
    sqlite3_bind_int(st, 4, int(value.type));
    sqlite3_bind_blob(st, 5, value.data.constData(), int(value.data.size()), SQLITE_TRANSIENT);
    return sqlite3_step(st) == SQLITE_DONE || writeFailed();
}

bool RegistryHive::deleteValue(int64_t key, const QString& name) {
    std::lock_guard lock(m_mutex);
    if (!m_bWritable) return value(key, name) ? writeFailed() : false;
    sqlite3_stmt* st = statement(DeleteValue);
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, key);
    bindText(st, 2, name.toLower());
    if (sqlite3_step(st) != SQLITE_DONE) return writeFailed();
    return sqlite3_changes(m_db) == 1;
}

std::optional<QString> RegistryHive::valueNameAt(int64_t key, int index) {
    std::lock_guard lock(m_mutex);
    sqlite3_stmt* st = statement(ValueNameAt);
    if (!st || index < 0) return std::nullopt;
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, key);
    sqlite3_bind_int(st, 2, index);
    if (sqlite3_step(st) != SQLITE_ROW) return std::nullopt;
    return columnText(st, 0);
}

QStringList RegistryHive::valueNames(int64_t key) {
    std::lock_guard lock(m_mutex);
    QStringList names;
    sqlite3_stmt* st = statement(ValueNames);
    if (!st) return names;
    StatementScope scope{st};
    sqlite3_bind_int64(st, 1, key);
    while (sqlite3_step(st) == SQLITE_ROW)
        names << columnText(st, 0);
    return names;
}
