#include "ToolContext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <charconv>
#include <cmath>
#include <cstdio>

ToolContext::ToolContext(const DeviceRoot& deviceRoot) : root(deviceRoot), out(stdout), err(stderr) {}

bool ToolContext::helpRequested(const QStringList& args) {
    const QStringList options = args.mid(0, args.indexOf(QStringLiteral("--")));
    return options.contains(QStringLiteral("--help")) || options.contains(QStringLiteral("-h"));
}

int ToolContext::printUsage(const QString& usage) {
    out << "usage: " << usage << Qt::endl;
    return kOk;
}

int ToolContext::usageError(const QString& problem, const QString& usage) {
    err << "tarvik-tool: " << problem << '\n' << "usage: " << usage << Qt::endl;
    return kUsageError;
}

QString ToolContext::argumentCountProblem(const QStringList& positional, qsizetype least, qsizetype most) {
    if (most < least) most = least;
    if (positional.size() > most) return QStringLiteral("unexpected argument '%1'").arg(positional[most]);
    const qsizetype missing = least - positional.size();
    return missing == 1 ? QStringLiteral("an argument is missing")
                        : QStringLiteral("%1 arguments are missing").arg(missing);
}

QString ToolContext::unknownVerbProblem(const QString& verb) {
    return verb.isEmpty() ? QStringLiteral("a verb is needed")
                          : QStringLiteral("unknown verb '%1'").arg(verb);
}

int ToolContext::inputError(const QString& message) {
    err << "tarvik-tool: " << message << Qt::endl;
    return kInputError;
}

QString ToolContext::number(double value) {
    if (!std::isfinite(value)) return QStringLiteral("null");
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, result.ptr - buffer);
}

QString ToolContext::jsonString(const QString& text) {
    const QByteArray json = QJsonDocument(QJsonArray{QJsonValue(text)}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json.mid(1, json.size() - 2));
}

QString ToolContext::csvField(const QString& text) {
    if (!text.contains(',') && !text.contains('"') && !text.contains('\n') && !text.contains('\r'))
        return text;
    return '"' + QString(text).replace('"', QStringLiteral("\"\"")) + '"';
}

void ToolContext::printJson(std::initializer_list<JsonMember> members) {
    QStringList parts;
    for (const auto& [name, value] : members)
        parts << jsonString(QString::fromLatin1(name)) + ':' + value;
    out << '{' << parts.join(',') << '}' << Qt::endl;
}

void ToolContext::printCsvRow(const QStringList& fields) {
    QStringList quoted;
    for (const QString& field : fields)
        quoted << csvField(field);
    out << quoted.join(',') << '\n';
}

ToolOptions::ToolOptions(QStringList args, const QStringList& valueOptions, const QStringList& flagOptions) {
    while (!args.isEmpty()) {
        const QString arg = args.takeFirst();
        if (arg == QLatin1String("--")) { // the rest are arguments, even when they start with "-"
            m_positional << args;
            return;
        }
        if (valueOptions.contains(arg)) {
            if (args.isEmpty()) {
                m_strError = arg + QStringLiteral(" needs a value");
                return;
            }
            m_options << std::pair{arg, args.takeFirst()};
        } else if (flagOptions.contains(arg)) {
            m_options << std::pair{arg, QString()};
        } else if (arg.startsWith(QStringLiteral("--")) && arg.size() > 2) {
            m_strError = QStringLiteral("unknown option ") + arg;
            return;
        } else {
            m_positional << arg;
        }
    }
}

bool ToolOptions::has(const QString& name) const {
    for (const auto& option : m_options)
        if (option.first == name) return true;
    return false;
}

QString ToolOptions::value(const QString& name, const QString& fallback) const {
    for (const auto& option : m_options)
        if (option.first == name) return option.second;
    return fallback;
}

QStringList ToolOptions::values(const QString& name) const {
    QStringList found;
    for (const auto& option : m_options)
        if (option.first == name) found << option.second;
    return found;
}
