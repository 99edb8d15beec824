#include "maps/shapes/ShapeProfile.h"

#include "settings/CIniFile.h"

#include <QDir>
#include <functional>

std::vector<ShapeLayerStyle> ReadShapeProfile(const QByteArray& bytes, const QString& folder,
                                              const std::function<QString(const QString&)>& resolve) {
    CIniFile profile;
    profile.LoadFromBytes(bytes);
    std::vector<ShapeLayerStyle> layers;
    for (const QString& raw : profile.Lines()) {
        const QString line = raw.trimmed();
        if (!line.startsWith('[') || !line.endsWith(']')) continue;
        ShapeLayerStyle layer;
        layer.m_strName = line.mid(1, line.size() - 2);
        QString file;
        if (!profile.ReadString(layer.m_strName, QStringLiteral("File"), file) || file.trimmed().isEmpty())
            continue;
        file = file.trimmed();
        // "\x.shp" and "/x.shp" are device paths; "x.shp" and "sub\x.shp" lie beside the profile.
        layer.m_strFile = file.startsWith('\\') || file.startsWith('/')
                              ? resolve(file)
                              : QDir(folder).filePath(QString(file).replace('\\', '/'));
        profile.ReadColour(layer.m_strName, QStringLiteral("Color"), layer.m_colLine);
        profile.ReadInt(layer.m_strName, QStringLiteral("Width"), layer.m_nWidth);
        layer.m_nWidth = std::clamp(layer.m_nWidth, 1, 50);
        Colour fill = 0;
        if (profile.ReadColour(layer.m_strName, QStringLiteral("Fill"), fill)) layer.m_colFill = fill;
        profile.ReadString(layer.m_strName, QStringLiteral("Label"), layer.m_strLabelField);
        layer.m_strLabelField = layer.m_strLabelField.trimmed();
        profile.ReadDouble(layer.m_strName, QStringLiteral("MinScale"), layer.m_dMinScale);
        profile.ReadDouble(layer.m_strName, QStringLiteral("MaxScale"), layer.m_dMaxScale);
        layers.push_back(layer);
    }
    return layers;
}
