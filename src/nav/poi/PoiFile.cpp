#include "nav/poi/PoiFile.h"

#include "nav/poi/AscReader.h"
#include "nav/poi/Ov2Reader.h"
#include "nav/poi/PoiName.h"
#include "nav/poi/PoiSort.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

QString PoiFile::path() const {
    return QDir(m_strFolder).filePath(m_strName);
}

QByteArray ReadPoiName(const PoiFile& file, const PoiEntry& entry) {
    return ReadPoiNames(file.path(), {entry.m_nNameOffset}).front();
}

std::vector<PoiEntry> ReadPoiEntries(QByteArrayView bytes, const QString& fileName, PoiReading reading) {
    if (fileName.endsWith(QLatin1String(".ov2"), Qt::CaseInsensitive)) return ReadOv2(bytes, reading);
    return ReadAsc(bytes, reading);
}

int LoadPoiFile(PoiFile& file) {
    file.m_entries.clear();
    QFile in(file.path());
    if (!in.open(QIODevice::ReadOnly)) {
        file.m_entries.shrink_to_fit();
        return 0;
    }
    // Read at once into a buffer of the file's size: growing one as the data comes copies it again and
    // again, which for a file of a million points costs more than reading it.
    QByteArray bytes(in.size(), Qt::Uninitialized);
    bytes.truncate(std::max<qint64>(in.read(bytes.data(), bytes.size()), 0));
    file.m_entries = ReadPoiEntries(bytes, file.m_strName, PoiReading::AsListed);
    SortByLongitude(file.m_entries);
    file.m_entries.shrink_to_fit();
    return static_cast<int>(file.m_entries.size());
}

QImage LoadPoiIcon(const PoiFile& file, uint8_t poiSize) {
    const QDir folder(file.m_strFolder);
    QString name = QFileInfo(file.m_strName).completeBaseName() + QLatin1String(".bmp");
    if (!folder.exists(name)) name.replace('_', ' ');
    QImage icon(folder.filePath(name));
    if (!icon.isNull() && poiSize != 0 && poiSize != icon.height())
        icon = icon.scaled(poiSize, poiSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return icon;
}
