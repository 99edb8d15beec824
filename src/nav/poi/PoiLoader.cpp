#include "nav/poi/PoiLoader.h"

PoiLoader::PoiLoader(QObject* parent) : QObject(parent) {}

PoiLoader::~PoiLoader() {
    stop();
}

void PoiLoader::start(int delayMs) {
    stop();
    m_bLoading.store(true, std::memory_order_release);
    Q_EMIT started();
    m_thread = std::jthread([this, delayMs](std::stop_token stop) {
        const int total = m_pois.LoadAllPois(
            stop, [this](int runningTotal) { Q_EMIT progress(runningTotal); }, delayMs);
        const bool finished = !stop.stop_requested();
        if (finished) m_nTotal = total;
        m_bLoading.store(false, std::memory_order_release);
        if (finished) Q_EMIT loaded(total);
    });
}

void PoiLoader::stop() {
    if (!m_thread.joinable()) return;
    m_thread.request_stop();
    m_thread.join();
    m_bLoading.store(false, std::memory_order_release);
}
