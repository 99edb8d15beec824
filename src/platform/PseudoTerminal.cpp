#include "platform/PseudoTerminal.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>

QString PseudoTerminal::open() {
    close();
    FileDescriptor master(::posix_openpt(O_RDWR | O_NOCTTY));
    if (!master.isOpen() || ::grantpt(master.fd()) != 0 || ::unlockpt(master.fd()) != 0)
        return systemErrorText(errno);
    const char* name = ::ptsname(master.fd());
    if (!name) return systemErrorText(errno);
    // Raw from the start: a fresh terminal would echo every byte back and hold lines until "\n".
    termios settings{};
    if (::tcgetattr(master.fd(), &settings) == 0) {
        ::cfmakeraw(&settings);
        ::tcsetattr(master.fd(), TCSANOW, &settings);
    }
    m_strDevicePath = QString::fromLocal8Bit(name);
    m_master = std::move(master);
    return {};
}

void PseudoTerminal::close() {
    m_master.close();
    m_strDevicePath.clear();
}

bool PseudoTerminal::readDeviceSettings(termios& settings) const {
    // On Linux the controlling side reports the terminal settings of the device side.
    return ::tcgetattr(m_master.fd(), &settings) == 0;
}
