// runexit: runs the command line that follows its own program name, exactly as
// it was given (quotes, empty strings and non-ASCII text untouched), lets the
// child write to the same standard handles, and reports the child's full
// 32-bit exit status. A Linux parent of Wine only sees the low 8 bits, which
// cannot tell E_INVALIDARG (0x80070057) from a plain 87.
//
// The status goes to the file named by RUNEXIT_STATUS_FILE as "0x%08X\n", and
// is also runexit's own exit status.
#include "WindowsSide.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

// The program name ends at the next quote when it starts with one (no escapes
// there), else at the first blank; the child's command line starts after the
// blanks that follow it.
const wchar_t *SkipProgramName(const wchar_t *p) {
    if (*p == L'"') {
        ++p;
        while (*p != L'\0' && *p != L'"')
            ++p;
        if (*p == L'"')
            ++p;
    } else {
        while (*p != L'\0' && *p != L' ' && *p != L'\t')
            ++p;
    }
    while (*p == L' ' || *p == L'\t')
        ++p;
    return p;
}

void ReportStatus(DWORD status) {
    File file = FileNamedBy(L"RUNEXIT_STATUS_FILE", L"w");
    if (file != nullptr)
        fprintf(file.get(), "0x%08lX\n", static_cast<unsigned long>(status));
}

} // namespace

int wmain() {
    const wchar_t *tail = SkipProgramName(GetCommandLineW());
    if (*tail == L'\0') {
        fwprintf(stderr, L"usage: runexit <program> [arguments]\n");
        return 2;
    }
    // CreateProcessW may write into the command line, so it gets a private copy.
    std::wstring commandLine(tail);
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
        DWORD error = GetLastError();
        fwprintf(stderr, L"runexit: cannot start the program (error %lu)\n", static_cast<unsigned long>(error));
        ReportStatus(HRESULT_FROM_WIN32(error));
        return 2;
    }
    KernelHandle child(process.hProcess);
    KernelHandle thread(process.hThread);
    WaitForSingleObject(child.get(), INFINITE);
    DWORD status = 0;
    if (!GetExitCodeProcess(child.get(), &status)) {
        fwprintf(stderr, L"runexit: no exit status (error %lu)\n", static_cast<unsigned long>(GetLastError()));
        return 2;
    }
    ReportStatus(status);
    return static_cast<int>(status);
}
