#include "integrations/tmc/GpsTmcLibrary.h"

#include <algorithm>
#include <dlfcn.h>
#include <iterator>

using namespace GpsTmcApi;

GpsTmcLibrary::~GpsTmcLibrary() {
    Unload();
}

bool GpsTmcLibrary::Load(const QString& path) {
    Unload();
    m_missing.clear();
    m_strLoadError.clear();
    m_pHandle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!m_pHandle) {
        const char* pszError = dlerror();
        m_strLoadError = pszError ? QString::fromLocal8Bit(pszError) : path;
        return false;
    }
    for (int i = 0; i < kSymbolCount; ++i) {
        m_functions[i] = dlsym(m_pHandle, kSymbolNames[i]);
        if (!m_functions[i]) m_missing << QString::fromLatin1(kSymbolNames[i]);
    }
    if (m_missing.isEmpty()) return true;
    m_strLoadError = QStringLiteral("missing ") + m_missing.join(QStringLiteral(", "));
    Unload();
    return false;
}

void GpsTmcLibrary::Unload() {
    if (m_pHandle) dlclose(m_pHandle);
    m_pHandle = nullptr;
    std::fill(std::begin(m_functions), std::end(m_functions), nullptr);
}

int GpsTmcLibrary::Report(const char* pszName, const QString& arguments, int nResult) const {
    if (m_observer) m_observer(QString::fromLatin1(pszName), arguments, nResult);
    return nResult;
}

int GpsTmcLibrary::Init(GpsTmcWindow* pWindow, int nPort, int nBaud, int nFlags) {
    const int nResult = Function<GpsTmcInitFn>(kInit)(pWindow, nPort, nBaud, nFlags);
    return Report(kSymbolNames[kInit], QStringLiteral("%1 %2 0x%3").arg(nPort).arg(nBaud).arg(nFlags, 0, 16),
                  nResult);
}

int GpsTmcLibrary::Uninit() {
    return Report(kSymbolNames[kUninit], {}, Function<GpsTmcVoidFn>(kUninit)());
}

int GpsTmcLibrary::SetStationFilter(int nFirst, int nSecond) {
    return Report(kSymbolNames[kSetStationFilter], QStringLiteral("%1 %2").arg(nFirst).arg(nSecond),
                  Function<GpsTmcTwoIntFn>(kSetStationFilter)(nFirst, nSecond));
}

int GpsTmcLibrary::ControlTuner(int nCommand, int nValue) {
    return Report(kSymbolNames[kControlTuner], QStringLiteral("%1 %2").arg(nCommand).arg(nValue),
                  Function<GpsTmcTwoIntFn>(kControlTuner)(nCommand, nValue));
}

int GpsTmcLibrary::AlternateGpsPort(int nPort, int nBaud) {
    return Report(kSymbolNames[kAlternateGpsPort], QStringLiteral("%1 %2").arg(nPort).arg(nBaud),
                  Function<GpsTmcTwoIntFn>(kAlternateGpsPort)(nPort, nBaud));
}

// The status queries are asked every second; they are not reported, or they would bury the rest.
int GpsTmcLibrary::GetCountAll() {
    return Function<GpsTmcVoidFn>(kGetCountAll)();
}

int GpsTmcLibrary::GetRdsHealth() {
    return Function<GpsTmcVoidFn>(kGetRdsHealth)();
}

int GpsTmcLibrary::GetTmcHealth() {
    return Function<GpsTmcVoidFn>(kGetTmcHealth)();
}

int GpsTmcLibrary::GetTunerFrequency() {
    return Function<GpsTmcVoidFn>(kGetTunerFrequency)();
}

QString GpsTmcLibrary::Text(Symbol symbol) {
    char buffer[256] = {};
    const int nLength = Function<GpsTmcTextFn>(symbol)(buffer, int(sizeof buffer));
    if (nLength <= 0) return {};
    buffer[sizeof buffer - 1] = 0;
    return QString::fromLatin1(buffer).trimmed();
}

QString GpsTmcLibrary::GetRdsStation() {
    return Text(kGetRdsStation);
}

QString GpsTmcLibrary::GetRadiotext() {
    return Text(kGetRadiotext);
}
