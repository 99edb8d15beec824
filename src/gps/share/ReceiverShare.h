#pragma once

#include "gps/share/LineFanout.h"
#include "gps/share/SimulatedDrive.h"

#include <QByteArray>
#include <QString>
#include <mutex>

class DeviceRoot;

// Tarvik's splitter: every line the open source delivers goes on to the shared pseudo-terminal and
// TCP server (LineFanout), with the simulated drive in place of the receiver's positions while a
// simulation target is set. Lines come from the reader thread, in-band texts from the UI thread.
class ReceiverShare {
public:
    struct Options {
        LineFanout::Endpoints m_endpoints;
        double m_dSpeedKmh = 50;
    };

    // The options stored under the splitter's key; `enabled` tells whether sharing is switched on.
    static Options readOptions(const DeviceRoot& root, bool& enabled);

    // Opens the endpoints; empty text on success, else one line for the user.
    QString start(const Options& options);
    void stop();
    bool running() const { return m_fanout.running(); }
    LineFanout& fanout() { return m_fanout; }

    // One line of the receiver (with its line end); never waits for a reader.
    void takeLine(const char* line, int length);
    // A text written towards the receiver: true when it is the splitter's (then it must not reach
    // the receiver); `message` is set for an unreadable one.
    bool takeCommand(const QByteArray& text, QString& message);

private:
    LineFanout m_fanout;
    std::mutex m_mutex; // guards m_drive
    SimulatedDrive m_drive;
};
