#pragma once

#include <QList>
#include <QString>
#include <QStringView>
#include <cstdint>

// Text forms shared by the registry store and the text profiles, so that a value written by one
// can be pasted into the other. Parsing follows the C library functions the formats were made
// for (_wtol, wcstod, swscanf), but never depends on the process locale.

struct Rect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const Rect&) const = default;
};
struct Point {
    int32_t x = 0, y = 0;
    bool operator==(const Point&) const = default;
};
struct Size {
    int32_t cx = 0, cy = 0;
    bool operator==(const Size&) const = default;
};

// Red in the low byte, then green, then blue; the fourth byte is 0.
using Colour = uint32_t;
constexpr Colour makeColour(int red, int green, int blue) {
    return static_cast<Colour>(red + green * 256 + blue * 65536);
}

namespace ValueText {

// _wtol: leading white space, an optional sign, then digits; anything else gives 0.
// Out-of-range values saturate at the 32-bit limits.
int32_t wtol(QStringView text);
// wcstod: the longest leading decimal or hexadecimal floating number, "inf" and "nan";
// 0.0 when there is none. A comma ends the number.
double wcstod(QStringView text);
// "%f": six decimals, "." as decimal mark whatever the locale.
QString formatF(double value);

// swscanf with a format of literal characters and "%d" only. Fills out[] in order and returns
// how many numbers were converted before the first mismatch.
int scanInts(QStringView text, QStringView format, int32_t* out, int maxCount);

QString formatRect(const Rect& rect);    // "RECT(l,t,r,b)"
Rect parseRect(QStringView text);        // numbers that cannot be scanned are 0
QString formatPoint(const Point& point); // "POINT(x,y)"
Point parsePoint(QStringView text);
QString formatSize(const Size& size); // "SIZE(cx,cy)"
Size parseSize(QStringView text);
QString formatColour(Colour colour); // "Color(r,g,b)"
// Number of components scanned (0..3); the missing ones count as 0 in `colour`.
int parseColour(QStringView text, Colour& colour);

QString formatIntList(const QList<int32_t>& values); // "1,2,3"
QList<int32_t> parseIntList(QStringView text);       // "" gives an empty list

} // namespace ValueText
