#pragma once

#include "platform/BatteryStatus.h"

#include <cstdint>

class CFendixDoc;
class CGoToTarget;
struct NavigationTarget;
struct TmcStatus;

// Where the values of a template come from. Every pointer may be null: the variables that read it
// then stay empty. Nothing is owned; the caller keeps the objects alive during the expansion.
struct TemplateSources {
    const CFendixDoc* pDoc = nullptr;             // fix, statistics and the clock's offset
    const CGoToTarget* pGoTo = nullptr;           // null while the GoTo page does not exist
    const NavigationTarget* pNavTarget = nullptr; // the navigation program's destination
    const TmcStatus* pTmc = nullptr;              // the TMC receiver's state
    int nBatteryPercent = kUnknownBatteryPercent; // 0..100, see readBatteryPercent
    int64_t tLocalNow = 0;                        // local seconds since 1970: "Time", "Break" ...
};
