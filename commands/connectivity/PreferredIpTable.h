// The preferred-IP table as the service returns it and as the tool sends it
// back: the service keeps the whole table, so every change writes all of it.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

#include <cstddef>

void FreePreferredIPTable(PreferredIPTable &table);
using OwnedPreferredIPTable = OwnedRecord<PreferredIPTable, FreePreferredIPTable>;

// A table built for SetPreferredIPs: CoTaskMem entries holding CoTaskMem copies
// of the strings, all freed when the table goes. Running out of memory is the
// operation's failure (messageId) with E_OUTOFMEMORY.
class CSentPreferredIPTable {
public:
    CSentPreferredIPTable(size_t capacity, unsigned messageId);
    ~CSentPreferredIPTable();
    CSentPreferredIPTable(const CSentPreferredIPTable &) = delete;
    CSentPreferredIPTable &operator=(const CSentPreferredIPTable &) = delete;

    void Add(const wchar_t *storageSystem, const wchar_t *address);
    PreferredIPTable *Get() { return &m_table; }

private:
    wchar_t *Copy(const wchar_t *text);

    PreferredIPTable m_table;
    size_t m_capacity;
    unsigned m_messageId;
};
