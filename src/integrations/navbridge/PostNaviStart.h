#pragma once

#include "gps/sources/StopEvent.h"

#include <QString>
#include <chrono>
#include <functional>
#include <thread>

// "PostNavi": the program started with Tarvik ("AutoStart") waits for the navigation program. The
// UI thread asks Ready() every 2000 ms (timer 49) until the navigation window exists; then a worker
// waits 5000 ms, starts the program and, for a POI warner (path containing "warner"), waits another
// 5000 ms, sends the "POI-Warner" window its start command and, 500 ms later, brings the navigation
// program back to the front.
class PostNaviStart {
public:
    static constexpr std::chrono::milliseconds kPollPeriod{2000};
    struct Services {
        std::function<void(const QString& program)> start; // "/" already read as "\"
        std::function<bool()> sendPoiWarnerStart;          // true when the window was there
        std::function<void()> bringNavigatorToFront;       // called on the worker thread
        std::chrono::milliseconds firstWait{5000};
        std::chrono::milliseconds warnerWait{5000};
        std::chrono::milliseconds frontWait{500};
    };
    explicit PostNaviStart(Services services) : m_services(std::move(services)) {}
    ~PostNaviStart(); // ends the worker at the application's stop

    // One tick of timer 49: false while the timer is to go on (navigation window not there yet).
    bool Tick(bool navigatorRunning, const QString& autoStartProgram);
    void Stop();
    void Join();

private:
    void Run(QString program);

    Services m_services;
    StopEvent m_stop;
    std::thread m_worker;
};
