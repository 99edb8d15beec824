#pragma once

#include <QString>
#include <cstdint>

// Keeps the session from blanking or suspending while held ("NoPowerdown"), through the
// freedesktop screen saver service on the session bus. Without a session bus it does nothing.
class IdleInhibitor {
public:
    ~IdleInhibitor() { release(); }
    void hold(bool on) { on ? acquire() : release(); }
    bool isHeld() const { return m_nCookie != 0; }

private:
    void acquire();
    void release();

    uint32_t m_nCookie = 0;
};
