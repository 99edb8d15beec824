#pragma once

#include "settings/ValueText.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

// How one shapefile layer of "\Tarvik.gsh" is drawn. The profile is a text profile with one section
// a layer, drawn in the order of the sections (the first lowest):
//   [Straßen]
//   File = \Karten\roads.shp      the .shp (a device path, or relative to the profile's folder)
//   Color = Color(200,0,0)        lines, outlines and points
//   Width = 2                     line width in pixels
//   Fill = Color(255,230,200)     polygons filled with it; none when missing
//   Label = NAME                  .dbf field written beside each shape; none when missing
//   MinScale = 0                  shown from this many metres per screen pixel ...
//   MaxScale = 50                 ... up to this many
struct ShapeLayerStyle {
    QString m_strName;
    QString m_strFile; // host path
    Colour m_colLine = makeColour(0, 0, 0);
    int32_t m_nWidth = 1;
    std::optional<Colour> m_colFill;
    QString m_strLabelField;
    double m_dMinScale = 0.0;
    double m_dMaxScale = 1e9;

    bool ShowsAt(double metresPerPixel) const {
        return metresPerPixel >= m_dMinScale && metresPerPixel <= m_dMaxScale;
    }
};

inline constexpr const char* kShapeProfilePath = "\\Tarvik.gsh";

// The layers of a profile's bytes; `folder` (host) resolves relative file names, `resolve` turns a
// device path into a host path. A section without "File" is skipped.
std::vector<ShapeLayerStyle> ReadShapeProfile(const QByteArray& bytes, const QString& folder,
                                              const std::function<QString(const QString&)>& resolve);
