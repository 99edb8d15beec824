// The ".kal" calibration file of a map: section "Map" with the size and the image's file name, one
// section "Calibration Point N" per point, and the older "Kalibrierung" section (bottom-left corner
// and two scales) that is still written for older readers.
#include "maps/MapCalibration.h"
#include "maps/MapPaths.h"
#include "settings/CIniFile.h"

namespace {

const QString kMapSection = QStringLiteral("Map");
const QString kOldSection = QStringLiteral("Kalibrierung");

QString pointSection(int number) {
    return QStringLiteral("Calibration Point %1").arg(number);
}

bool resolvePath(const QString& path, const QString& mapFile, QString& resolved) {
    resolved = path.isEmpty() ? MapPaths::CalibrationPathFor(mapFile) : path;
    return !resolved.isEmpty();
}

} // namespace

bool MapCalibration::LoadCalibration(const QString& path) {
    QString kalPath;
    if (!resolvePath(path, m_strMapFile, kalPath)) return false;
    CIniFile ini;
    return ini.Load(kalPath) && LoadCalibrationFrom(ini, kalPath);
}

bool MapCalibration::LoadCalibrationFrom(CIniFile& ini, const QString& kalPath) {
    Size size;
    const bool hasSize = ini.ReadSize(kMapSection, QStringLiteral("Size"), size);
    if (hasSize) SetMapSize(size);
    QString bitmap;
    const bool hasBitmap = ini.ReadString(kMapSection, QStringLiteral("Bitmap"), bitmap);
    if (hasBitmap && m_strMapFile.isEmpty()) m_strMapFile = MapPaths::DirectoryPart(kalPath) + bitmap;

    // A missing or incomplete point section is skipped; the later points close the gap.
    m_nPoints = 0;
    Changed();
    for (int number = 1; number <= kMaxPoints; ++number) {
        const QString section = pointSection(number);
        if (ini.ReadPoint(section, QStringLiteral("Pixel"), m_points[m_nPoints]) &&
            ini.ReadDouble(section, QStringLiteral("Latitude"), m_dPointLat[m_nPoints]) &&
            ini.ReadDouble(section, QStringLiteral("Longitude"), m_dPointLong[m_nPoints]))
            ++m_nPoints;
    }
    if (m_nPoints >= 2 && hasSize && hasBitmap && Fit()) return true;

    // The older layout; its size comes from the "Map" section or from the decoded image.
    if (m_size.cx == 0 || m_size.cy == 0) return false;
    double offBreite, offLaenge, scaleX, scaleY;
    if (!ini.ReadDouble(kOldSection, QStringLiteral("OffBreite"), offBreite) ||
        !ini.ReadDouble(kOldSection, QStringLiteral("OffLaenge"), offLaenge) ||
        !ini.ReadDouble(kOldSection, QStringLiteral("ScaleX"), scaleX) ||
        !ini.ReadDouble(kOldSection, QStringLiteral("ScaleY"), scaleY))
        return false;
    SetPoint(0, Point{0, m_size.cy}, offLaenge, offBreite);
    SetPoint(1, Point{m_size.cx, 0}, offLaenge + m_size.cx / scaleX, offBreite + m_size.cy / scaleY);
    if (!Verify()) return false;
    SaveCalibration(kalPath);
    return true;
}

bool MapCalibration::SaveCalibration(const QString& path) const {
    QString kalPath;
    if (!resolvePath(path, m_strMapFile, kalPath)) return false;
    double lonBottomLeft, latBottomLeft, lonTopRight, latTopRight;
    PixelToGeo(0, m_size.cy, lonBottomLeft, latBottomLeft);
    PixelToGeo(m_size.cx, 0, lonTopRight, latTopRight);

    // A key new to a section goes directly below its header, so each section's keys are written
    // last to first to stand in the file in their reading order.
    CIniFile ini;
    ini.WriteDouble(kOldSection, QStringLiteral("ScaleY"), m_size.cy / (latTopRight - latBottomLeft));
    ini.WriteDouble(kOldSection, QStringLiteral("ScaleX"), m_size.cx / (lonTopRight - lonBottomLeft));
    ini.WriteDouble(kOldSection, QStringLiteral("OffLaenge"), lonBottomLeft);
    ini.WriteDouble(kOldSection, QStringLiteral("OffBreite"), latBottomLeft);
    for (int i = 0; i < m_nPoints; ++i) {
        const QString section = pointSection(i + 1);
        ini.WriteDouble(section, QStringLiteral("Longitude"), m_dPointLong[i]);
        ini.WriteDouble(section, QStringLiteral("Latitude"), m_dPointLat[i]);
        ini.WritePoint(section, QStringLiteral("Pixel"), m_points[i]);
    }
    ini.WriteString(kMapSection, QStringLiteral("Bitmap"), MapPaths::FileNamePart(m_strMapFile));
    ini.WriteSize(kMapSection, QStringLiteral("Size"), m_size);
    return ini.Save(kalPath);
}
