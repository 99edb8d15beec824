#include "Golden.h"

#include <QFile>
#include <gtest/gtest.h>

void expectMatchesGolden(const QString& expectedFile, const QByteArray& actual) {
    if (qEnvironmentVariable("TARVIK_REGOLD") == QLatin1String("1")) {
        QFile out(expectedFile);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << "cannot rewrite " << expectedFile.toStdString();
        out.write(actual);
        return;
    }
    QFile in(expectedFile);
    ASSERT_TRUE(in.open(QIODevice::ReadOnly))
        << "missing expected file " << expectedFile.toStdString() << " (TARVIK_REGOLD=1 writes it)";
    const QByteArray expected = in.readAll();
    if (expected == actual) return;
    const QList<QByteArray> want = expected.split('\n');
    const QList<QByteArray> got = actual.split('\n');
    std::string diff;
    int shown = 0;
    for (qsizetype i = 0; i < std::max(want.size(), got.size()) && shown < 10; ++i) {
        if (want.value(i) == got.value(i)) continue;
        diff += "line " + std::to_string(i + 1) + "\n  - " + want.value(i).toStdString() + "\n  + " +
                got.value(i).toStdString() + "\n";
        ++shown;
    }
    ADD_FAILURE() << expectedFile.toStdString() << " differs:\n" << diff;
}
