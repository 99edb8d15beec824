#pragma once

#include "platform/PseudoTerminal.h"

#include <QString>

// The pseudo-terminal that other programs open as a serial receiver, reachable under a stable
// path: a symbolic link to its "/dev/pts/N" device, replaced at each start and removed at the end.
class SharedPort {
public:
    ~SharedPort() { close(); }

    // Opens the terminal and links `linkPath` to it (creating the folder); empty text on success,
    // else one line for the user.
    QString open(const QString& linkPath);
    void close();
    bool isOpen() const { return m_terminal.isOpen(); }
    int fd() const { return m_terminal.fd(); }
    const QString& devicePath() const { return m_terminal.devicePath(); }
    const QString& linkPath() const { return m_strLinkPath; }
    // Whether a program holds the device open; the controlling side reports a hang-up otherwise.
    bool readerPresent() const;
    // Drops what sits in the terminal's queues, so that the next reader starts with fresh lines.
    void discardQueued();
    // Bytes written that the reader has not taken yet.
    int queuedBytes() const;

private:
    PseudoTerminal m_terminal;
    QString m_strLinkPath;
};
