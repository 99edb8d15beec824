// A simulated TMC receiver behind the real library's functions. It reports its hardware ready
// (or, with TARVIK_GPSTMC_NO_HARDWARE=1 in the environment, missing) from a thread of its own, as
// the real library does, tunes to "NDR 2" and holds a message count that grows with every query.
#include "integrations/tmc/GpsTmcApi.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

namespace {

std::mutex g_mutex;
std::thread g_reporter;
std::atomic<int> g_nMessages{0};
std::atomic<int> g_nFrequency{8790};

int copyText(const char* text, char* buffer, int size) {
    if (!buffer || size <= 0) return 0;
    const int length = std::min(int(std::strlen(text)), size - 1);
    std::memcpy(buffer, text, size_t(length));
    buffer[length] = 0;
    return length;
}

void joinReporter() {
    if (g_reporter.joinable()) g_reporter.join();
}

} // namespace

extern "C" {

int GpsTmc_Init(GpsTmcWindow* window, int port, int baud, int /*flags*/) {
    if (!window || port < 0 || baud <= 0) return 1;
    std::lock_guard lock(g_mutex);
    joinReporter();
    const char* noHardware = std::getenv("TARVIK_GPSTMC_NO_HARDWARE");
    const int message =
        noHardware && std::strcmp(noHardware, "1") == 0 ? kGpsTmcNoHardware : kGpsTmcHardwareOk;
    const GpsTmcWindow target = *window;
    g_reporter = std::thread([target, message] { target.notify(target.context, message); });
    return 0;
}

int GpsTmc_Uninit() {
    std::lock_guard lock(g_mutex);
    joinReporter();
    return 0;
}

int GpsTmc_SetStationFilter(int, int) {
    return 0;
}

int GpsTmc_ControlTuner(int command, int) {
    if (command == 32 || command == 64) g_nFrequency = 9050; // the search lands on another station
    return 0;
}

#ifndef GPSTMC_STANDIN_WITHOUT_REINIT
int GpsTmc_ReInit() {
    return 0;
}
#endif

int GpsTmc_GetRdsStation(char* buffer, int size) {
    return copyText(g_nFrequency == 8790 ? "NDR 2" : "Antenne", buffer, size);
}

int GpsTmc_GetRadiotext(char* buffer, int size) {
    return copyText("Verkehrsfunk", buffer, size);
}

int GpsTmc_GetRdsHealth() {
    return 98;
}

int GpsTmc_GetTmcHealth() {
    return 87;
}

int GpsTmc_GetRdsAF(int* values, int count) {
    const int frequencies[] = {8790, 9050, 10120};
    for (int i = 0; i < count && i < 3; ++i)
        values[i] = frequencies[i];
    return 3;
}

int GpsTmc_GetTunerFrequency() {
    return g_nFrequency;
}

int GpsTmc_GetCountAll() {
    return ++g_nMessages;
}

int GpsTmc_DefineValidLtns(int, int) {
    return 0;
}

int GpsTmc_ReadRawGGA(char* buffer, int size) {
    return copyText("", buffer, size);
}

int GpsTmc_ReadRawVTG(char* buffer, int size) {
    return copyText("", buffer, size);
}

int GpsTmc_ReadRawRMC(char* buffer, int size) {
    return copyText("", buffer, size);
}

int GpsTmc_ReadRawGSV(char* buffer, int size) {
    return copyText("", buffer, size);
}

int GpsTmc_AlternateGpsPort(int port, int baud) {
    return port >= 0 && baud > 0 ? 0 : 1;
}
}
