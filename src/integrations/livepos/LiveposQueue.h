#pragma once

#include <QString>
#include <QStringList>

class DeviceRoot;

// Send addresses whose send failed, kept in a text file of the device root (one address a line,
// oldest first) until the server answers again. Each change replaces the file whole (new file,
// then rename), so a process killed at any moment leaves the old or the new queue, never half of
// one. At most kCapacity entries: the oldest go first.
class LiveposQueue {
public:
    static constexpr int kCapacity = 1000;

    explicit LiveposQueue(QString hostPath);
    // "<root>/Tarvik/LiveposQueue.txt"
    static QString DefaultPath(const DeviceRoot& root);

    QStringList Entries() const; // oldest first
    bool Push(const QString& url);
    // The newest entry; false when the queue is empty.
    bool Latest(QString& url) const;
    // Drops the newest entry, after it was sent.
    bool PopLatest();

private:
    bool Save(const QStringList& entries) const;

    QString m_strPath;
};
