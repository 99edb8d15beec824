#pragma once

#include "integrations/infopage/InfoElementSpec.h"

#include <QFont>
#include <QImage>
#include <QRect>

class QPainter;

// How an element of a page file looks; the page widgets and the offscreen rendering of a page
// file draw with these, so that what a designer renders is what the page shows.

// The font of the 14 font keys on top of `base`: a negative height is the character height in
// pixels, a positive one the cell height (taken as pixels too), 0 keeps the base size.
QFont infoElementFont(const std::optional<LogFont>& logFont, const QFont& base);

// A picture of a page file ("BGImage", "Bitmap"); a null image when it cannot be decoded or is larger
// than 4096 pixels either way.
QImage loadInfoImage(const QString& path);
// The element's "Bitmap", with its "TransparentColor" made transparent; a null image when there is
// none or it cannot be decoded.
QImage loadElementBitmap(const InfoElementSpec& spec);

// Background ("Color_1"), bitmap (centred), text ("Color_0", black when unset) inside the offsets with
// the "Format" flags, and a one-pixel border ("Color_2"). A pressed button fills with "Color_3".
void paintInfoElement(QPainter& painter, const QRect& rect, const InfoElementSpec& spec, const QString& text,
                      const QImage& bitmap, bool bPressed);

// The page's background: the tile image repeated from the top left, else the colour, else white.
void paintInfoBackground(QPainter& painter, const QRect& rect, const QImage& tile,
                         std::optional<Colour> colour);

// A rectangle of the files (right and bottom lie just outside) as Qt's.
inline QRect infoRect(const Rect& rect) {
    return QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
}

// A colour of the files (red in the low byte) as Qt's.
QColor infoColour(Colour colour);
