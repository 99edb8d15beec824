#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// Decodes a text file written by any of the programs Tarvik exchanges files with: UTF-16 LE or BE
// with or without byte order mark, UTF-8 with or without one, or 8-bit Windows-1252 (files written
// on the handheld, umlauts included). Never fails: every byte sequence gives some text.
QString decodeText(const QByteArray& bytes);

// False for bytes that no text encoding explains: NUL bytes outside UTF-16 (an image, a database).
bool isText(const QByteArray& bytes);

// The text as Windows-1252 bytes; nothing when a character has no byte there.
std::optional<QByteArray> encodeCp1252(const QString& text);
