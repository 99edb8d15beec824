#include "platform/SerialPort.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::array<std::pair<int, speed_t>, 23> kBaudRates{{
    {50, B50},           {75, B75},           {110, B110},         {134, B134},       {150, B150},
    {200, B200},         {300, B300},         {600, B600},         {1200, B1200},     {1800, B1800},
    {2400, B2400},       {4800, B4800},       {9600, B9600},       {19200, B19200},   {38400, B38400},
    {57600, B57600},     {115200, B115200},   {230400, B230400},   {460800, B460800}, {921600, B921600},
    {1000000, B1000000}, {2000000, B2000000}, {4000000, B4000000},
}};

bool baudConstant(int baudRate, speed_t& constant) {
    for (const auto& [rate, value] : kBaudRates) {
        if (rate == baudRate) {
            constant = value;
            return true;
        }
    }
    return false;
}

} // namespace

QString SerialPort::open(const QString& devicePath) {
    m_fd = FileDescriptor(::open(devicePath.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK));
    if (!m_fd.isOpen()) return systemErrorText(errno);
    // Not shared, as a receiver port always was; root ignores it, which is harmless.
    ::ioctl(m_fd.fd(), TIOCEXCL);
    return {};
}

QString SerialPort::configure(int baudRate) {
    termios settings{};
    if (::tcgetattr(m_fd.fd(), &settings) != 0) return systemErrorText(errno);
    speed_t speed = B0;
    if (!baudConstant(baudRate, speed)) return systemErrorText(EINVAL);
    ::cfmakeraw(&settings);
    settings.c_cflag &= ~(PARENB | CSTOPB | CSIZE | CRTSCTS);
    settings.c_cflag |= CS8 | CREAD | CLOCAL;
    settings.c_iflag &= ~(IXON | IXOFF | IXANY | INPCK);
    if (::cfsetispeed(&settings, speed) != 0 || ::cfsetospeed(&settings, speed) != 0 ||
        ::tcsetattr(m_fd.fd(), TCSANOW, &settings) != 0)
        return systemErrorText(errno);
    // Pseudo-terminals and some adapters have no modem lines; the receiver works without them.
    int lines = TIOCM_DTR | TIOCM_RTS;
    ::ioctl(m_fd.fd(), TIOCMBIS, &lines);
    return {};
}

QString SerialPort::setReadTimeout(int milliseconds) {
    termios settings{};
    if (::tcgetattr(m_fd.fd(), &settings) != 0) return systemErrorText(errno);
    // The wait is done by poll(); the driver itself must return at once with what it has.
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 0;
    if (::tcsetattr(m_fd.fd(), TCSANOW, &settings) != 0) return systemErrorText(errno);
    m_nReadTimeoutMs = milliseconds;
    return {};
}

int SerialPort::read(char* buffer, int capacity, QString& error) {
    return m_fd.readWithTimeout(buffer, capacity, m_nReadTimeoutMs, error);
}

bool SerialPort::write(const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n =
            ::write(m_fd.fd(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += n;
    }
    return true;
}
