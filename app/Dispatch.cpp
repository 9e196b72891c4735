#include "app/Dispatch.h"

#include "MessageIds.h"
#include "app/Operations.h"
#include "front_end/Exceptions.h"
#include "front_end/Help.h"
#include "front_end/Operation.h"
#include "front_end/Words.h"

const OperationTable &Operations() {
    static const OperationRows kFamilies[] = {SnapOperations(), DiskOperations(), ConnectivityOperations(), SpaceOperations(),
                                              DataProtectionOperations()};
    static const OperationTable kTable(kFamilies);
    return kTable;
}

// Each pair reaches at most one row, and so at most one handler.
void DispatchOperation(unsigned commandId, unsigned operationId, CCommandLine &cl) {
    const OperationRow *row = Operations().Find(commandId, operationId);
    if (row != nullptr && row->handler != nullptr) {
        row->handler(Operation(cl, *row));
        return;
    }
    switch (UnlistedPairBehaviour(commandId)) {
    case UnlistedPair::CommandUsage:
        PrintCommandUsage(Operations(), commandId);
        break;
    case UnlistedPair::GeneralUsage:
        PrintGeneralUsage();
        break;
    case UnlistedPair::Nothing:
        break;
    }
}

void OperationNotAvailable(const Operation &) {
    throw LocalErrorException(MSG_OPERATION_NOT_AVAILABLE);
}
