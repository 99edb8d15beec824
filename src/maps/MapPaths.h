#pragma once

#include <QString>

// File names as the map files use them: "\" and "/" both separate folders.
namespace MapPaths {

// Everything up to and including the last separator; empty when there is none.
QString DirectoryPart(const QString& path);
// What follows the last separator.
QString FileNamePart(const QString& path);
// The file name without its last "." and what follows.
QString BaseName(const QString& path);
// The calibration file of an image: its last three characters replaced by "kal" ("x.jpg" -> "x.kal").
// Empty for a name shorter than 5 characters.
QString CalibrationPathFor(const QString& mapFile);

} // namespace MapPaths
