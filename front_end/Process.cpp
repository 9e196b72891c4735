#include "front_end/Process.h"

#include "front_end/Console.h"

#include <cstdio>

wchar_t g_programName[_MAX_FNAME] = L"";
int g_debugSleepMs = 0;

void SetProgramName(const wchar_t *argv0) {
    g_programName[0] = L'\0';
    if (argv0 == nullptr)
        return;
    // The name is what follows the last separator, up to its last dot. Taken
    // by hand: splitting the whole path fails on paths longer than its buffers.
    const wchar_t *name = argv0;
    for (const wchar_t *p = argv0; *p != L'\0'; ++p)
        if (*p == L'\\' || *p == L'/' || *p == L':')
            name = p + 1;
    const wchar_t *dot = wcsrchr(name, L'.');
    size_t length = dot != nullptr ? static_cast<size_t>(dot - name) : wcslen(name);
    if (length >= _MAX_FNAME)
        length = _MAX_FNAME - 1;
    wmemcpy(g_programName, name, length);
    g_programName[length] = L'\0';
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
