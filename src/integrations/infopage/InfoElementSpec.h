#pragma once

#include "settings/CIniFile.h"

#include <QString>
#include <QStringList>
#include <array>
#include <optional>

// What one element of a page file says, read from the section its state selects. Drawing and taps
// are the pages' business; this is plain data.
struct InfoElementSpec {
    // Which of "Color_0" ... "Color_9" mean what when drawn.
    enum ColourRole { kText = 0, kBackground = 1, kBorder = 2, kPressedBackground = 3, kColourCount = 10 };
    // The "Format" bits, in the manner of DrawText's DT_ flags.
    enum FormatBits {
        kCenter = 0x01,
        kRight = 0x02,
        kVCenter = 0x04,
        kBottom = 0x08,
        kWordBreak = 0x10,
        kSingleLine = 0x20,
    };

    QString strName;    // as the element list names it
    QString strSection; // the section the keys came from: "<name>_<state>", "<name>_0" or "<name>"
    int32_t nType = 0;
    Rect pos; // as written; see resolveElementRect
    QString strAction;
    bool bPassive = false;
    bool bTopmost = true;
    std::optional<LogFont> font; // none: the page's font
    std::array<std::optional<Colour>, kColourCount> colours;
    int32_t nFormat = 0;
    QStringList texts; // "Text", then "Text_1", "Text_2" ... up to the first missing one
    int32_t nXOffset = 0, nYOffset = 0, nROffset = 0, nBOffset = 0; // inner margins
    QString strBitmap;                                              // host path; empty for none
    std::optional<Colour> transparentColour;
    int32_t nRefresh = 1;
    bool bRefreshFlag = false; // "Refresh" is not 1
    int32_t nNoMaskRefresh = 0;

    // Elements of "Type" 1 and 2 run their "Action" when tapped.
    bool IsButton() const { return nType == 1 || nType == 2; }
    // Whether the text is expanded anew at the `nUpdate`-th refresh (counted from 1): "Refresh" 1 at
    // every one, n above 1 at every n-th, 0 (or less) never after the element was made.
    bool RefreshesAt(int nUpdate) const { return nRefresh == 1 || (nRefresh > 1 && nUpdate % nRefresh == 0); }
    // The text templates as one text, one template a line.
    QString Template() const { return texts.join('\n'); }
};

// "Pos" in a parent of `width` x `height` pixels. Only a negative left or top makes the rectangle
// relative: then a negative left and top count from the right and bottom edge, and a right or
// bottom below 1 likewise. With left and top both 0 or more, the rectangle stands as written, even
// with a right or bottom of 0 or below.
Rect resolveElementRect(const Rect& pos, int width, int height);
