// The request of a snapshot creation: the record, its entry array and a copy
// of every mount point, all in COM task memory, given back when the owner goes.
#pragma once

#include "Corvane.h"

#include <string>
#include <vector>

class SnapshotCreateRequestOwner {
public:
    // Copies the mount points in the order given. Memory running out throws the
    // creation's alert with E_OUTOFMEMORY; what was allocated so far is freed.
    SnapshotCreateRequestOwner(const std::vector<std::wstring> &mountPoints, bool onlyListedLuns);
    ~SnapshotCreateRequestOwner();
    SnapshotCreateRequestOwner(const SnapshotCreateRequestOwner &) = delete;
    SnapshotCreateRequestOwner &operator=(const SnapshotCreateRequestOwner &) = delete;

    SnapshotCreateRequest *Get() const { return m_request; }

private:
    void Free();

    SnapshotCreateRequest *m_request = nullptr;
};
