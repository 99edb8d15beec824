#include "maps/shapes/ShapeLayers.h"

#include "settings/DevLog.h"

#include <QFile>
#include <QFileInfo>

std::shared_ptr<ShapeLayers> LoadShapeLayers(const QString& profilePath,
                                             const std::function<QString(const QString&)>& resolve) {
    auto loaded = std::make_shared<ShapeLayers>();
    QFile profile(profilePath);
    if (!profile.open(QIODevice::ReadOnly)) return loaded;
    for (ShapeLayerStyle& style :
         ReadShapeProfile(profile.readAll(), QFileInfo(profilePath).path(), resolve)) {
        QString error;
        std::unique_ptr<CShapeLayer> shapes =
            CShapeLayer::Open(style.m_strFile, style.m_strLabelField, error);
        if (!shapes) {
            const QString message = style.m_strName + ": " + error;
            devLog("!!!!Shape layer skipped: %s", message.toUtf8().constData());
            loaded->m_messages.append(message);
            continue;
        }
        loaded->m_layers.push_back({std::move(style), std::move(shapes)});
    }
    return loaded;
}
