#pragma once

#include <QByteArray>
#include <QString>

// Runs `dataFolder`/commands.txt: each line one tarvik-tool call, its arguments separated by tabs ("#"
// lines are legends), all with one scratch --root; "$DIR" stands for a scratch copy of the folder's
// subfolders. Gives the transcript of calls, output, first line of stderr and exit codes, with the
// scratch folder written "$DIR" and the root "$ROOT".
QByteArray toolTranscript(const QString& dataFolder);
