#include "maps/MapCacheFile.h"

#include "maps/MapCalibration.h"
#include "maps/MapPaths.h"
#include "settings/CIniFile.h"

#include <QHash>

namespace {

QString mapSection(qsizetype index) {
    return QStringLiteral("Map_%1").arg(index);
}

QString numbered(const char* key, int index) {
    return QLatin1String(key) + QString::number(index);
}

// The sections of a large cache by name, so that each lookup does not scan the whole file. The first
// header of a name counts, as CIniFile's own lookup does.
class CSectionIndex {
public:
    explicit CSectionIndex(const CIniFile& ini) : m_ini(ini) {
        const QStringList& lines = ini.Lines();
        for (int i = 0; i < lines.size(); ++i) {
            const QString& line = lines[i];
            if (line.size() > 2 && line.startsWith('[') && line.endsWith(']'))
                m_headers.insert(line.mid(1, line.size() - 2), i); // insert keeps the first
        }
    }

    bool Read(const QString& section, const QString& key, QString& value) const {
        const auto header = m_headers.constFind(section);
        return header != m_headers.cend() && m_ini.FindKey(header.value() + 1, key, value) >= 0;
    }

private:
    const CIniFile& m_ini;
    QHash<QString, int> m_headers;
};

} // namespace

namespace MapCacheFile {

void Read(const CIniFile& cache, const QString& folder,
          const std::function<void(std::unique_ptr<MapCalibration>)>& take) {
    const CSectionIndex sections(cache);
    for (qsizetype i = 0;; ++i) {
        const QString section = mapSection(i);
        QString bitmap, sizeText;
        if (!sections.Read(section, QStringLiteral("Bitmap"), bitmap) ||
            !sections.Read(section, QStringLiteral("Size"), sizeText))
            break;
        Point pixels[MapCalibration::kMaxPoints];
        double lons[MapCalibration::kMaxPoints], lats[MapCalibration::kMaxPoints];
        int count = 0;
        for (QString pixel, lon, lat; count < MapCalibration::kMaxPoints; ++count) {
            if (!sections.Read(section, numbered("Pixel_", count), pixel) ||
                !sections.Read(section, numbered("Long_", count), lon) ||
                !sections.Read(section, numbered("Lat_", count), lat))
                break;
            // The text forms of CIniFile's point and double readers.
            pixels[count] = ValueText::parsePoint(pixel);
            lons[count] = ValueText::wcstod(lon.replace(',', '.'));
            lats[count] = ValueText::wcstod(lat.replace(',', '.'));
        }
        if (count < 2) continue;
        auto map = std::make_unique<MapCalibration>(folder + bitmap);
        map->SetMapSize(ValueText::parseSize(sizeText));
        map->SetPoints(count, pixels, lons, lats);
        take(std::move(map));
    }
}

bool Write(const QString& cachePath, const std::vector<std::unique_ptr<MapCalibration>>& maps) {
    // Section by section, each key new to its section going directly below the header: so each
    // section is written last key first, and the sections are joined.
    QByteArray bytes;
    for (size_t i = 0; i < maps.size(); ++i) {
        const MapCalibration& map = *maps[i];
        const QString section = mapSection(qsizetype(i));
        CIniFile part;
        for (int j = map.PointCount() - 1; j >= 0; --j) {
            double lon, lat;
            map.GetPointGeo(j, lon, lat);
            part.WriteDouble(section, numbered("Lat_", j), lat);
            part.WriteDouble(section, numbered("Long_", j), lon);
            part.WritePoint(section, numbered("Pixel_", j), map.GetPointPixel(j));
        }
        part.WriteSize(section, QStringLiteral("Size"), map.MapSize());
        part.WriteString(section, QStringLiteral("Bitmap"), MapPaths::FileNamePart(map.MapFile()));
        bytes += part.ToBytes();
    }
    CIniFile cache;
    cache.LoadFromBytes(bytes);
    return cache.Save(cachePath);
}

} // namespace MapCacheFile
