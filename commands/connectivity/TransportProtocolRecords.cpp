#include "commands/connectivity/TransportProtocolRecords.h"

#include "MessageIds.h"
#include "front_end/Exceptions.h"
#include "front_end/Holders.h"

#include <cwchar>

void FreeTransportProtocolInfo(TransportProtocolInfo &protocol) {
    if (protocol.wszPassword != nullptr)
        SecureZeroMemory(protocol.wszPassword, wcslen(protocol.wszPassword) * sizeof(wchar_t));
    FreeAndClear(protocol.wszPassword);
    FreeAndClear(protocol.wszName);
    FreeAndClear(protocol.wszUserName);
    FreeStringArray(protocol.pwszOtherAddresses, protocol.dwOtherAddressCount);
}

void FreeTransportProtocolList(TransportProtocolList &list) {
    FreeEach(list.pProtocols, list.dwCount, FreeTransportProtocolInfo);
}

OwnedProtocolRecord::OwnedProtocolRecord()
    : m_record(static_cast<TransportProtocolInfo *>(CoTaskMemAlloc(sizeof(TransportProtocolInfo)))) {
    if (m_record == nullptr)
        throw AlertUserException(MSG_SET_TRANSPORT_PROTOCOL_FAILED, E_OUTOFMEMORY);
    ZeroMemory(m_record, sizeof(TransportProtocolInfo));
}

OwnedProtocolRecord::~OwnedProtocolRecord() {
    FreeTransportProtocolInfo(*m_record);
    CoTaskMemFree(m_record);
}

void OwnedProtocolRecord::SetText(wchar_t *TransportProtocolInfo::*field, const wchar_t *text) {
    wchar_t *copy = CoTaskStrDup(text);
    if (copy == nullptr)
        throw AlertUserException(MSG_SET_TRANSPORT_PROTOCOL_FAILED, E_OUTOFMEMORY);
    CoTaskMemFree(m_record->*field);
    m_record->*field = copy;
}
