#pragma once

#include <QObject>

class QSocketNotifier;

// The kernel's pressure-stall notification for memory (/proc/pressure/memory): the Linux
// counterpart of the handheld shell asking a program to give memory back. Inactive where the
// kernel offers no pressure information.
class MemoryPressure : public QObject {
    Q_OBJECT
public:
    explicit MemoryPressure(QObject* parent = nullptr);
    ~MemoryPressure() override;
    bool isActive() const { return m_nFd >= 0; }

Q_SIGNALS:
    void pressure();

private:
    int m_nFd = -1;
    QSocketNotifier* m_pNotifier = nullptr;
};
