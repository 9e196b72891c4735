// The probe class shared by the plumbing test's server and client.
#pragma once

#include <objbase.h>

// {0E3C2A51-64B7-4F1D-8C2E-5A9D7B3F1E01}
static const CLSID CLSID_Probe = {0x0e3c2a51, 0x64b7, 0x4f1d, {0x8c, 0x2e, 0x5a, 0x9d, 0x7b, 0x3f, 0x1e, 0x01}};
