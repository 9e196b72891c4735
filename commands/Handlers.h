// The operation handlers, one per dispatched (command, operation) pair.
#pragma once

#include "front_end/CommandLine.h"

// disk
void DiskList(CCommandLine &cl);
