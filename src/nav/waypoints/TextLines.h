#pragma once

#include <QByteArrayView>
#include <functional>

// Calls `line` for each line of 8-bit text as a C reader with a buffer of `bufferSize` bytes sees it:
// a line longer than the buffer arrives in pieces of bufferSize - 1 bytes. The "\n" and a "\r" before
// it are cut off; a last line without "\n" counts.
void forEachTextLine(QByteArrayView bytes, qsizetype bufferSize,
                     const std::function<void(QByteArrayView)>& line);
