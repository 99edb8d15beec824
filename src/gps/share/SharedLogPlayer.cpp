#include "gps/share/SharedLogPlayer.h"

#include "gps/share/ReceiverShare.h"
#include "gps/sources/ReplayPacer.h"

SharedLogPlayer::SharedLogPlayer(ReceiverShare& share, Options options, Pause pause)
    : m_share(share), m_options(std::move(options)), m_pause(std::move(pause)) {}

void SharedLogPlayer::play(const QByteArray& log) {
    ReplayPacer recorded(1, true);
    int second = 0;
    bool simulationSent = m_options.m_simulateText.isEmpty();
    qsizetype start = 0;
    while (start < log.size()) {
        if (!simulationSent && second >= m_options.m_nSimulateAt) {
            QString message;
            m_share.takeCommand(m_options.m_simulateText, message);
            simulationSent = true;
        }
        qsizetype end = log.indexOf('\n', start);
        end = end < 0 ? log.size() : end + 1;
        const QByteArray line = log.mid(start, end - start);
        start = end;
        if (m_options.m_nRate == 0) m_share.fanout().waitForRoom();
        m_share.takeLine(line.constData(), int(line.size()));
        const int recordedPause = recorded.pauseAfter(line.constData(), int(line.size()));
        if (recordedPause > 0) ++second;
        if (m_options.m_nRate == kAsRecorded && recordedPause > 0) m_pause(recordedPause);
        if (m_options.m_nRate > 0) m_pause(1000 / m_options.m_nRate);
    }
}
