#pragma once

#include <QString>
#include <functional>

class Backlight;
class CFendixDoc;
class CMainFrame;
class SoundController;

// Runs one hotkey action by its name: a page "<page name>", the views in turn, backlight, volume and
// sound, reboot, closing, the screenshot, the document's resets and storing the position. The buttons,
// the automatic timers and the buttons of user pages all come here. "<MN …>" actions go to the
// navigation handler; until one is set they are only logged.
class CHotkeyActions {
public:
    struct Services {
        CMainFrame* pFrame = nullptr;
        CFendixDoc* pDoc = nullptr;
        SoundController* pSounds = nullptr; // may be null: no sound output
        Backlight* pBacklight = nullptr;    // may be null: no backlight
        std::function<void()> storePosition;
        std::function<void(const QString&)> showNotice; // a short text that goes away by itself
        std::function<bool()> reboot;                   // asks the system to restart
    };
    using NavigationHandler = std::function<void(const QString& action)>;

    explicit CHotkeyActions(Services services);

    void Perform(const QString& action);
    // Where the navigation program bridge takes the "<MN …>" actions.
    void SetNavigationHandler(NavigationHandler handler) { m_navigation = std::move(handler); }

private:
    bool PerformFixed(const QString& action);
    void NextView();
    void StepBacklight(int direction);
    void StepVolume(int direction);
    void ToggleSound();
    void Reboot();
    void Screenshot();
    void Notice(const QString& text);

    Services m_services;
    NavigationHandler m_navigation;
};
