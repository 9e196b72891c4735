// The service contract as the simulator serves it: its classes with their
// interfaces and events, and the catalog of methods a scenario may script.
#pragma once

#include "simulator/Scenario.h"
#include "simulator/ServiceObject.h"

#include <vector>

namespace sim {

const std::vector<ClassDef> &ServiceClasses();
Catalog ServiceCatalog();

// One scripted method: its scenario key and the check of its data.
struct MethodEntry {
    const char *key;
    DataCheck check;
};

// The methods of each interface family, defined beside their implementations.
std::vector<MethodEntry> VirtualDiskMethods();
std::vector<MethodEntry> HostMethods();
std::vector<MethodEntry> IscsiMethods();
std::vector<MethodEntry> SnapshotMethods();
std::vector<MethodEntry> SnapshotMountMethods();
std::vector<MethodEntry> HyperVMethods();

} // namespace sim
