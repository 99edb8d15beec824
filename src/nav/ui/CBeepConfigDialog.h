#pragma once

#include <QDialog>

class QCheckBox;
class QSlider;
class QSpinBox;

// "GoTo Beep Konfiguration": the beep switch, its volume on a slider and the repeat count. The caller
// mutes the beeps while it is open; OK stores "GoToBeep", "GoToBeepVol" and "GoToBeepRepeat".
class CBeepConfigDialog : public QDialog {
    Q_OBJECT
public:
    CBeepConfigDialog(bool bBeep, int volume, int repeat, QWidget* parent = nullptr);
    bool Beep() const;
    int Volume() const; // 0..65535
    int Repeat() const; // 1..255
    // Stores the three values.
    void Store() const;

private:
    QCheckBox* m_pBeep;
    QSlider* m_pVolume;
    QSpinBox* m_pRepeat;
};
