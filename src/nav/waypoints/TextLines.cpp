#include "nav/waypoints/TextLines.h"

void forEachTextLine(QByteArrayView bytes, qsizetype bufferSize,
                     const std::function<void(QByteArrayView)>& line) {
    const qsizetype piece = std::max<qsizetype>(1, bufferSize - 1);
    qsizetype start = 0;
    while (start < bytes.size()) {
        const qsizetype newline = bytes.indexOf('\n', start);
        const qsizetype end = newline < 0 ? bytes.size() : newline;
        if (end - start > piece) {
            line(bytes.sliced(start, piece));
            start += piece;
            continue;
        }
        QByteArrayView text = bytes.sliced(start, end - start);
        if (text.endsWith('\r')) text.chop(1);
        line(text);
        start = end + 1;
    }
}
