#pragma once

#include "ToolContext.h"

// "sound record OUT.wav --seconds S": records from the default audio input.
int recordSound(ToolContext& ctx, const QString& path, const QString& seconds);
// "sound wav-info FILE": {"rate", "channels", "bits", "seconds"}.
int printWavInfo(ToolContext& ctx, const QString& path);
