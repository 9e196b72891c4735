"""Start-up, dispatch, help and exit status: the paths that every command shares."""

from harness import E_INVALIDARG, REGDB_E_CLASSNOTREG, S_OK, Case, alert, completion, longest_argument
from cases.lun_common import LOCAL_MACHINE, MSG_SERVICE_UNAVAILABLE


def general_usage(program="cvcli"):
    return (
        "\nThe following commands are available:\n\n"
        "\tsysconfig\tdisk\tsnap\tarkhold\tiscsi_initiator\tiscsi_target\n"
        "\tpreferredIP\tspacemon\tigroup\tspacereclaimer\ttransport_protocol\n"
        '\nFor more information type "%s help <command>"\n' % program
    )


def snap_usage(program="cvcli"):
    return (
        "\nThe snap command performs operations on snapshot copies. The following operations are available:\n"
        "\tcreate\tdelete\trestore\trename\tlist\tmount\tunmount\tupdate_mirror\tmirror_list\trestore_volume_check"
        "\trestore_volume\n\n"
        'For information about an individual operation type "%s snap help <operation>"\n' % program
    )


HIDDEN_USAGE = (
    "\nThe hidden command performs operations for testing purpose only. The following operations are available:\n"
    "\tcache\tGetActiveDrives3\tGetActiveDrives4\tExecuteEMSHomecall\tlunstats\tvalidate_connection_params"
    "\tconnect_storages\tdisconnect_storages\tdo_vbsr\tget_reflexa_status\tbreak_reflexas\tresync_reflexas"
    "\trelease_reflexas\tget_clonara_status\n\n"
    'For information about an individual operation type "cvcli hidden help <operation>"\n'
)

FCP_USAGE = (
    "\nThe fcp_initiator command performs operations on FCP initiators on the system. Following operations are available:\n"
    "\tlist\n\n"
    'For information about an individual operation, type "cvcli fcp_initiator help <operation>"\n'
)


def snap_create_usage(program="cvcli"):
    return (
        "%s snap create  [-m <MachineName>] -s <SnapshotName> -D <MountPointList> [...] [-x] [-u [yes|no]]\n" % program
        + "Creates new snapshot copy of the LUNs.\n"
        "-x Snapshot copy will be taken only for the LUNs explicitly specified in the <MountPointList>, otherwise snapshot"
        " copy of all LUNs drives residing on the storage system(s) volume(s) will be taken.\n"
        "-u Initiates reflexa update after snapshot copy creation for any reflexa source volumes having disks specified in"
        " the <MountPointList>. If this key is not specified reflexa update will be initiated.\n" + LOCAL_MACHINE
    )


SNAP_DELETE_USAGE = (
    "cvcli snap delete [-m <MachineName>] -d <MountPoint> -s <SnapshotName>\n"
    "Deletes existing snapshot copy of a LUN.\n" + LOCAL_MACHINE
)

SERVICE_ABSENT = alert(MSG_SERVICE_UNAVAILABLE, REGDB_E_CLASSNOTREG)


def probed(result):
    """The disk service was created once, locally, and called for nothing."""
    assert result.created() == ["VirtualDiskService"], "created %r" % result.created()
    assert result.calls() == [], "calls %r" % result.calls()


def not_probed(result):
    assert result.created() == [], "created %r" % result.created()


REPEATED = 1000


def near_limit(*before, fill="x"):
    """The arguments, then one argument as long as the command line allows."""
    return list(before) + [fill * longest_argument(list(before))]


def refused(hr):
    """A scenario in which every creation of the disk service fails with hr."""
    return {"classes": {"VirtualDiskService": {"createResult": "0x%08X" % hr}}}


# The probe's failure shows the cause that fits the code's facility: a Win32
# text, the NT-status table (asked for the code without its marker bit), the
# resource library, or the unknown-error text with the code tried in base 17.
REFUSALS = [("access denied", 0x80070005), ("file not found", 0x80070002), ("RPC server unavailable", 0x800706BA),
            ("interface-defined code", 0xC0040123), ("NT status", 0xD0000022), ("other facility", 0x90040123)]

CASES = [
    # Words and the entry's own cases.
    Case("no arguments", [], general_usage(), E_INVALIDARG, check=probed),
    Case("help", ["help"], general_usage(), E_INVALIDARG, check=probed),
    Case("help with an unknown command", ["help", "frobnicate"], general_usage(), E_INVALIDARG, check=probed),
    Case("help snap", ["help", "snap"], snap_usage(), E_INVALIDARG, check=not_probed),
    Case("help SNAP", ["HELP", "SNAP"], snap_usage(), E_INVALIDARG),
    Case("help hidden", ["help", "hidden"], HIDDEN_USAGE, E_INVALIDARG),
    Case("help help: no operation list", ["help", "help"], "", E_INVALIDARG),
    Case("help fcp_initiator", ["help", "fcp_initiator"], FCP_USAGE, E_INVALIDARG),
    Case("snap alone", ["snap"], snap_usage(), E_INVALIDARG, check=not_probed),
    Case("snap frobnicate", ["snap", "frobnicate"], snap_usage(), E_INVALIDARG, check=not_probed),
    Case("snap help", ["snap", "help"], snap_usage(), E_INVALIDARG),
    Case("snap help frobnicate", ["snap", "help", "frobnicate"], snap_usage(), E_INVALIDARG),
    Case("snap help create", ["snap", "help", "create"], snap_create_usage(), E_INVALIDARG, check=not_probed),
    Case("snap help delete", ["snap", "help", "delete"], SNAP_DELETE_USAGE, E_INVALIDARG),
    Case("SNAP HELP CREATE", ["SNAP", "HELP", "CREATE"], snap_create_usage(), E_INVALIDARG),
    Case("snap list", ["snap", "list"], scenario={}),
    Case("SNAP LIST is snap list", ["SNAP", "LIST"], scenario={}, same_as="snap list"),
    Case("Snap List is snap list", ["Snap", "List"], scenario={}, same_as="snap list"),
    Case("snap archive: known word, no handler", ["snap", "archive"], snap_usage() + completion(), S_OK, check=not_probed),
    Case("fcp_initiator create: nothing but completion", ["fcp_initiator", "create"], completion(), S_OK, check=not_probed),
    Case("fcp_initiator without operation", ["fcp_initiator"], FCP_USAGE, E_INVALIDARG),
    Case("dataset list", ["dataset", "list"], general_usage() + completion(), S_OK, check=not_probed),
    Case("qrm_config delete", ["qrm_config", "delete"], general_usage() + completion(), S_OK, check=not_probed),
    Case("vsconfig list: probe first", ["vsconfig", "list"], general_usage() + completion(), S_OK, check=probed),
    # The service is not registered: the probe fails with the 5108 alert.
    Case("bare: no arguments", [], SERVICE_ABSENT, REGDB_E_CLASSNOTREG, prefix="bare"),
    Case("bare: help", ["help"], SERVICE_ABSENT, REGDB_E_CLASSNOTREG, prefix="bare"),
    Case("bare: vsconfig list", ["vsconfig", "list"], SERVICE_ABSENT, REGDB_E_CLASSNOTREG, prefix="bare"),
    Case("bare: help snap needs no service", ["help", "snap"], snap_usage(), E_INVALIDARG, prefix="bare"),
    Case("bare: dataset list needs no service", ["dataset", "list"], general_usage() + completion(), S_OK, prefix="bare"),
    *[
        Case("probe refused: " + label, [], alert(MSG_SERVICE_UNAVAILABLE, hr), hr, scenario=refused(hr))
        for label, hr in REFUSALS
    ],
    Case("probe: object without the interface", [], alert(MSG_SERVICE_UNAVAILABLE, 0x80004002), 0x80004002,
         scenario={"classes": {"VirtualDiskService": {"missingInterfaces": ["IVirtualDisk"]}}}),
    # The program's environment.
    Case("no CorvaneRes.dll: silent success", [], "", S_OK, resources=False),
    Case("no CorvaneRes.dll: snap list", ["snap", "list"], "", S_OK, resources=False),
    # A library by that name in the current directory is never searched for.
    Case("a CorvaneRes.dll in the current directory is not loaded", ["help"], "", S_OK, resources=False, decoy=True),
    Case("renamed: help", ["help"], general_usage("corvane-admin"), E_INVALIDARG, program="CorVane-Admin.EXE"),
    Case("renamed: snap", ["snap"], snap_usage("corvane-admin"), E_INVALIDARG, program="CorVane-Admin.EXE"),
    Case("renamed: snap help create", ["snap", "help", "create"], snap_create_usage("corvane-admin"), E_INVALIDARG,
         program="CorVane-Admin.EXE"),
    Case("renamed with dots", ["snap"], snap_usage("my.cvcli"), E_INVALIDARG, program="My.CVCLI.exe"),
    Case("non-ASCII program name", ["snap"], snap_usage("überwachung"), E_INVALIDARG, program="überwachung.exe"),
    # Hostile input: documented output and status, no crash, no hang.
    Case("near-limit command word", near_limit(fill="c"), general_usage(), E_INVALIDARG),
    Case("near-limit operation word", near_limit("snap"), snap_usage(), E_INVALIDARG),
    Case("near-limit help operation", near_limit("snap", "help"), snap_usage(), E_INVALIDARG),
    Case("near-limit switch value", near_limit("snap", "archive", "-s"), snap_usage() + completion(), S_OK),
    Case("near-limit non-ASCII switch", near_limit("fcp_initiator", "create", fill="é"), completion(), S_OK),
    Case("non-ASCII command word", ["snäp", "list"], general_usage(), E_INVALIDARG),
    Case("CJK command word", ["快照"], general_usage(), E_INVALIDARG),
    Case("fullwidth command word", ["ＳＮＡＰ", "list"], general_usage(), E_INVALIDARG),
    Case("non-ASCII operation word", ["snap", "lïst"], snap_usage(), E_INVALIDARG),
    Case("non-ASCII switch values", ["fcp_initiator", "create", "-m", "машина", "-s", "スナップ"], completion(), S_OK),
    Case("empty command word", [""], general_usage(), E_INVALIDARG),
    Case("empty words before a valid one", ["", "list"], general_usage(), E_INVALIDARG),
    Case("empty operation word", ["snap", ""], snap_usage(), E_INVALIDARG),
    Case("empty help operation", ["snap", "help", ""], snap_usage(), E_INVALIDARG),
    Case("empty switch values", ["fcp_initiator", "create", "", "-m", "", "-s", ""], completion(), S_OK),
    Case("repeated switches", ["fcp_initiator", "create"] + ["-m", "a"] * REPEATED, completion(), S_OK),
    Case("repeated bare switches", ["dataset", "list"] + ["-x"] * REPEATED, general_usage() + completion(), S_OK),
    Case("repeated list values", ["snap", "archive", "-D"] + ["C:"] * REPEATED, snap_usage() + completion(), S_OK),
]
