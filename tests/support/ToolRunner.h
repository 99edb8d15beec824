#pragma once

#include <QByteArray>
#include <QStringList>

struct ToolResult {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// Runs the built tarvik-tool with `args`, feeding `input` on stdin; gives up after `timeoutMs`.
ToolResult runTool(const QStringList& args, const QByteArray& input = {}, int timeoutMs = 60000);
