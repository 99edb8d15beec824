#pragma once

#include "settings/RegistryValue.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

enum class RegistryRoot : int { CurrentUser = 1, LocalMachine = 2 };

// The registry as one SQLite file: a tree of keys per root, each with typed named values.
// Key paths and value names compare without regard to case and keep the case they were created
// with. Every write is committed before it returns (WAL, so it survives the process being killed),
// and several processes may use one file at the same time.
class RegistryHive {
public:
    enum class Access { ReadWrite, ReadOnly };

    // ReadWrite opens or creates the hive. A file that is not a readable hive is renamed aside
    // (never deleted), reported once on stderr, and a fresh hive is created in its place. A file
    // that cannot be written (read-only file system, full disk at creation) is opened for reading:
    // every stored value still reads, and every write fails.
    // ReadOnly never creates, moves or changes the file; a missing file reads as an empty hive.
    explicit RegistryHive(const QString& file, Access access = Access::ReadWrite);
    ~RegistryHive();
    RegistryHive(const RegistryHive&) = delete;
    RegistryHive& operator=(const RegistryHive&) = delete;

    // The hive that CRegistryKey objects use; set once by the program, the tool or a test.
    static void setCurrent(std::shared_ptr<RegistryHive> hive);
    static std::shared_ptr<RegistryHive> current();

    bool isOpen() const { return m_db != nullptr; }
    // False when writes cannot reach the file; they then fail instead of being kept in memory.
    bool isWritable() const { return m_bWritable; }
    // Called once, on the UI thread of whoever writes, at the first write that fails.
    void setWriteFailureHandler(std::function<void()> handler) { m_onWriteFailure = std::move(handler); }
    // Where a damaged file was moved to during opening; empty when nothing was moved.
    const QString& setAsidePath() const { return m_strSetAside; }

    // Key ids stay valid while the key exists. Paths are relative to the root, "\" separated;
    // the empty path is the root itself.
    std::optional<int64_t> findKey(RegistryRoot root, const QString& path);
    std::optional<int64_t> createKey(RegistryRoot root, const QString& path); // with missing parents
    bool deleteKey(RegistryRoot root, const QString& path);                   // fails while it has subkeys
    // Deletes the subkeys that can be deleted, then the key; the result is that of the key itself.
    bool deleteTree(RegistryRoot root, const QString& path);
    QStringList subkeyNames(RegistryRoot root, const QString& path);

    std::optional<RegistryValue> value(int64_t key, const QString& name);
    bool setValue(int64_t key, const QString& name, const RegistryValue& value);
    bool deleteValue(int64_t key, const QString& name);
    // Value names in the order they were first written.
    std::optional<QString> valueNameAt(int64_t key, int index);
    QStringList valueNames(int64_t key);

private:
    enum class OpenResult { Ok, Damaged, Unavailable };
    OpenResult openFile(const QString& file);
    OpenResult openForReading(const QString& file);
    void openEmpty();
    bool prepareStatements();
    void closeDb();
    sqlite3_stmt* statement(int which);
    bool writeFailed();

    sqlite3* m_db = nullptr;
    bool m_bWritable = false;
    bool m_bWriteFailureReported = false;
    std::function<void()> m_onWriteFailure;
    QString m_strSetAside;
    std::recursive_mutex m_mutex;
    sqlite3_stmt* m_statements[12] = {};
};
