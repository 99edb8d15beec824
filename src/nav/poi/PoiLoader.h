#pragma once

#include "nav/poi/PoiCollection.h"

#include <QObject>
#include <atomic>
#include <thread>

// Loads the POI files off the user interface thread (PoiCollection::LoadAllPois) and reports its
// progress as signals, which reach receivers on their own thread. While a load runs, the collection
// belongs to it: callers ask isLoading() first (the nearest-POI query refuses then).
class PoiLoader : public QObject {
    Q_OBJECT
public:
    explicit PoiLoader(QObject* parent = nullptr);
    ~PoiLoader() override; // stops a running load

    // (Re)starts loading all enabled files after `delayMs`; a running load is stopped first.
    void start(int delayMs = PoiCollection::kStartDelayMs);
    // The application's stop: a running load ends at its next file, and this waits for it.
    void stop();
    bool isLoading() const { return m_bLoading.load(std::memory_order_acquire); }
    int total() const { return m_nTotal.load(); } // points of the last finished load
    // Only while !isLoading().
    const PoiCollection& pois() const { return m_pois; }

Q_SIGNALS:
    void started();                  // lists made from the points before are stale from now on
    void progress(int runningTotal); // after each file
    void loaded(int total);          // at the end of a load that was not stopped

private:
    PoiCollection m_pois;
    std::atomic<bool> m_bLoading = false;
    std::atomic<int> m_nTotal = 0;
    std::jthread m_thread; // last: joined before the members it uses go
};
