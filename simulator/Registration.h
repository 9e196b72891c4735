// Writing and removing the registry keys through which COM finds the server.
#pragma once

#include "simulator/ServiceObject.h"

#include <vector>

namespace sim {

// CLSID\{class}\LocalServer32 = "<this executable>" for every class.
HRESULT RegisterServer(const std::vector<ClassDef> &classes);
HRESULT UnregisterServer(const std::vector<ClassDef> &classes);

} // namespace sim
