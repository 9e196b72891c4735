#include "app/Apartment.h"

#include "front_end/Holders.h"
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
    const KernelHandle left(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    Watch watch{left.Get(), status, &allocations};
    const KernelHandle watchdog(left ? CreateThread(nullptr, 0, WatchShutdown, &watch, 0, nullptr) : nullptr);
    Leave();
    if (watchdog) {
        SetEvent(left.Get());
        WaitForSingleObject(watchdog.Get(), INFINITE);
    }
}

void ComApartment::Leave() {
    if (!m_joined)
        return;
    ReleaseKeptSinkInterfaces();
    CoUninitialize();
    m_joined = false;
}
