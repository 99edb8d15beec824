#pragma once

#include <QByteArray>
#include <QString>

// Decodes a text file written by any of the programs Tarvik exchanges files with: UTF-16 LE or BE
// with or without byte order mark, UTF-8 with or without one, or 8-bit Windows-1252 (files written
// on the handheld, umlauts included). Never fails: every byte sequence gives some text.
QString decodeText(const QByteArray& bytes);

// False for bytes that no text encoding explains: NUL bytes outside UTF-16 (an image, a database).
bool isText(const QByteArray& bytes);
