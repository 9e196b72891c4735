// Printers of the iSCSI records. A field prints only when its bit is set in
// the record's presence mask. Nested printers take a prefix: a list prints its
// heading with the prefix and its items one tab further in; a record shown
// under a heading line of its own (the HBA after "Microsoft iSCSI service", a
// portal after "Initiator portal:") is one tab further in as well.
#pragma once

#include "Corvane.h"

#include <string>

// The host's sessions, grouped by the target they connect to.
void PrintConnectedTargetList(const std::wstring &prefix, const IscsiConnectedTargetList &list);
// The targets of a storage system with their network portals.
void PrintStorageTargetList(const IscsiStorageTargetList &list);

// An IPv4 address held in network byte order, as four decimal numbers.
std::string Ipv4Text(DWORD address);
