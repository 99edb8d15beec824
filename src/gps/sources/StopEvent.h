#pragma once

#include <condition_variable>
#include <mutex>

// The one signal from the UI thread to a reader thread: "end now". Readers wait on it with a
// time-out instead of sleeping, so that a stop is seen at once.
class StopEvent {
public:
    void set();
    void reset();
    bool isSet() const;
    // Waits up to `milliseconds`; true when the event is (or became) set.
    bool waitFor(int milliseconds) const;

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    bool m_bSet = false;
};
