#pragma once

#include "ToolContext.h"

#include <QStringList>

// One function per noun; each answers "--help" and returns the process exit code.
int runRegCommand(ToolContext& ctx, QStringList args);
int runIniCommand(ToolContext& ctx, QStringList args);
int runCoordCommand(ToolContext& ctx, QStringList args);
int runGeoCommand(ToolContext& ctx, QStringList args);
int runGridCommand(ToolContext& ctx, QStringList args);
int runNmeaCommand(ToolContext& ctx, QStringList args);
int runTrackCommand(ToolContext& ctx, QStringList args);
int runReplayCommand(ToolContext& ctx, QStringList args);
int runSoundCommand(ToolContext& ctx, QStringList args);
int runDemoCommand(ToolContext& ctx, QStringList args);
int runFakeReceiverCommand(ToolContext& ctx, QStringList args);
int runShareCommand(ToolContext& ctx, QStringList args);
int runWatchCommand(ToolContext& ctx, QStringList args);
int runKalCommand(ToolContext& ctx, QStringList args);
int runMapCommand(ToolContext& ctx, QStringList args);
int runPoiCommand(ToolContext& ctx, QStringList args);
int runWptCommand(ToolContext& ctx, QStringList args);
int runGotoCommand(ToolContext& ctx, QStringList args);
int runNavCommand(ToolContext& ctx, QStringList args);
int runSkyCommand(ToolContext& ctx, QStringList args);
int runLogCommand(ToolContext& ctx, QStringList args);
int runHotkeyCommand(ToolContext& ctx, QStringList args);
int runTemplateCommand(ToolContext& ctx, QStringList args);
int runPageCommand(ToolContext& ctx, QStringList args);
int runLiveposCommand(ToolContext& ctx, QStringList args);
int runTmcCommand(ToolContext& ctx, QStringList args);
