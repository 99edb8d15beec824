#pragma once

#include "gps/sources/StopEvent.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <atomic>
#include <chrono>
#include <thread>

class DeviceRoot;

// TomTom Navigator's SDK file calls: a message file and a "finished" file in "\TomTom\SdkFileCalls";
// TomTom answers with reply files that a clean-up worker deletes.
namespace TomTomSdk {
inline constexpr const char* kFolder = "\\TomTom\\SdkFileCalls";
inline constexpr const char* kMessageFile =
    "\\TomTom\\SdkFileCalls\\Tarvik.TomTomNavigationServer.1.1.message";
inline constexpr const char* kFinishedFile =
    "\\TomTom\\SdkFileCalls\\Tarvik.TomTomNavigationServer.1.1.finished";

// "NavigateToCoordinatesV01|lon*100000|lat*100000|name|." (truncated), 8-bit.
QByteArray navigateMessage(double lon, double lat, const QString& name);

// Appends the message with its zero byte, then "finish\n" and a zero byte to the finished file.
// Gives the two host paths written, or an empty list when the folder or a file cannot be written.
QStringList sendFileCall(const DeviceRoot& root, const QByteArray& message);
} // namespace TomTomSdk

// The clean-up after a file call ("DelSDKFiles"): each round it deletes TomTom's reply files
// "TomTomNavigationServer.Tarvik.*.*" and counts them; after 2 replies or the last round it deletes
// Tarvik's own "Tarvik.TomTomNavigationServer.*.*" files and ends. Rounds are 100 ms, 600 of them,
// unless a test asks for shorter ones.
class SdkFileCleanup {
public:
    static constexpr int kRounds = 600;
    static constexpr std::chrono::milliseconds kRound{100};

    explicit SdkFileCleanup(const DeviceRoot& root, std::chrono::milliseconds round = kRound,
                            int rounds = kRounds);
    ~SdkFileCleanup(); // stops a running worker and waits for it

    // Starts the worker; a worker that still runs from the last call keeps running instead.
    void start();
    // Ends the worker early (the application's stop) and waits for it; the request files stay.
    void stop();
    bool isRunning() const;
    // Waits for the worker to end by itself.
    void join();
    // Replies deleted by the last worker that ended.
    int repliesDeleted() const { return m_nReplies; }

private:
    void run();
    int deleteFiles(const QString& pattern) const;

    QString m_strFolder;
    std::chrono::milliseconds m_round;
    int m_nRounds;
    StopEvent m_stop;
    std::thread m_thread;
    std::atomic<bool> m_bRunning{false};
    std::atomic<int> m_nReplies{0};
};
