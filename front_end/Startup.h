// Process-wide state set up by the entry before dispatch.
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

// One run's command line (argv[0] is the program) resolved, dispatched and
// every failure class printed: the exit status. Needs the message library and
// COM set up, as RunCvcli does; the fuzz driver calls it again and again.
HRESULT RunCommandLine(wchar_t **argv);

// The wide entry proper; wmain only forwards to it.
int RunCvcli(wchar_t **argv);
