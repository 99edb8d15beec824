#pragma once

#include <QByteArray>
#include <QString>

// Compares `actual` with the expected file and reports a line diff on mismatch. With the environment
// variable TARVIK_REGOLD=1 the expected file is rewritten instead (say why in the commit).
void expectMatchesGolden(const QString& expectedFile, const QByteArray& actual);
