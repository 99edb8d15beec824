#include "integrations/navbridge/PostNaviStart.h"

#include "settings/DevLog.h"

PostNaviStart::~PostNaviStart() {
    Stop();
}

bool PostNaviStart::Tick(bool navigatorRunning, const QString& autoStartProgram) {
    if (!navigatorRunning) return false;
    if (m_worker.joinable()) return true;
    QString program = autoStartProgram;
    program.replace(QLatin1Char('/'), QLatin1Char('\\'));
    m_worker = std::thread([this, program] { Run(program); });
    return true;
}

void PostNaviStart::Stop() {
    m_stop.set();
    Join();
}

void PostNaviStart::Join() {
    if (m_worker.joinable()) m_worker.join();
}

void PostNaviStart::Run(QString program) {
    devLog("->Start PostNavi");
    if (!m_stop.waitFor(int(m_services.firstWait.count()))) {
        if (m_services.start) m_services.start(program);
        if (program.toLower().contains(QLatin1String("warner")) &&
            !m_stop.waitFor(int(m_services.warnerWait.count())) && m_services.sendPoiWarnerStart &&
            m_services.sendPoiWarnerStart() && !m_stop.waitFor(int(m_services.frontWait.count())) &&
            m_services.bringNavigatorToFront)
            m_services.bringNavigatorToFront();
    }
    devLog("->End PostNavi");
}
