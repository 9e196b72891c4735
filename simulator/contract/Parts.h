// The implementations of the service's interfaces, one part each, and the
// record readers that more than one interface family returns.
#pragma once

#include "simulator/Records.h"
#include "simulator/ServiceObject.h"

#include "Corvane.h"

#include <memory>

namespace sim {

std::unique_ptr<PartBase> MakeVirtualDiskPart(CServiceObject &owner); // IVirtualDisk and IVirtualDisk2
std::unique_ptr<PartBase> MakeInitiatorPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeIGroupPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeIscsiPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeFcpPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSpaceReclaimerPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeTransportProtocolPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotCreatePart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotManagePart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotListPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotSpacePart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotArchivePart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotMountPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotInfoPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotDrivesPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSnapShotVolumeRestorePart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeSpaceMonitorPart(CServiceObject &owner);
std::unique_ptr<PartBase> MakeHyperVPart(CServiceObject &owner);

// Records that several families hand back.
void ReadInitiatorInfo(Reader &r, InitiatorInfo &out);
void ReadSnapshotInfo(Reader &r, SnapshotInfo &out);

} // namespace sim
