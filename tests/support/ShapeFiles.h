#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <vector>

// One shape of a test shapefile: its "x y" pairs and its NAME.
struct TestShape {
    QStringList coordinates;
    QString name;
};

// Runs one of shapelib's own tools (Debian package shapelib); false when it is missing or fails.
inline bool runShapelibTool(const QString& tool, const QStringList& args) {
    if (QStandardPaths::findExecutable(tool).isEmpty()) return false;
    QProcess process;
    process.start(tool, args);
    return process.waitForFinished(10000) && process.exitCode() == 0;
}

// A shapefile of `type` ("arc", "polygon", "point") with a NAME field, made by shpcreate, shpadd,
// dbfcreate and dbfadd; false when shapelib's tools are missing.
inline bool makeShapefile(const QString& base, const QString& type, const std::vector<TestShape>& shapes) {
    if (!runShapelibTool("shpcreate", {base, type}) ||
        !runShapelibTool("dbfcreate", {base, "-s", "NAME", "20"}))
        return false;
    for (const TestShape& shape : shapes) {
        QStringList args{base};
        for (const QString& pair : shape.coordinates)
            args += pair.split(' ');
        if (!runShapelibTool("shpadd", args) || !runShapelibTool("dbfadd", {base, shape.name})) return false;
    }
    return true;
}
