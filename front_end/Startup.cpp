#include "front_end/Startup.h"

#include "MessageIds.h"
#include "front_end/AllocationSpy.h"
#include "front_end/CommandLine.h"
#include "front_end/Console.h"
#include "front_end/Dispatch.h"
#include "front_end/Exceptions.h"
#include "front_end/Help.h"
#include "front_end/Holders.h"
#include "front_end/Messages.h"
#include "front_end/Words.h"
#include "service/ServiceAccess.h"

#include <objbase.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

wchar_t g_programName[_MAX_FNAME] = L"";
int g_debugSleepMs = 0;

namespace {

// Nothing reads it; kept so a diagnostic build can look at the probe's answer.
bool g_diskServiceProbed = false;

// Joins the multithreaded apartment for the life of the run.
class ComApartment {
public:
    ComApartment() : m_hr(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComApartment() {
        if (m_hr == S_OK)
            CoUninitialize();
    }
    ComApartment(const ComApartment &) = delete;
    ComApartment &operator=(const ComApartment &) = delete;
    HRESULT Result() const { return m_hr; }

private:
    HRESULT m_hr;
};

// Where libraries may come from: the program's own folder and the system
// folder, never the current directory or PATH, where anyone may have left a
// file of the same name. Set before the message library, for it and for every
// library loaded after it.
constexpr DWORD kLibraryFolders = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;

HMODULE LoadResourceLibrary() {
    SetDefaultDllDirectories(kLibraryFolders);
    return LoadLibraryExW(kResourceLibraryName, nullptr, kLibraryFolders);
}

void ResolveAndDispatch(wchar_t **argv) {
    const unsigned commandId = GetCommandId(argv[1]);
    if (commandId == cmd::None) {
        g_diskServiceProbed = ProbeDiskService();
        throw UsageException();
    }
    if (commandId == cmd::Help) {
        const unsigned described = GetCommandId(argv[2]);
        if (described != cmd::None)
            throw CommandUsageException(described);
        g_diskServiceProbed = ProbeDiskService();
        throw UsageException();
    }
    if (commandId == cmd::Vsconfig)
        g_diskServiceProbed = ProbeDiskService();

    const unsigned operationId = GetOperationId(argv[2]);
    if (operationId == op::None)
        throw CommandUsageException(commandId);
    if (operationId == op::Help) {
        const unsigned described = GetOperationId(argv[3]);
        if (described != op::None)
            throw OperationUsageException(commandId, described, 0);
        throw CommandUsageException(commandId);
    }
    CCommandLine commandLine(argv + 3);
    DispatchOperation(commandId, operationId, commandLine);
    PrintCompletionLine();
}

} // namespace

HRESULT RunCommandLine(wchar_t **argv) {
    try {
        ResolveAndDispatch(argv);
        return S_OK;
    } catch (UsageException &) {
        PrintGeneralUsage();
        return E_INVALIDARG;
    } catch (CommandUsageException &e) {
        PrintCommandUsage(e.CommandId());
        return E_INVALIDARG;
    } catch (OperationUsageException &e) {
        if (e.MessageId() != 0)
            PrintOperationMessage(e.MessageId());
        if (e.OperationId() != 0)
            PrintOperationUsage(e.CommandId(), e.OperationId());
        return E_INVALIDARG;
    } catch (AlertUserException &e) {
        PrintAlert(e.Hresult(), e.Text());
        return e.Hresult();
    } catch (LocalErrorException &e) {
        PrintLocalError(e.MessageId());
        return E_INVALIDARG;
    }
}

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

int RunCvcli(wchar_t **argv) {
    SetProgramName(argv[0]);
    Library resources(LoadResourceLibrary());
    if (!resources) {
        MessageBoxW(nullptr, L"Loading CorvaneRes.dll failed", L"Error", MB_ICONERROR);
        return 0;
    }
    AllocationAccounting allocations; // outlives the apartment: it counts what COM gives back at the end
    ComApartment apartment;
    // A COM start-up failure is raised outside the catch region: the process
    // ends abnormally, as it cannot talk to any service.
    if (apartment.Result() != S_OK) {
        FlushOutput();
        throw AlertUserException(MSG_SERVICE_UNAVAILABLE, apartment.Result());
    }
    HRESULT hr = CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                      EOAC_NONE, nullptr);
    if (hr != S_OK) {
        FlushOutput();
        throw AlertUserException(MSG_SERVICE_UNAVAILABLE, hr);
    }
    const HRESULT status = RunCommandLine(argv);
    FlushOutput();
    return static_cast<int>(status);
}
