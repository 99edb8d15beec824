#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// The device clock, injected wherever "now" or the local time matters, so that tests and
// `--now` can fix it. Times are whole seconds since 1970.
class DeviceClock {
public:
    virtual ~DeviceClock() = default;

    virtual int64_t utcNow() const = 0;
    // Local time minus UTC, in seconds. Measured once when the clock is made and kept for the
    // whole run, so a daylight-saving change during a run does not move fix times.
    virtual int32_t localOffset() const = 0;
    // Sets the machine's clock (UTC seconds). Failure, e.g. for lack of privilege, is ignored.
    virtual void setSystemTime(int64_t utcSeconds) = 0;

    int64_t localNow() const { return utcNow() + localOffset(); }
};

// The machine's real-time clock. Only the program's live receiver may set it: every other user
// (tarvik-tool, tests) makes it with `SetTime::Never`, and its setSystemTime does nothing.
class SystemDeviceClock final : public DeviceClock {
public:
    enum class SetTime { Allowed, Never };
    explicit SystemDeviceClock(SetTime setTime = SetTime::Never);
    int64_t utcNow() const override;
    int32_t localOffset() const override { return m_nLocalOffset; }
    void setSystemTime(int64_t utcSeconds) override;

private:
    int32_t m_nLocalOffset;
    SetTime m_setTime;
};

// A clock that stands still until told otherwise; setting the system time only records the request.
class FixedDeviceClock final : public DeviceClock {
public:
    explicit FixedDeviceClock(int64_t utcNow = 0, int32_t localOffset = 0)
        : m_tUtcNow(utcNow), m_nLocalOffset(localOffset) {}

    // "2026-11-22T00:00:30+01:00", "...Z", or without a zone (then the machine's offset at that
    // moment is taken); nothing when the text is not an ISO 8601 date and time.
    static std::optional<FixedDeviceClock> fromIso8601(const QString& text);

    int64_t utcNow() const override { return m_tUtcNow; }
    int32_t localOffset() const override { return m_nLocalOffset; }
    void setSystemTime(int64_t utcSeconds) override;

    void setUtcNow(int64_t utcSeconds) { m_tUtcNow = utcSeconds; }
    // The requests to set the system time so far, and the last one (UTC seconds).
    int setTimeRequests() const { return m_nSetTimeRequests; }
    int64_t lastSetTimeRequest() const { return m_tLastSetTime; }

private:
    int64_t m_tUtcNow;
    int32_t m_nLocalOffset;
    int m_nSetTimeRequests = 0;
    int64_t m_tLastSetTime = 0;
};

// Whole days since 1970-01-01 of a time in seconds (rounded down, also before 1970).
int64_t dayNumber(int64_t seconds);

// "2026-11-22T01:00:30+01:00": local seconds since 1970 with their offset from UTC (seconds).
// The buffer form writes at most kIsoLocalTimeSize characters (no NUL) and returns how many.
constexpr int kIsoLocalTimeSize = 32;
int formatIsoLocalTime(char* buffer, int64_t localSeconds, int32_t localOffset);
QString isoLocalTime(int64_t localSeconds, int32_t localOffset);
