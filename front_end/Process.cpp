#include "front_end/Process.h"

#include "front_end/Console.h"

#include <cstdio>

wchar_t g_programName[_MAX_FNAME] = L"";
int g_debugSleepMs = 0;

void SetProgramName(const wchar_t *argv0) {
    wchar_t drive[_MAX_DRIVE], dir[_MAX_DIR], ext[_MAX_EXT];
    g_programName[0] = L'\0';
    if (argv0 == nullptr)
        return;
    _wsplitpath_s(argv0, drive, _MAX_DRIVE, dir, _MAX_DIR, g_programName, _MAX_FNAME, ext, _MAX_EXT);
    _wcslwr_s(g_programName, _MAX_FNAME);
}

void ReadDebugSleepTime() {
    FILE *file = _wfopen(L"sleeptime.txt", L"r");
    if (file == nullptr)
        return;
    char line[256] = {};
    if (fgets(line, sizeof(line), file) != nullptr) {
        g_debugSleepMs = atoi(line);
        Print(L"\nSleep time %d seconds\n", g_debugSleepMs / 1000);
    }
    fclose(file);
}
