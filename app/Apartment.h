// The run's place in COM: the multithreaded apartment, joined at start-up and
// left when everything else has ended.
#pragma once

#include "front_end/AllocationSpy.h"

#include <objbase.h>

class ComApartment {
public:
    ComApartment() : m_hr(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComApartment() { Leave(); }
    ComApartment(const ComApartment &) = delete;
    ComApartment &operator=(const ComApartment &) = delete;
    HRESULT Result() const { return m_hr; }

    // Leaves COM once the output is complete and the exit status known. Under
    // Wine, COM's shutdown can wait for ever on a call of the service's that
    // has sent its answer but is not yet counted as ended (a race in Wine's
    // RPC run-time). Rather than leave a script waiting, a watchdog then ends
    // the process with that status, once the allocation report says so.
    void Leave(int status, const AllocationAccounting &allocations);

private:
    void Leave();

    HRESULT m_hr;
    bool m_joined = m_hr == S_OK;
};
