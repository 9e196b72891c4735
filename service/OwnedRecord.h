// A record the service filled in (strings and arrays allocated with the COM
// task allocator), released field by field when the holder goes.
#pragma once

#include <objbase.h>

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
