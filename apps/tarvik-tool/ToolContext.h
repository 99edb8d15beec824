#pragma once

#include "platform/DeviceRoot.h"

#include <QStringList>
#include <QTextStream>
#include <initializer_list>
#include <utility>

// What every tarvik-tool command gets: the device root, the output streams and the conventions
// (CSV lists with a header row, one JSON object per record, exit 2 for usage, 1 for bad input).
class ToolContext {
public:
    static constexpr int kOk = 0;
    static constexpr int kInputError = 1;
    static constexpr int kUsageError = 2;

    explicit ToolContext(const DeviceRoot& root);

    DeviceRoot root;
    QTextStream out;
    QTextStream err;

    // "--help" or "-h" anywhere among a command's arguments.
    static bool helpRequested(const QStringList& args);
    // Prints "usage: ..." on stdout and returns kOk: the answer to "--help".
    int printUsage(const QString& usage);
    // Names the problem in one line, then prints "usage: ..." on stderr; returns kUsageError.
    int usageError(const QString& problem, const QString& usage);
    // The problem of a command line with the wrong number of arguments.
    static QString argumentCountProblem(const QStringList& positional, qsizetype least, qsizetype most = -1);
    static QString unknownVerbProblem(const QString& verb);
    // Prints "tarvik-tool: <message>" on stderr and returns kInputError.
    int inputError(const QString& message);

    // Shortest text that reads back to the same double.
    static QString number(double value);
    // A JSON string literal.
    static QString jsonString(const QString& text);
    // A CSV field, quoted when needed.
    static QString csvField(const QString& text);

    using JsonMember = std::pair<const char*, QString>; // value already in JSON form
    void printJson(std::initializer_list<JsonMember> members);
    void printCsvRow(const QStringList& fields);
};

// Splits "--name value" options out of args. Returns false (and names the problem) on a missing value.
class ToolOptions {
public:
    ToolOptions(QStringList args, const QStringList& valueOptions, const QStringList& flagOptions = {});
    bool ok() const { return m_strError.isEmpty(); }
    const QString& error() const { return m_strError; }
    const QStringList& positional() const { return m_positional; }
    bool has(const QString& name) const;
    QString value(const QString& name, const QString& fallback = {}) const;
    QStringList values(const QString& name) const; // an option given several times

private:
    QStringList m_positional;
    QList<std::pair<QString, QString>> m_options;
    QString m_strError;
};
