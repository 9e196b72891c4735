// The operation table: one row per (command, operation) that cvcli knows,
// carrying the handler that dispatch calls, the switches the handler reads and
// the usage block that help prints. Adding an operation is one row in its
// family's Operations*.cpp and one handler in its family.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Help.h"

// Every row, family after family, in the order that help lists them.
const OperationTable &Operations();

// The rows of each family, each in its own Operations*.cpp.
OperationRows SnapOperations();           // snap, arkhold
OperationRows DiskOperations();           // disk, sysconfig
OperationRows ConnectivityOperations();   // fcp_initiator, iscsi_*, preferredIP, igroup, transport_protocol
OperationRows SpaceOperations();          // spacemon, spacereclaimer, hidden
OperationRows DataProtectionOperations(); // dataset, vsconfig, qrm_config, hyperv

// The handler of operations that this version recognises but does not provide.
void OperationNotAvailable(const Operation &operation);
