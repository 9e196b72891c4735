#include "front_end/Startup.h"

#include <windows.h>

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

void ReadDebugSleepTime() {}

int RunCvcli(wchar_t **argv) {
    SetProgramName(argv[0]);
    return 0;
}
