#include "integrations/livepos/LiveposAnswer.h"

#include "nav/CoordinateText.h"

namespace LiveposAnswers {

LiveposAnswer ParseLine(const QByteArray& line) {
    LiveposAnswer answer;
    answer.strLine = QString::fromLatin1(line);
    bool bLong = ParseCoordinate(answer.strLine, answer.dLong);
    const qsizetype nFirstComma = answer.strLine.indexOf(u',', 1);
    if (nFirstComma < 0) return answer;
    const bool bLat = ParseCoordinate(answer.strLine.mid(nFirstComma + 1), answer.dLat);
    const qsizetype nSecondComma = answer.strLine.indexOf(u',', nFirstComma + 2);
    if (nSecondComma < 0) return answer;
    answer.strText = answer.strLine.mid(nSecondComma + 1);
    answer.bComplete = bLong && bLat;
    return answer;
}

bool FirstLine(const QByteArray& body, QByteArray& line) {
    if (body.isEmpty()) return false;
    qsizetype nEnd = body.indexOf('\n');
    line = nEnd < 0 ? body : body.left(nEnd);
    if (line.endsWith('\r')) line.chop(1);
    return true;
}

} // namespace LiveposAnswers
