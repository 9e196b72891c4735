// The one table that maps a (command, operation) pair to its handler.
#pragma once

#include "front_end/CommandLine.h"

// Every operation handler: takes the switches, returns nothing, reports
// failure only by the failure classes.
using OperationHandler = void (*)(CCommandLine &);

struct DispatchRow {
    unsigned command;
    unsigned operation;
    OperationHandler handler;
};

// What a command does with a pair that has no row.
enum class UnlistedPair {
    CommandUsage, // print the command's operation list, return normally
    Nothing,      // print nothing, return normally
    GeneralUsage, // print the general usage, return normally
};

// Null when the pair has no row.
OperationHandler FindHandler(unsigned commandId, unsigned operationId);
UnlistedPair UnlistedPairBehaviour(unsigned commandId);

unsigned DispatchRowCount();
const DispatchRow &DispatchRowAt(unsigned index);

void DispatchOperation(unsigned commandId, unsigned operationId, CCommandLine &cl);

// For operations that this version recognises but does not provide.
void OperationNotAvailable(CCommandLine &cl);
