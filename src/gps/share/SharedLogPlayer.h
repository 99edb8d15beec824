#pragma once

#include <QByteArray>
#include <functional>

class ReceiverShare;

// Plays a recorded log through the splitter as if a receiver delivered it (tarvik-tool share).
class SharedLogPlayer {
public:
    static constexpr int kAsRecorded = -1;

    struct Options {
        int m_nRate = kAsRecorded; // lines a second; 0: as fast as the readers take them
        QByteArray m_simulateText; // an in-band text fed at m_nSimulateAt seconds of the log
        int m_nSimulateAt = 0;
    };

    // Waits `milliseconds`; the tests pass one that does not.
    using Pause = std::function<void(int milliseconds)>;

    SharedLogPlayer(ReceiverShare& share, Options options, Pause pause);

    // Hands over every line of `log` (cut at "\n", unchanged) at the chosen pace. The seconds of
    // the log are counted at each new time stamp of a GGA or RMC, whatever the pace.
    void play(const QByteArray& log);

private:
    ReceiverShare& m_share;
    Options m_options;
    Pause m_pause;
};
