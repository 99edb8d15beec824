#include "gps/share/VantrelCommand.h"

#include <QList>

namespace {

constexpr const char* kPrefix = "@Vantrel:";
constexpr const char* kSimulate = "@Vantrel:Simulate=";
constexpr int kMaxLength = 128;
constexpr int kShownLength = 40;

// "DDMM.MMMMM" (or "DDDMM.MMMMM") with `degreeDigits` digits of degrees: degrees, or false.
bool readDegreesMinutes(const QByteArray& field, int degreeDigits, double maxDegrees, double& degrees) {
    const int point = field.indexOf('.');
    const int wholeDigits = point < 0 ? field.size() : point;
    if (wholeDigits != degreeDigits + 2) return false;
    for (int i = 0; i < field.size(); ++i) {
        if (i != point && (field[i] < '0' || field[i] > '9')) return false;
    }
    if (point == field.size() - 1) return false;
    const double whole = field.left(degreeDigits).toDouble();
    const double minutes = field.mid(degreeDigits).toDouble();
    // A writer rounding 59.999999 to five decimals gives "60.00000".
    if (minutes > 60.0) return false;
    degrees = whole + minutes / 60.0;
    return degrees <= maxDegrees;
}

VantrelCommand invalid(const QString& why, const QByteArray& text) {
    VantrelCommand command;
    command.m_kind = VantrelCommand::Kind::Invalid;
    QString shown = QString::fromLatin1(text.left(kShownLength));
    for (QChar& c : shown) {
        if (c.unicode() < 0x20 || c.unicode() > 0x7e) c = u'?';
    }
    if (text.size() > kShownLength) shown += QStringLiteral("...");
    command.m_strError = why + QStringLiteral(": ") + shown;
    return command;
}

} // namespace

VantrelCommand readVantrelCommand(const QByteArray& text) {
    QByteArray line = text;
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (!line.startsWith(kPrefix)) return {};
    if (line.size() > kMaxLength) return invalid(QStringLiteral("Splitter command too long"), line);
    if (!line.startsWith(kSimulate)) return invalid(QStringLiteral("Unknown splitter command"), line);
    const QByteArray target = line.mid(qsizetype(qstrlen(kSimulate)));
    VantrelCommand command;
    if (target.isEmpty()) {
        command.m_kind = VantrelCommand::Kind::SimulateOff;
        return command;
    }
    const QList<QByteArray> fields = target.split(',');
    if (fields.size() != 4 || !readDegreesMinutes(fields[0], 2, 90.0, command.m_dLat) ||
        !readDegreesMinutes(fields[2], 3, 180.0, command.m_dLon) || (fields[1] != "N" && fields[1] != "S") ||
        (fields[3] != "E" && fields[3] != "W"))
        return invalid(QStringLiteral("Unreadable simulation target"), line);
    if (fields[1] == "S") command.m_dLat = -command.m_dLat;
    if (fields[3] == "W") command.m_dLon = -command.m_dLon;
    command.m_kind = VantrelCommand::Kind::SimulateTo;
    return command;
}
