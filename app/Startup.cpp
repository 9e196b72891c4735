#include "app/Startup.h"

#include "MessageIds.h"
#include "app/Apartment.h"
#include "app/Dispatch.h"
#include "app/Operations.h"
#include "front_end/AllocationSpy.h"
#include "front_end/CommandLine.h"
#include "front_end/Console.h"
#include "front_end/Exceptions.h"
#include "front_end/Help.h"
#include "front_end/Holders.h"
#include "front_end/Messages.h"
#include "front_end/Process.h"
#include "front_end/Words.h"
#include "service/ServiceAccess.h"

#include <objbase.h>
#include <windows.h>

#include <cstdlib>

namespace {

// Nothing reads it; kept so a diagnostic build can look at the probe's answer.
bool g_diskServiceProbed = false;

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
        PrintCommandUsage(Operations(), e.CommandId());
        return E_INVALIDARG;
    } catch (OperationUsageException &e) {
        if (e.MessageId() != 0)
            PrintOperationMessage(e.MessageId());
        if (e.OperationId() != 0)
            PrintOperationUsage(Operations(), e.CommandId(), e.OperationId());
        return E_INVALIDARG;
    } catch (AlertUserException &e) {
        PrintAlert(e.Hresult(), e.Text());
        return e.Hresult();
    } catch (LocalErrorException &e) {
        PrintLocalError(e.MessageId());
        return E_INVALIDARG;
    }
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
    // A script that saves the output must not take a listing that never
    // reached its file (a full disk) for a success.
    const unsigned long writeError = FinishOutput();
    const int exitStatus = static_cast<int>(status == S_OK && writeError != 0 ? HRESULT_FROM_WIN32(writeError) : status);
    apartment.Leave(exitStatus, allocations);
    return exitStatus;
}
