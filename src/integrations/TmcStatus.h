#pragma once

#include <QString>

// The TMC receiver's state as the pages and templates show it; 255 messages means "not known yet".
struct TmcStatus {
    static constexpr int kUnknownCount = 255;

    int nMessageCount = kUnknownCount;
    QString strStation;

    bool IsCountKnown() const { return nMessageCount != kUnknownCount; }
};
