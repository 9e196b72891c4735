// The operation rows (handler, switches and usage block) of the LUN command (disk) and of the configuration report (sysconfig).
#include "app/Operations.h"

#include "MessageIds.h"
#include "commands/Handlers.h"
#include "front_end/Help.h"
#include "front_end/Switches.h"
#include "front_end/Words.h"

namespace {

constexpr const wchar_t *kLunPathForm = L"<LUNPath> is <storagesystem name>:/vol/<volumename>/<lunname>, or the deprecated "
                                        L"\\\\<storagesystem name>\\<cifs share>\\<lunname>.\n";

constexpr OperationRow kRows[] = {
    {cmd::Disk,
     op::Create,
     OperationNotAvailable,
     L"%s %s %s [%s <MachineName>] %s <LUNPath> %s <MountPoint> %s <Size> [%s {shared|dedicated}] "
     L"[%s <NodeMachineName> <InitiatorName> [...] | %s <NodeMachineName> <InitiatorgroupName> [...]] [%s {y|n}]\n",
     {kMachineSwitch, RequiredSwitch(sw::p), RequiredSwitch(sw::d), RequiredSwitch(sw::z), OptionalSwitch(sw::dtype),
      OptionalSwitch(sw::I), OptionalSwitch(sw::IG), OptionalSwitch(sw::rs)},
     {{L"Creates a LUN on a storage system, connects it to the host and mounts it at <MountPoint>.\n", nullptr},
      {kLunPathForm, nullptr},
      {L"%s Size of the LUN in MB; a GB or TB suffix may be given (10GB).\n", sw::z},
      {L"%s A shared LUN is a cluster disk; a dedicated LUN belongs to this host only.\n", sw::dtype},
      {L"%s The initiators through which the host reaches the LUN.\n", sw::I},
      {L"%s The initiator groups to which the LUN is mapped.\n", sw::IG},
      {L"%s Reserves space for snapshot copies of the LUN: y (default) or n.\n", sw::rs}},
     true},
    {cmd::Disk,
     op::Delete,
     DiskDelete,
     L"%s %s %s [%s <MachineName>] {%s <MountPoint> | %s <LUNPath>}\n",
     {kMachineSwitch, AlternativeSwitch(sw::d, SwitchKind::MountPoint, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
      AlternativeSwitch(sw::p, SwitchKind::Value, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH)},
     {{L"Deletes a LUN, named by its mount point or by its LUN path.\n", nullptr}, {kLunPathForm, nullptr}},
     true},
    {cmd::Disk,
     op::Connect,
     OperationNotAvailable,
     L"%s %s %s [%s <MachineName>] %s <LUNPath> %s <MountPoint> [%s {shared|dedicated}] "
     L"[%s <NodeMachineName> <InitiatorName> [...] | %s <NodeMachineName> <InitiatorgroupName> [...]]\n",
     {kMachineSwitch, RequiredSwitch(sw::p), RequiredSwitch(sw::d), OptionalSwitch(sw::dtype), OptionalSwitch(sw::I),
      OptionalSwitch(sw::IG)},
     {{L"Connects an existing LUN to the host and mounts it at <MountPoint>.\n", nullptr},
      {kLunPathForm, nullptr},
      {L"%s A shared LUN is a cluster disk; a dedicated LUN belongs to this host only.\n", sw::dtype}},
     true},
    {cmd::Disk,
     op::Disconnect,
     DiskDisconnect,
     L"%s %s %s [%s <MachineName>] {%s <MountPoint> | %s <LUNPath>} [%s]\n",
     {kMachineSwitch, AlternativeSwitch(sw::d, SwitchKind::MountPoint, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
      AlternativeSwitch(sw::p, SwitchKind::Value, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH), OptionalSwitch(sw::f, SwitchKind::Flag)},
     {{L"Disconnects a LUN from the host, named by its mount point or by its LUN path.\n", nullptr},
      {kLunPathForm, nullptr},
      {L"%s The LUN is disconnected even if an application uses it. This feature should be used with caution.\n", sw::f}},
     true},
    {cmd::Disk,
     op::Expand,
     DiskExpand,
     L"%s %s %s [%s <MachineName>] {%s <MountPoint> | %s <LUNPath>} %s <Size> [%s {y|n}]\n",
     {kMachineSwitch, AlternativeSwitch(sw::d, SwitchKind::MountPoint, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
      AlternativeSwitch(sw::p, SwitchKind::Value, MSG_USAGE_MOUNT_POINT_OR_LUN_PATH),
      RequiredSwitch(sw::z, SwitchKind::Value, MSG_USAGE_SIZE),
      OptionalSwitch(sw::rs, SwitchKind::YesNo, MSG_USAGE_SPACE_RESERVATION)},
     {{L"Expands a LUN by <Size>, named by its mount point or by its LUN path.\n", nullptr},
      {kLunPathForm, nullptr},
      {L"%s Size to add, in MB; a GB or TB suffix may be given (10GB).\n", sw::z},
      {L"%s Whether space stays reserved for snapshot copies: y (default) or n. It decides how far the LUN can grow.\n", sw::rs}},
     true},
    {cmd::Disk,
     op::List,
     DiskList,
     L"%s %s %s [%s <MachineName>]\n",
     {kMachineSwitch},
     {{L"Lists the LUNs connected to the host and the initiator through which each is reached.\n", nullptr}},
     true},
    {cmd::Disk,
     op::AddInitiator,
     OperationNotAvailable,
     L"%s %s %s [%s <MachineName>] {%s <MountPoint> | %s <LUNPath>} "
     L"{%s <NodeMachineName> <InitiatorName> [...] | %s <NodeMachineName> <InitiatorgroupName> [...]}\n",
     {kMachineSwitch, AlternativeSwitch(sw::d), AlternativeSwitch(sw::p), AlternativeSwitch(sw::I), AlternativeSwitch(sw::IG)},
     {{L"Maps further initiators or initiator groups to a LUN.\n", nullptr}, {kLunPathForm, nullptr}},
     true},
    {cmd::Disk,
     op::RemoveInitiator,
     OperationNotAvailable,
     L"%s %s %s [%s <MachineName>] {%s <MountPoint> | %s <LUNPath>} "
     L"{%s <NodeMachineName> <InitiatorName> [...] | %s <NodeMachineName> <InitiatorgroupName> [...]}\n",
     {kMachineSwitch, AlternativeSwitch(sw::d), AlternativeSwitch(sw::p), AlternativeSwitch(sw::I), AlternativeSwitch(sw::IG)},
     {{L"Removes initiators or initiator groups from the mapping of a LUN.\n", nullptr}, {kLunPathForm, nullptr}},
     true},
    {cmd::Disk,
     op::AddMount,
     DiskAddMount,
     L"%s %s %s [%s <MachineName>] %s <VolumeName> %s <MountPoint> [%s]\n",
     {kMachineSwitch, RequiredSwitch(sw::vn, SwitchKind::Value, MSG_USAGE_VOLUME_NAME),
      RequiredSwitch(sw::mp, SwitchKind::Value, MSG_USAGE_MOUNT_POINT), OptionalSwitch(sw::create_folder, SwitchKind::Flag)},
     {{L"Adds a mount point (a drive letter or an empty folder) to the volume of a connected LUN.\n", nullptr},
      {L"<VolumeName> is the Volume Name that the disk list operation prints.\n", nullptr},
      {L"%s Creates the folder of the mount point when it does not exist.\n", sw::create_folder}},
     true},
    {cmd::Disk,
     op::RemoveMount,
     DiskRemoveMount,
     L"%s %s %s [%s <MachineName>] %s <VolumeName> %s <MountPoint>\n",
     {kMachineSwitch, RequiredSwitch(sw::vn, SwitchKind::Value, MSG_USAGE_VOLUME_NAME),
      RequiredSwitch(sw::mp, SwitchKind::Value, MSG_USAGE_MOUNT_POINT)},
     {{L"Removes a mount point from the volume of a connected LUN.\n", nullptr},
      {L"<VolumeName> is the Volume Name that the disk list operation prints.\n", nullptr}},
     true},

    {cmd::Sysconfig,
     op::List,
     OperationNotAvailable,
     L"%s %s %s [%s <MachineName>] [%s <FileName>]\n",
     {kMachineSwitch, OptionalSwitch(sw::filename)},
     {{L"Reports the Corvane configuration of the host: version, cluster, drivers, FCP adapters and ports, iSCSI HBAs, "
       L"sessions and portals, NFS credentials, multipath and free drive letters.\n",
       nullptr},
      {L"%s Writes the report to <FileName> instead of the console.\n", sw::filename}},
     true},
};

} // namespace

OperationRows DiskOperations() {
    return {kRows, sizeof(kRows) / sizeof(kRows[0])};
}
