#pragma once

// Tells on stderr, once per process, that a sound device is missing: "tarvik: <message>". Later
// notices are dropped, so a machine without audio gets one line however often sound is tried.
void noteMissingAudioOnce(const char* message);
