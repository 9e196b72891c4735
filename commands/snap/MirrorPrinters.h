// Printers of the Reflexa destinations that snap mirror_list shows.
#pragma once

#include "Corvane.h"

// "<prefix><count> Reflexa destination(s)", then one line per destination.
void PrintMirrorDestinations(const wchar_t *prefix, DWORD count, const MirrorDestination *destinations);
// A heading, then per mount point its line and its destinations, indented by a tab.
void PrintMountPointMirrors(const MountPointMirrorList &lists);
