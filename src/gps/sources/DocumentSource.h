#pragma once

#include "gps/sources/GpsSourceController.h"
#include "gps/sources/GpsSourceTarget.h"

#include <QString>
#include <functional>

class CFendixDoc;
class DeviceClock;

// Connects the document to its GPS source: the document's sentences, restarts and navigation
// probe come from here, and CFendixDoc::UpdateSettings reaches the controller through it. Made
// beside the document by whoever owns both (the main frame, tarvik-tool watch).
class DocumentSource : private GpsSourceTarget {
public:
    DocumentSource(CFendixDoc& doc, const DeviceRoot& root, const DeviceClock& clock);
    ~DocumentSource() override;

    // At start: starts the configured source with reset, then takes the navigation program's last
    // published speed and course (its position only serves to see whether it moved since).
    void start();
    GpsSourceController& controller() { return m_controller; }

    // Where failures of the source go ("Unable to open the port: ..."); the developer log only
    // when none is set.
    void setMessageHandler(std::function<void(const QString&)> handler) {
        m_showMessage = std::move(handler);
    }
    // Called after every handed-over sentence with the interpreter's change code.
    void setSentenceObserver(std::function<void(const char*, int, uint16_t)> observer) {
        m_observeSentence = std::move(observer);
    }
    // The recorded file opened for viewing while the source is "Datei" (host path); else empty.
    const QString& viewedFile() const { return m_strViewedFile; }

private:
    void HandleSentence(const char* pLine, int nLength) override;
    void ShowSourceMessage(const QString& strText) override;
    void PrepareSourceChange(bool bResetStatistics) override;
    void SourceStarted(int nIndex, const QString& strFile, bool bResetStatistics) override;
    void TakeNavigationPosition(const MNPosition& position) override;
    void SupervisionTick() override;

    CFendixDoc& m_doc;
    const DeviceClock& m_clock;
    GpsSourceController m_controller;
    std::function<void(const QString&)> m_showMessage;
    std::function<void(const char*, int, uint16_t)> m_observeSentence;
    QString m_strViewedFile;
};
