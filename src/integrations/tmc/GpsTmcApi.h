#pragma once

// The binary interface of the TMC receiver library "libgpstmc.so": plain C functions of 32-bit
// integers, looked up by name. The handheld passed a window that received the library's
// notifications; here that window is a callback with its context, called on the library's own
// thread.
extern "C" {

struct GpsTmcWindow {
    void (*notify)(void* context, int message);
    void* context;
};

// The two notifications of the library.
enum GpsTmcMessage { kGpsTmcHardwareOk = 1, kGpsTmcNoHardware = 2 };

// 0 = started; the library then reports kGpsTmcHardwareOk or kGpsTmcNoHardware.
typedef int (*GpsTmcInitFn)(GpsTmcWindow* window, int port, int baud, int flags);
typedef int (*GpsTmcVoidFn)();
typedef int (*GpsTmcTwoIntFn)(int first, int second);
// Copies a zero-terminated text of at most size - 1 bytes into buffer; returns its length.
typedef int (*GpsTmcTextFn)(char* buffer, int size);
// Fills up to count frequencies (10 kHz units); returns how many there are.
typedef int (*GpsTmcListFn)(int* values, int count);
}

namespace GpsTmcApi {
// The symbols in the order they are looked up; a missing one leaves TMC off.
enum Symbol {
    kInit,
    kUninit,
    kSetStationFilter,
    kControlTuner,
    kReInit,
    kGetRdsStation,
    kGetRadiotext,
    kGetRdsHealth,
    kGetTmcHealth,
    kGetRdsAF,
    kGetTunerFrequency,
    kGetCountAll,
    kDefineValidLtns,
    kReadRawGGA,
    kReadRawVTG,
    kReadRawRMC,
    kReadRawGSV,
    kAlternateGpsPort,
    kSymbolCount
};
inline constexpr const char* kSymbolNames[kSymbolCount] = {
    "GpsTmc_Init",
    "GpsTmc_Uninit",
    "GpsTmc_SetStationFilter",
    "GpsTmc_ControlTuner",
    "GpsTmc_ReInit",
    "GpsTmc_GetRdsStation",
    "GpsTmc_GetRadiotext",
    "GpsTmc_GetRdsHealth",
    "GpsTmc_GetTmcHealth",
    "GpsTmc_GetRdsAF",
    "GpsTmc_GetTunerFrequency",
    "GpsTmc_GetCountAll",
    "GpsTmc_DefineValidLtns",
    "GpsTmc_ReadRawGGA",
    "GpsTmc_ReadRawVTG",
    "GpsTmc_ReadRawRMC",
    "GpsTmc_ReadRawGSV",
    "GpsTmc_AlternateGpsPort",
};
// The flags the receiver is started with.
inline constexpr int kInitFlags = 0x6FF00;
} // namespace GpsTmcApi
