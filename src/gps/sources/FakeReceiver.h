#pragma once

#include "platform/PseudoTerminal.h"

#include <QByteArray>
#include <QString>

class StopEvent;

// A GPS receiver for everyone without one: a pseudo-terminal that plays a recorded log with its
// recorded pacing, so that the serial source (or any other program) can read it as a real port.
class FakeReceiver {
public:
    // Creates the device; empty text on success, else the reason.
    QString open() { return m_terminal.open(); }
    // "/dev/pts/N": what a COM port's device setting points at.
    const QString& devicePath() const { return m_terminal.devicePath(); }

    // Writes the log line by line as recorded, pausing 1000 / speed ms after the first GGA or RMC
    // of every new recorded second (any talker; speed 0 or less counts as 1). With `loop` it
    // starts again at the end. Returns when done, when `stop` is set (true), or when a write
    // fails (false, with the reason in `error`).
    bool play(const QByteArray& log, int speed, bool loop, const StopEvent& stop, QString& error);

private:
    PseudoTerminal m_terminal;
};
