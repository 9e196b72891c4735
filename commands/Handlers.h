// The operation handlers, one per dispatched (command, operation) pair. Each
// family declares its own handlers in its own block.
#pragma once

#include "front_end/CommandLine.h"

// disk
void DiskList(CCommandLine &cl);
// (end of disk)

// snap
// (end of snap)

// iscsi_initiator, iscsi_target, fcp_initiator, preferredIP
// (end of iscsi, fcp, preferredIP)

// igroup, transport_protocol
void ListInitiatorGroups(CCommandLine &cl);
void CreateInitiatorGroup(CCommandLine &cl);
void RenameInitiatorGroup(CCommandLine &cl);
void DeleteInitiatorGroup(CCommandLine &cl);
void ListTransportProtocolSettings(CCommandLine &cl);
void SetTransportProtocol(CCommandLine &cl);
void DeleteTransportProtocolSetting(CCommandLine &cl);
// (end of igroup, transport_protocol)

// hyperv
void HyperVList(CCommandLine &cl);
// (end of hyperv)
