// The four service classes as the simulator serves them, and the catalog of
// everything a scenario may script.
#include "simulator/Contract.h"

#include "simulator/Events.h"
#include "simulator/contract/Parts.h"

#include "Corvane.h"

namespace sim {

namespace {

template <typename Part> std::unique_ptr<PartBase> Make(CServiceObject &owner) {
    return std::make_unique<Part>(owner);
}

std::vector<ClassDef> BuildClasses() {
    std::vector<ClassDef> classes;
    classes.push_back({&CLSID_VirtualDiskService,
                       "VirtualDiskService",
                       {{&IID_IVirtualDisk, "IVirtualDisk", 0},
                        {&IID_IVirtualDisk2, "IVirtualDisk2", 0},
                        {&IID_IInitiator, "IInitiator", 1},
                        {&IID_IIGroup, "IIGroup", 2},
                        {&IID_IIscsi, "IIscsi", 3},
                        {&IID_IFcp, "IFcp", 4},
                        {&IID_ISpaceReclaimer, "ISpaceReclaimer", 5},
                        {&IID_ITransportProtocol, "ITransportProtocol", 6}},
                       {{&IID__IVirtualDiskEvents, "_IVirtualDiskEvents"}},
                       [](CServiceObject &owner) {
                           std::vector<std::unique_ptr<PartBase>> parts;
                           parts.push_back(MakeVirtualDiskPart(owner));
                           parts.push_back(MakeInitiatorPart(owner));
                           parts.push_back(MakeIGroupPart(owner));
                           parts.push_back(MakeIscsiPart(owner));
                           parts.push_back(MakeFcpPart(owner));
                           parts.push_back(MakeSpaceReclaimerPart(owner));
                           parts.push_back(MakeTransportProtocolPart(owner));
                           return parts;
                       }});
    classes.push_back({&CLSID_SnapShotService,
                       "SnapShotService",
                       {{&IID_ISnapShotCreate, "ISnapShotCreate", 0},
                        {&IID_ISnapShotManage, "ISnapShotManage", 1},
                        {&IID_ISnapShotList, "ISnapShotList", 2},
                        {&IID_ISnapShotSpace, "ISnapShotSpace", 3},
                        {&IID_ISnapShotMount, "ISnapShotMount", 4},
                        {&IID_ISnapShotInfo, "ISnapShotInfo", 5},
                        {&IID_ISnapShotDrives, "ISnapShotDrives", 6},
                        {&IID_ISnapShotVolumeRestore, "ISnapShotVolumeRestore", 7},
                        {&IID_ISnapShotArchive, "ISnapShotArchive", 8}},
                       {{&IID__ISnapShotEvents, "_ISnapShotEvents"}, {&IID__ISnapShotEvents2, "_ISnapShotEvents2"}},
                       [](CServiceObject &owner) {
                           std::vector<std::unique_ptr<PartBase>> parts;
                           parts.push_back(MakeSnapShotCreatePart(owner));
                           parts.push_back(MakeSnapShotManagePart(owner));
                           parts.push_back(MakeSnapShotListPart(owner));
                           parts.push_back(MakeSnapShotSpacePart(owner));
                           parts.push_back(MakeSnapShotMountPart(owner));
                           parts.push_back(MakeSnapShotInfoPart(owner));
                           parts.push_back(MakeSnapShotDrivesPart(owner));
                           parts.push_back(MakeSnapShotVolumeRestorePart(owner));
                           parts.push_back(MakeSnapShotArchivePart(owner));
                           return parts;
                       }});
    classes.push_back({&CLSID_SpaceMonitorService,
                       "SpaceMonitorService",
                       {{&IID_ISpaceMonitor, "ISpaceMonitor", 0}},
                       {},
                       [](CServiceObject &owner) {
                           std::vector<std::unique_ptr<PartBase>> parts;
                           parts.push_back(MakeSpaceMonitorPart(owner));
                           return parts;
                       }});
    classes.push_back({&CLSID_HyperVService, "HyperVService", {{&IID_IHyperV, "IHyperV", 0}}, {}, [](CServiceObject &owner) {
                           std::vector<std::unique_ptr<PartBase>> parts;
                           parts.push_back(MakeHyperVPart(owner));
                           return parts;
                       }});
    return classes;
}

} // namespace

const std::vector<ClassDef> &ServiceClasses() {
    static const std::vector<ClassDef> classes = BuildClasses();
    return classes;
}

Catalog ServiceCatalog() {
    Catalog catalog;
    for (const ClassDef &definition : ServiceClasses()) {
        for (const InterfaceDef &entry : definition.interfaces)
            catalog.classInterfaces[definition.name].insert(entry.name);
        // An event interface may be left out too: its connection point is then not found.
        for (const EventDef &event : definition.events)
            catalog.classInterfaces[definition.name].insert(event.name);
    }
    for (auto family :
         {&VirtualDiskMethods, &HostMethods, &IscsiMethods, &SnapshotMethods, &SnapshotMountMethods, &HyperVMethods})
        for (MethodEntry &entry : family())
            catalog.methods[entry.key] = entry.check;
    catalog.events = EventChecks();
    return catalog;
}

} // namespace sim
