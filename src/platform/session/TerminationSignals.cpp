#include "platform/session/TerminationSignals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int g_signalPipe[2] = {-1, -1};

void onSignal(int number) {
    const unsigned char byte = static_cast<unsigned char>(number);
    (void)!::write(g_signalPipe[1], &byte, 1); // async-signal-safe hand-over to the UI thread
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_signalPipe) != 0) return;
    m_pNotifier = new QSocketNotifier(g_signalPipe[0], QSocketNotifier::Read, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this, &TerminationSignals::readSignal);
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    for (int& fd : g_signalPipe) {
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
}

void TerminationSignals::readSignal() {
    unsigned char byte = 0;
    if (::read(g_signalPipe[0], &byte, 1) == 1) Q_EMIT terminationRequested(byte);
}
