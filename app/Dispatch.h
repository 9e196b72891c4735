// Dispatch of a (command, operation) pair through the operation table.
#pragma once

#include "front_end/CommandLine.h"

void DispatchOperation(unsigned commandId, unsigned operationId, CCommandLine &cl);
