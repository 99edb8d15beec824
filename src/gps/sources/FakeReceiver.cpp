#include "gps/sources/FakeReceiver.h"

#include "gps/sources/ReplayPacer.h"
#include "gps/sources/StopEvent.h"

bool FakeReceiver::play(const QByteArray& log, int speed, bool loop, const StopEvent& stop, QString& error) {
    do {
        ReplayPacer pacer(speed, true);
        qsizetype start = 0;
        while (start < log.size()) {
            qsizetype end = log.indexOf('\n', start);
            end = end < 0 ? log.size() : end + 1;
            const QByteArray line = log.mid(start, end - start);
            start = end;
            if (!m_terminal.write(line, error)) return false;
            const int pause = pacer.pauseAfter(line.constData(), static_cast<int>(line.size()));
            if ((pause > 0 && stop.waitFor(pause)) || stop.isSet()) return true;
        }
    } while (loop && !log.isEmpty());
    return true;
}
