#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QLineEdit;

// The alerts page "Meldungen": each alert sound (no fix, signal back, no data) on or off with its
// WAV file, a chooser, a test button and its recording ("Sound aufnehmen"); the speed sounds with
// their folder and a recording for a speed band; the master switch "Sound an/aus". Every change is
// stored at once and the document's alert and speed sounds are reloaded.
class CModuleAlerts : public CPageView {
    Q_OBJECT
public:
    struct Actions {
        std::function<void()> alertsChanged;                   // reload the alert sounds
        std::function<void()> speedSoundsChanged;              // reload the speed table
        std::function<void(const QString& hostPath)> playFile; // the test button
        std::function<bool()> isSoundOn;
        std::function<void(bool)> setSoundOn;
    };
    CModuleAlerts(Actions actions, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}

private:
    struct AlertRow {
        QCheckBox* pOn;
        QLineEdit* pFile;
    };
    void Store();
    void Choose(int alert);
    // Opens "Sound aufnehmen" for an alert's file, or for a speed band when `alert` is -1.
    void RecordSound(int alert);

    Actions m_actions;
    AlertRow m_rows[3];
    QCheckBox* m_pSpeedSounds;
    QLineEdit* m_pSpeedFolder;
    QCheckBox* m_pSoundOn;
};
