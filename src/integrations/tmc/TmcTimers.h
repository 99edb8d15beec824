#pragma once

#include <QObject>
#include <QTimer>

// The TMC page's two timers: 1 retries the start (5000 ms), 2 polls the receiver's state (1000 ms).
// Behind an interface so that tests drive them by hand instead of waiting.
class TmcTimers {
public:
    static constexpr int kRetry = 1;
    static constexpr int kStatus = 2;

    virtual ~TmcTimers() = default;
    virtual void Start(int nTimer, int nMilliseconds) = 0;
    virtual void Stop(int nTimer) = 0;
};

// The real timers: each expiry calls `fired` with the timer's number until it is stopped.
class QtTmcTimers final : public QObject, public TmcTimers {
    Q_OBJECT
public:
    explicit QtTmcTimers(QObject* parent = nullptr);
    void Start(int nTimer, int nMilliseconds) override;
    void Stop(int nTimer) override;

Q_SIGNALS:
    void fired(int nTimer);

private:
    QTimer* Timer(int nTimer);

    QTimer m_retry;
    QTimer m_status;
};
