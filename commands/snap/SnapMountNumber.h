// The -int number of snap mount, passed on to the service as it is.
#pragma once

#include "front_end/CommandLine.h"

#include <windows.h>

// A signed decimal number read from the leading characters of the one value
// (blanks, an optional sign, digits; beyond the 32-bit range it saturates).
// 0 when the switch is absent, has not exactly one value, or the value does
// not begin with a number.
LONG MountNumber(const CCommandLine::ValueList *values);
