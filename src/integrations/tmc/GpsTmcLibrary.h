#pragma once

#include "integrations/tmc/GpsTmcApi.h"

#include <QString>
#include <QStringList>
#include <functional>

// The loaded receiver library with its 18 functions. Every call goes through the typed methods
// below, which report it (name, arguments, result) to the call observer when one is set: the
// developer's probe and the tests see exactly what the receiver was told.
class GpsTmcLibrary {
public:
    using CallObserver = std::function<void(const QString& name, const QString& arguments, int result)>;

    GpsTmcLibrary() = default;
    ~GpsTmcLibrary();
    GpsTmcLibrary(const GpsTmcLibrary&) = delete;
    GpsTmcLibrary& operator=(const GpsTmcLibrary&) = delete;

    // dlopen of `path` (a bare name searches the library path), then every symbol in order. False
    // when the library or any symbol is missing; the library is then unloaded again.
    bool Load(const QString& path);
    void Unload();
    bool IsLoaded() const { return m_pHandle != nullptr; }
    // Why the last Load failed: the library's error, or the names of the missing symbols.
    const QString& LoadError() const { return m_strLoadError; }
    const QStringList& MissingSymbols() const { return m_missing; }

    void SetCallObserver(CallObserver observer) { m_observer = std::move(observer); }

    int Init(GpsTmcWindow* pWindow, int nPort, int nBaud, int nFlags);
    int Uninit();
    int SetStationFilter(int nFirst, int nSecond);
    int ControlTuner(int nCommand, int nValue);
    int AlternateGpsPort(int nPort, int nBaud);
    int GetCountAll();
    int GetRdsHealth();
    int GetTmcHealth();
    int GetTunerFrequency(); // 10 kHz units
    QString GetRdsStation();
    QString GetRadiotext();

private:
    template <typename Fn> Fn Function(GpsTmcApi::Symbol symbol) const {
        return reinterpret_cast<Fn>(m_functions[symbol]);
    }
    int Report(const char* pszName, const QString& arguments, int nResult) const;
    QString Text(GpsTmcApi::Symbol symbol);

    void* m_pHandle = nullptr;
    void* m_functions[GpsTmcApi::kSymbolCount] = {};
    QString m_strLoadError;
    QStringList m_missing;
    CallObserver m_observer;
};
