#pragma once

#include "integrations/TmcStatus.h"
#include "integrations/template/TemplateSources.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class CFendixDoc;
class CGoToTarget;
class CLiveposSender;
class CTmcReceiver;
class DeviceClock;
class DeviceRoot;
class PageFactory;
class QtTmcTimers;

// The services beside the GPS that run while the program runs: the TMC receiver and the live
// position upload, with their pages. The position updates reach the upload through OnUpdate;
// Stop ends the send thread and the receiver library before the document closes.
class IntegrationServices : public QObject {
    Q_OBJECT
public:
    IntegrationServices(const DeviceRoot& root, DeviceClock& clock, CFendixDoc& doc, CGoToTarget& target,
                        const NavigationTarget& navTarget, QObject* parent = nullptr);
    ~IntegrationServices() override;

    // Hands a destination (degrees, longitude first) to the navigation program.
    using HandToNavigation = std::function<void(double lon, double lat, const QString& name)>;
    // `showGoTo` switches the frame to the GoTo page.
    void AddPages(PageFactory& pages, std::function<void()> showGoTo, HandToNavigation handToNavigation);
    void Start();
    void OnUpdate(uint16_t hint);
    // The hotkey actions these services take ("<MN TMC Sendersuchlauf>"); false for the others.
    bool PerformAction(const QString& action);
    void Stop();
    const TmcStatus& Tmc() const { return m_tmcStatus; }
    // Every value a template can show, as of now: user pages, the overlay and the upload read the same.
    TemplateSources Sources() const;

private:
    QString Expand(const QString& text) const;

    DeviceClock& m_clock;
    CFendixDoc& m_doc;
    CGoToTarget& m_target;
    const NavigationTarget& m_navTarget;
    TmcStatus m_tmcStatus;
    std::unique_ptr<QtTmcTimers> m_pTmcTimers;
    std::unique_ptr<CTmcReceiver> m_pTmc;
    std::unique_ptr<CLiveposSender> m_pLivepos;
};
