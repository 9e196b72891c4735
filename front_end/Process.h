// Process-wide state that the entry sets before dispatch and the help printers
// and a few handlers read.
#pragma once

#include <windows.h>

#include <cstdlib>

// File name of argv[0] without directory and extension, lower-cased.
extern wchar_t g_programName[_MAX_FNAME];

// Pause (milliseconds) that a few handlers take at one fixed point; 0 unless a
// diagnostic build read it from "sleeptime.txt".
extern int g_debugSleepMs;

void SetProgramName(const wchar_t *argv0);
void ReadDebugSleepTime();
