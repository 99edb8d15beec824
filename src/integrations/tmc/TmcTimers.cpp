#include "integrations/tmc/TmcTimers.h"

QtTmcTimers::QtTmcTimers(QObject* parent) : QObject(parent) {
    connect(&m_retry, &QTimer::timeout, this, [this] { Q_EMIT fired(kRetry); });
    connect(&m_status, &QTimer::timeout, this, [this] { Q_EMIT fired(kStatus); });
}

QTimer* QtTmcTimers::Timer(int nTimer) {
    return nTimer == kRetry ? &m_retry : &m_status;
}

void QtTmcTimers::Start(int nTimer, int nMilliseconds) {
    Timer(nTimer)->start(nMilliseconds);
}

void QtTmcTimers::Stop(int nTimer) {
    Timer(nTimer)->stop();
}
