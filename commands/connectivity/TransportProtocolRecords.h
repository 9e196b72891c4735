// The transport protocol records exchanged with ITransportProtocol.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

// The reserved entry name of the default protocol.
constexpr const wchar_t *kDefaultProtocolEntry = L"#!Default#!SSProtocol";

// Releases every string of a record, the password wiped first, and the other
// addresses.
void FreeTransportProtocolInfo(TransportProtocolInfo &protocol);
void FreeTransportProtocolList(TransportProtocolList &list);
using OwnedTransportProtocolList = OwnedRecord<TransportProtocolList, FreeTransportProtocolList>;

// The one record that set sends: allocated zeroed with the COM task allocator,
// its strings and itself freed when the holder goes.
class OwnedProtocolRecord {
public:
    OwnedProtocolRecord(); // a failed allocation: AlertUserException (6111, E_OUTOFMEMORY)
    ~OwnedProtocolRecord();
    OwnedProtocolRecord(const OwnedProtocolRecord &) = delete;
    OwnedProtocolRecord &operator=(const OwnedProtocolRecord &) = delete;

    TransportProtocolInfo *Get() const { return m_record; }
    // Stores a copy of the text in one of the record's string fields.
    void SetText(wchar_t *TransportProtocolInfo::*field, const wchar_t *text);

private:
    TransportProtocolInfo *m_record;
};
