#include "platform/session/MemoryPressure.h"

#include <QSocketNotifier>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
// Tasks stalled on memory for 150 ms within 2 s: unprivileged triggers need a window of 2 s.
constexpr const char kTrigger[] = "some 150000 2000000";
} // namespace

MemoryPressure::MemoryPressure(QObject* parent) : QObject(parent) {
    m_nFd = ::open("/proc/pressure/memory", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (m_nFd < 0) return;
    if (::write(m_nFd, kTrigger, std::strlen(kTrigger) + 1) < 0) {
        ::close(m_nFd);
        m_nFd = -1;
        return;
    }
    m_pNotifier = new QSocketNotifier(m_nFd, QSocketNotifier::Exception, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this, &MemoryPressure::pressure);
}

MemoryPressure::~MemoryPressure() {
    delete m_pNotifier;
    if (m_nFd >= 0) ::close(m_nFd);
}
