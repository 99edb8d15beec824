#include "integrations/ui/InfoPageRender.h"

#include "integrations/template/ExpandTemplate.h"
#include "integrations/ui/InfoElementPainter.h"

#include <QGuiApplication>
#include <QPainter>

QImage renderInfoPage(const InfoPageFile& file, const QSize& size, const TemplateSources& sources) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(QGuiApplication::font());
    paintInfoBackground(painter, image.rect(), loadInfoImage(file.BackgroundImage()),
                        file.BackgroundColour());
    for (const QString& name : file.ElementNames()) {
        const auto spec = file.ReadElement(name, 0);
        if (!spec) continue;
        const Rect pos = resolveElementRect(spec->pos, size.width(), size.height());
        paintInfoElement(painter, infoRect(pos), *spec, ExpandTemplate(spec->Template(), sources),
                         loadElementBitmap(*spec), false);
    }
    return image;
}
