#include "commands/connectivity/PreferredIpTable.h"

#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

void FreePreferredIPTable(PreferredIPTable &table) {
    FreeEach(table.pEntries, table.dwCount, [](PreferredIPEntry &entry) {
        FreeAndClear(entry.wszStorageSystem);
        FreeAndClear(entry.wszIpAddress);
    });
}

CSentPreferredIPTable::CSentPreferredIPTable(size_t capacity, unsigned messageId)
    : m_table(), m_capacity(capacity), m_messageId(messageId) {
    if (capacity == 0)
        return; // an empty table crosses as a count of 0 and no array
    m_table.pEntries = static_cast<PreferredIPEntry *>(CoTaskMemAlloc(capacity * sizeof(PreferredIPEntry)));
    if (m_table.pEntries == nullptr)
        throw AlertUserException(messageId, E_OUTOFMEMORY);
    ZeroMemory(m_table.pEntries, capacity * sizeof(PreferredIPEntry));
}

CSentPreferredIPTable::~CSentPreferredIPTable() {
    FreePreferredIPTable(m_table);
}

wchar_t *CSentPreferredIPTable::Copy(const wchar_t *text) {
    wchar_t *copy = CoTaskStrDup(text);
    if (text != nullptr && copy == nullptr)
        throw AlertUserException(m_messageId, E_OUTOFMEMORY);
    return copy;
}

void CSentPreferredIPTable::Add(const wchar_t *storageSystem, const wchar_t *address) {
    if (m_table.dwCount >= m_capacity)
        return; // sized by the caller; never reached
    // Counted before filling, so that a copy that fails is still freed.
    PreferredIPEntry &entry = m_table.pEntries[m_table.dwCount++];
    entry.wszStorageSystem = Copy(storageSystem);
    entry.wszIpAddress = Copy(address);
}
