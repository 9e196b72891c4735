// The entry: start-up, resolution of the two words, dispatch, and the
// printing of every failure class as the exit status.
#pragma once

#include <windows.h>

// One run's command line (argv[0] is the program) resolved, dispatched and
// every failure class printed: the exit status. Needs the message library and
// COM set up, as RunCvcli does; the fuzz driver calls it again and again.
HRESULT RunCommandLine(wchar_t **argv);

// The wide entry proper; wmain only forwards to it.
int RunCvcli(wchar_t **argv);
