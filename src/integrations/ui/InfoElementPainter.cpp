#include "integrations/ui/InfoElementPainter.h"

#include <QImageReader>
#include <QPainter>

namespace {

// Large enough for any screen: a font height beyond it is a damaged file, not a wish.
constexpr int kMaxFontPixels = 2000;

int textFlags(int32_t nFormat) {
    int flags = Qt::AlignLeft;
    if (nFormat & InfoElementSpec::kCenter) flags = Qt::AlignHCenter;
    if (nFormat & InfoElementSpec::kRight) flags = Qt::AlignRight;
    if (nFormat & InfoElementSpec::kVCenter)
        flags |= Qt::AlignVCenter;
    else if (nFormat & InfoElementSpec::kBottom)
        flags |= Qt::AlignBottom;
    else
        flags |= Qt::AlignTop;
    if ((nFormat & InfoElementSpec::kWordBreak) && !(nFormat & InfoElementSpec::kSingleLine))
        flags |= Qt::TextWordWrap;
    return flags;
}

} // namespace

QColor infoColour(Colour colour) {
    return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

QFont infoElementFont(const std::optional<LogFont>& logFont, const QFont& base) {
    QFont font = base;
    if (!logFont) return font;
    const int32_t nHeight = logFont->lfHeight;
    if (nHeight != 0 && nHeight != INT32_MIN) font.setPixelSize(std::min(std::abs(nHeight), kMaxFontPixels));
    if (logFont->lfWeight > 0)
        font.setWeight(static_cast<QFont::Weight>(std::clamp(logFont->lfWeight, 1, 1000)));
    font.setItalic(logFont->lfItalic != 0);
    font.setUnderline(logFont->lfUnderline != 0);
    font.setStrikeOut(logFont->lfStrikeOut != 0);
    if (!logFont->lfFaceName.isEmpty()) font.setFamily(logFont->lfFaceName);
    return font;
}

QImage loadInfoImage(const QString& path) {
    if (path.isEmpty()) return {};
    QImageReader reader(path);
    // A picture larger than any screen is refused before it is decoded.
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > 4096 || size.height() > 4096) return {};
    return reader.read();
}

QImage loadElementBitmap(const InfoElementSpec& spec) {
    QImage image = loadInfoImage(spec.strBitmap);
    if (image.isNull() || !spec.transparentColour) return image;
    image = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb transparent = infoColour(*spec.transparentColour).rgb();
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if ((line[x] | 0xff000000u) == transparent) line[x] = 0;
    }
    return image;
}

void paintInfoElement(QPainter& painter, const QRect& rect, const InfoElementSpec& spec, const QString& text,
                      const QImage& bitmap, bool bPressed) {
    if (!rect.isValid()) return;
    painter.save();
    painter.setClipRect(rect);
    const auto& colours = spec.colours;
    const auto fill = bPressed && colours[InfoElementSpec::kPressedBackground]
                          ? colours[InfoElementSpec::kPressedBackground]
                          : colours[InfoElementSpec::kBackground];
    if (fill) painter.fillRect(rect, infoColour(*fill));
    if (!bitmap.isNull()) {
        const QSize size = bitmap.size().boundedTo(rect.size());
        QRect target(QPoint(), bitmap.size().scaled(size, Qt::KeepAspectRatio));
        target.moveCenter(rect.center());
        painter.drawImage(target, bitmap);
    }
    const QRect inner = rect.adjusted(spec.nXOffset, spec.nYOffset, -spec.nROffset, -spec.nBOffset);
    if (!text.isEmpty() && inner.isValid()) {
        painter.setFont(infoElementFont(spec.font, painter.font()));
        const auto ink = colours[InfoElementSpec::kText];
        painter.setPen(ink ? infoColour(*ink) : QColor(Qt::black));
        QString shown = text;
        if (spec.nFormat & InfoElementSpec::kSingleLine) shown.replace('\n', ' ');
        painter.drawText(inner, textFlags(spec.nFormat), shown);
    }
    if (colours[InfoElementSpec::kBorder]) {
        painter.setPen(infoColour(*colours[InfoElementSpec::kBorder]));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
    }
    painter.restore();
}

void paintInfoBackground(QPainter& painter, const QRect& rect, const QImage& tile,
                         std::optional<Colour> colour) {
    if (!tile.isNull())
        painter.drawTiledPixmap(rect, QPixmap::fromImage(tile));
    else
        painter.fillRect(rect, colour ? infoColour(*colour) : QColor(Qt::white));
}
