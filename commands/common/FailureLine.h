// Handlers that answer their own unexpected failures (igroup,
// transport_protocol): usage and alert failures go on to the entry as
// everywhere else; any other failure ends in one "Failed to ..." line with the
// thread's last system error and the last HRESULT the handler saw, and the run
// counts as a success. The system error is the one the failure found where it
// was raised: the releases on the way out make calls of their own.
#pragma once

#include "front_end/Exceptions.h"

#include <windows.h>

#include <stdexcept>

enum class FailureOutput { Wide, Narrow };

// `format` takes the system error (%d) and the HRESULT (%lx), in that order.
void PrintFailureLine(FailureOutput output, const char *format, DWORD systemError, HRESULT lastHr);

// Runs body(lastHr); the body stores each result it gets in lastHr.
template <typename Body> void RunWithFailureLine(FailureOutput output, const char *format, Body &&body) {
    HRESULT lastHr = S_OK;
    try {
        body(lastHr);
    } catch (const OperationUsageException &) {
        throw;
    } catch (const AlertUserException &) {
        throw;
    } catch (const std::logic_error &) {
        throw; // a handler's own mistake, never a failure of the operation
    } catch (const LocalErrorException &e) {
        PrintFailureLine(output, format, e.SystemError(), lastHr);
    } catch (...) {
        const DWORD systemError = GetLastError();
        PrintFailureLine(output, format, systemError, lastHr);
    }
}
