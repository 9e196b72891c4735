// Dispatch of a (command, operation) pair through the operation table.
#pragma once

#include "front_end/CommandLine.h"

// What a command does with a pair that has no handler.
enum class UnlistedPair {
    CommandUsage, // print the command's operation list, return normally
    Nothing,      // print nothing, return normally
    GeneralUsage, // print the general usage, return normally
};

UnlistedPair UnlistedPairBehaviour(unsigned commandId);

void DispatchOperation(unsigned commandId, unsigned operationId, CCommandLine &cl);
