// Records the tool sends to the service: allocated with the COM task
// allocator, zero-filled, and freed by their holder after the call.
#pragma once

#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <cstring>

// `count` zero-filled records; when memory runs out, the operation's failure
// (messageId) with E_OUTOFMEMORY.
template <typename Record> CoTaskPtr<Record> AllocateSentRecords(size_t count, unsigned messageId) {
    const size_t bytes = (count == 0 ? 1 : count) * sizeof(Record);
    Record *records = static_cast<Record *>(CoTaskMemAlloc(bytes));
    if (records == nullptr)
        throw AlertUserException(messageId, E_OUTOFMEMORY);
    std::memset(static_cast<void *>(records), 0, bytes);
    return CoTaskPtr<Record>(records);
}
