#pragma once

#include "shell/ui/CPageView.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

// The data source page: where the sentences come from and how they are logged. The values
// are written when the user applies them, which restarts the source with reset; while the page is
// shown, the raw sentences scroll at its foot.
class CSourceSettingsPage : public CPageView {
    Q_OBJECT
public:
    // `apply` restarts the source with reset (the document's UpdateSettings(true)).
    CSourceSettingsPage(std::function<void()> apply, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
    void OnRawSentence(const char* pLine, int nLength) override;
    // Reads every field from the settings again.
    void Load();
    // Writes every field and restarts the source.
    void Apply();

private:
    QWidget* BuildForm();
    void ShowDeviceOfSelectedPort();
    void ChooseFile();

    std::function<void()> m_apply;
    QComboBox* m_pSource;
    QLineEdit* m_pDevice;
    QLineEdit* m_pGpsdHost;
    QLineEdit* m_pTcpHost;
    QCheckBox* m_pAcceptAllTalkers;
    QComboBox* m_pSpeed;
    QLineEdit* m_pFile;
    QSpinBox* m_pSimulationSpeed;
    QComboBox* m_pLogDelay;
    QList<QCheckBox*> m_logTypes;
    QLineEdit* m_pLogDirectory;
    QSpinBox* m_pDelFilesOlder;
    QSpinBox* m_pAutoReconnect;
    QCheckBox* m_pMnPriority;
    QPlainTextEdit* m_pRaw;
};
