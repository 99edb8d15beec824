#include "integrations/livepos/LiveposQueue.h"

#include "platform/DeviceRoot.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

LiveposQueue::LiveposQueue(QString hostPath) : m_strPath(std::move(hostPath)) {}

QString LiveposQueue::DefaultPath(const DeviceRoot& root) {
    return QDir(root.programFolder()).filePath(QStringLiteral("LiveposQueue.txt"));
}

QStringList LiveposQueue::Entries() const {
    QFile file(m_strPath);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QStringList entries;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.trimmed().isEmpty()) entries << QString::fromUtf8(line.trimmed());
    return entries;
}

bool LiveposQueue::Save(const QStringList& entries) const {
    QDir().mkpath(QFileInfo(m_strPath).path());
    QSaveFile file(m_strPath);
    if (!file.open(QIODevice::WriteOnly)) return false;
    for (const QString& entry : entries)
        file.write(entry.toUtf8() + '\n');
    return file.commit();
}

bool LiveposQueue::Push(const QString& url) {
    QString entry = url;
    entry.replace(u'\n', u' ').replace(u'\r', u' ');
    if (entry.trimmed().isEmpty()) return false;
    QStringList entries = Entries();
    entries << entry.trimmed();
    while (entries.size() > kCapacity)
        entries.removeFirst();
    return Save(entries);
}

bool LiveposQueue::Latest(QString& url) const {
    const QStringList entries = Entries();
    if (entries.isEmpty()) return false;
    url = entries.last();
    return true;
}

bool LiveposQueue::PopLatest() {
    QStringList entries = Entries();
    if (entries.isEmpty()) return false;
    entries.removeLast();
    return Save(entries);
}
