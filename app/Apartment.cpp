#include "app/Apartment.h"

#include "service/EventSinks.h"

#include <windows.h>

namespace {

// Far beyond any shutdown that ends at all (a few milliseconds), and well
// within what a script would wait for a finished command.
constexpr DWORD kShutdownLimitMs = 10000;

struct Watch {
    HANDLE left;
    int status;
    const AllocationAccounting *allocations;
};

DWORD WINAPI WatchShutdown(void *parameter) {
    const Watch &watch = *static_cast<const Watch *>(parameter);
    if (WaitForSingleObject(watch.left, kShutdownLimitMs) == WAIT_TIMEOUT) {
        watch.allocations->WriteReport("shutdown cut short");
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(watch.status));
    }
    return 0;
}

} // namespace

void ComApartment::Leave(int status, const AllocationAccounting &allocations) {
    if (!m_joined)
        return;
    Watch watch{CreateEventW(nullptr, TRUE, FALSE, nullptr), status, &allocations};
    HANDLE watchdog = watch.left != nullptr ? CreateThread(nullptr, 0, WatchShutdown, &watch, 0, nullptr) : nullptr;
    Leave();
    if (watchdog != nullptr) {
        SetEvent(watch.left);
        WaitForSingleObject(watchdog, INFINITE);
        CloseHandle(watchdog);
    }
    if (watch.left != nullptr)
        CloseHandle(watch.left);
}

void ComApartment::Leave() {
    if (!m_joined)
        return;
    ReleaseKeptSinkInterfaces();
    CoUninitialize();
    m_joined = false;
}
