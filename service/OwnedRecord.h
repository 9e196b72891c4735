// The two owners of records exchanged with the service, whose strings and
// arrays live in COM task memory: OwnedRecord for a record held in the
// caller's storage, OwnedAllocation for a record that is itself a COM task
// allocation. Both serve records the service returns and records the tool
// builds to send; Free releases the record's fields in both.
#pragma once

#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <objbase.h>

#include <cstring>
#include <utility>

template <typename Record, void (*Free)(Record &)> class OwnedRecord {
public:
    OwnedRecord() : m_record() {}
    ~OwnedRecord() { Free(m_record); }
    OwnedRecord(const OwnedRecord &) = delete;
    OwnedRecord &operator=(const OwnedRecord &) = delete;

    Record *operator&() = delete;
    Record *Out() { return &m_record; } // for the service call's [out] argument
    Record &Get() { return m_record; }
    const Record *operator->() const { return &m_record; }

private:
    Record m_record;
};

// `count` zero-filled records to send (at least one byte when count is 0);
// when memory runs out, the operation's failure (messageId) with E_OUTOFMEMORY.
template <typename Record> CoTaskPtr<Record> AllocateSentRecords(size_t count, unsigned messageId) {
    const size_t bytes = (count == 0 ? 1 : count) * sizeof(Record);
    Record *records = static_cast<Record *>(CoTaskMemAlloc(bytes));
    if (records == nullptr)
        throw AlertUserException(messageId, E_OUTOFMEMORY);
    std::memset(static_cast<void *>(records), 0, bytes);
    return CoTaskPtr<Record>(records);
}

template <typename Record, void (*Free)(Record &)> class OwnedAllocation {
public:
    OwnedAllocation() = default;
    explicit OwnedAllocation(Record *record) : m_record(record) {}
    ~OwnedAllocation() { Reset(); }
    OwnedAllocation(OwnedAllocation &&other) noexcept : m_record(std::exchange(other.m_record, nullptr)) {}
    OwnedAllocation &operator=(OwnedAllocation &&other) noexcept {
        if (this != &other) {
            Reset();
            m_record = std::exchange(other.m_record, nullptr);
        }
        return *this;
    }
    OwnedAllocation(const OwnedAllocation &) = delete;
    OwnedAllocation &operator=(const OwnedAllocation &) = delete;

    // One zero-filled record to send; when memory runs out, the operation's
    // failure (messageId) with E_OUTOFMEMORY.
    static OwnedAllocation Zeroed(unsigned messageId) {
        return OwnedAllocation(AllocateSentRecords<Record>(1, messageId).Release());
    }

    Record *Get() const { return m_record; }
    Record *operator->() const { return m_record; }
    Record **Receive() { // for the service call's [out] argument
        Reset();
        return &m_record;
    }

private:
    void Reset() {
        if (m_record != nullptr) {
            Free(*m_record);
            CoTaskMemFree(m_record);
            m_record = nullptr;
        }
    }

    Record *m_record = nullptr;
};

// Frees a CoTaskMem string array of `count` entries and the array itself.
template <typename Count> void FreeStringArray(wchar_t **&strings, Count &count) {
    if (strings != nullptr) {
        for (Count i = 0; i < count; ++i)
            CoTaskMemFree(strings[i]);
        CoTaskMemFree(strings);
    }
    strings = nullptr;
    count = 0;
}

// How many elements a returned counted array holds: a count without an array
// (which COM carries faithfully) is an empty list, never a list to read.
template <typename Element, typename Count> Count CountOf(const Element *items, Count count) {
    return items != nullptr ? count : 0;
}

template <typename T> void FreeAndClear(T *&pointer) {
    CoTaskMemFree(pointer);
    pointer = nullptr;
}

// A counted array the service returned: each element's own allocations
// (freeElement), then the array; count and pointer are left at zero.
template <typename Element, typename Count, typename FreeElement>
void FreeEach(Element *&items, Count &count, FreeElement freeElement) {
    for (Count i = 0; items != nullptr && i < count; ++i)
        freeElement(items[i]);
    FreeAndClear(items);
    count = 0;
}
