// Counts the COM task-allocator blocks of this process, so that a test run can
// prove that every record the service returned and every request cvcli built
// was given back. Off unless CVCLI_ALLOCATION_REPORT names a file; then the
// count of blocks still outstanding is written there when the run ends. With
// CVCLI_ALLOCATION_SECRET set as well, every block given back is searched for
// that text (UTF-16) first, and the report also says how many still held it:
// a password that was not wiped before its memory went back.
#pragma once

#include <objidl.h>

class AllocationAccounting {
public:
    // Registers the spy when the report is asked for; must come before the
    // COM apartment so that it outlives it.
    AllocationAccounting();
    // Writes "outstanding <blocks> <bytes>" (and "unwiped <blocks>") and revokes the spy.
    ~AllocationAccounting();
    // Writes the report now, with a line of its own when `note` is given.
    void WriteReport(const char *note = nullptr) const;
    AllocationAccounting(const AllocationAccounting &) = delete;
    AllocationAccounting &operator=(const AllocationAccounting &) = delete;

private:
    IMallocSpy *m_spy = nullptr;
    bool m_watching = false;
    wchar_t m_reportPath[260] = L"";
};

// The spy's own count: blocks allocated through it and not yet freed.
struct AllocationCount {
    long blocks;
    long long bytes;
};
AllocationCount OutstandingAllocations(IMallocSpy *spy);
IMallocSpy *NewAllocationSpy(const wchar_t *secret = nullptr); // secret: the text to look for in freed blocks
long UnwipedFrees(IMallocSpy *spy);                            // blocks given back that still held the secret
