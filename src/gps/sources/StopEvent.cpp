#include "gps/sources/StopEvent.h"

#include <chrono>

void StopEvent::set() {
    {
        std::lock_guard lock(m_mutex);
        m_bSet = true;
    }
    m_changed.notify_all();
}

void StopEvent::reset() {
    std::lock_guard lock(m_mutex);
    m_bSet = false;
}

bool StopEvent::isSet() const {
    std::lock_guard lock(m_mutex);
    return m_bSet;
}

bool StopEvent::waitFor(int milliseconds) const {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_bSet; });
}
