#pragma once

#include <QObject>
#include <QTimer>

class CHotkeyActions;

// The automatic announcement (timer 47, every "AutoAnnouncement" seconds) and the automatic TMC
// station search (timer 48, every "Auto TMC" minutes), each performing its hotkey action.
class CAutoActions : public QObject {
    Q_OBJECT
public:
    explicit CAutoActions(CHotkeyActions& actions, QObject* parent = nullptr);
    // Reads both periods and starts the timers whose period is not 0.
    void Start();

private:
    CHotkeyActions& m_actions;
    QTimer m_announcement;
    QTimer m_tmcSearch;
};
