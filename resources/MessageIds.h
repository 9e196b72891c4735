// Message ids of the CorvaneRes.dll string table. Shared by the resource script
// and the code, so that an id used in code always names a resource.
// The resource compiler sees only the plain #defines; the code also gets
// CORVANE_MESSAGE_LIST, which names every id once so that tests can check that
// each has a text. A new id goes into both places (a unit test compares them).
#pragma once

// Front end.
#define MSG_ERROR_SEPARATOR 5092
#define MSG_SERVICE_UNAVAILABLE 5108
#define MSG_UNKNOWN_ERROR 5112
#define MSG_PLEASE_WAIT 5120
#define MSG_MESSAGE_FILE_NAME 5184
#define MSG_OPERATION_COMPLETED 5375
#define MSG_OPERATION_NOT_AVAILABLE 7000
#define MSG_EVENTS_NOT_CONNECTED 7001

// Progress events (event code in brackets), printed as "<subject> : <text>".
#define MSG_EVENT_PREPARING_LUN 5012          // [1]
#define MSG_EVENT_FLUSHING_BUFFERS 5013       // [2]
#define MSG_EVENT_SUSPENDING_WRITES 5014      // [3]
#define MSG_EVENT_CREATING_SNAPSHOT 5016      // [5]
#define MSG_EVENT_RESUMING_WRITES 5017        // [7]
#define MSG_EVENT_DELETING_SNAPSHOT 5018      // [8]
#define MSG_EVENT_SNAPSHOT_DELETED 5019       // [9]
#define MSG_EVENT_RENAMING_SNAPSHOT 5020      // [10]
#define MSG_EVENT_SNAPSHOT_RENAMED 5021       // [11]
#define MSG_EVENT_RESTORING_LUN 5022          // [12]
#define MSG_EVENT_LUN_RESTORED 5023           // [13]
#define MSG_EVENT_MOUNTING_SNAPSHOT 5024      // [14]
#define MSG_EVENT_SNAPSHOT_MOUNTED 5025       // [15]
#define MSG_EVENT_UNMOUNTING_SNAPSHOT 5026    // [16]
#define MSG_EVENT_SNAPSHOT_UNMOUNTED 5027     // [17]
#define MSG_EVENT_CONNECTING_LUN 5028         // [18]
#define MSG_EVENT_LUN_CONNECTED 5029          // [19]
#define MSG_EVENT_DISCONNECTING_LUN 5030      // [20]
#define MSG_EVENT_LUN_DISCONNECTED 5031       // [21]
#define MSG_EVENT_SNAPSHOT_CREATED 5032       // [6]
#define MSG_EVENT_DELETING_LUN 5033           // [22]
#define MSG_EVENT_LUN_DELETED 5034            // [23]
#define MSG_EVENT_EXPANDING_LUN 5035          // [24]
#define MSG_EVENT_LUN_EXPANDED 5037           // [25]
#define MSG_EVENT_STARTING_MIRROR_UPDATE 5038 // [26]
#define MSG_EVENT_MIRROR_UPDATE_STARTED 5039  // [27]
#define MSG_EVENT_RESCANNING_DISKS 5040       // [28]
#define MSG_EVENT_ADDING_MOUNT_POINT 5042     // [29]
#define MSG_EVENT_WAITING_FOR_STORAGE 5044    // [31]
#define MSG_EVENT_OPERATION_CANCELLED 5045    // [32]
#define MSG_EVENT_REMOVING_MOUNT_POINT 5054   // [30]

// LUNs (disk).
#define MSG_EXPAND_SNAPSHOT_BACKED_DISK 5102
#define MSG_LUN_PATH_NOT_CONNECTED 5106
#define MSG_DELETE_SNAPSHOT_BACKED_DISK 5110
#define MSG_INVALID_MOUNT_POINT 5244
#define MSG_DELETE_DISK_FAILED 5357
#define MSG_DISCONNECT_DISK_FAILED 5358
#define MSG_EXPAND_DISK_FAILED 5360
#define MSG_LIST_DISKS_FAILED 5362
#define MSG_CONNECT_DISK_FAILED 5363
#define MSG_MOUNT_POINT_NOT_FOUND 5366
#define MSG_ADD_MOUNT_POINT_FAILED 5396
#define MSG_REMOVE_MOUNT_POINT_FAILED 5397
#define MSG_INVALID_LUN_PATH 6112

// Snapshot copies.
#define MSG_VOLUME_RESTORE_FAILED 5067
#define MSG_CREATE_SNAPSHOT_FAILED 5109
#define MSG_RESTORE_SNAPSHOT_FAILED 5115
#define MSG_DELETE_SNAPSHOT_FAILED 5116
#define MSG_RENAME_SNAPSHOT_FAILED 5117
#define MSG_LIST_SNAPSHOTS_FAILED 5118
#define MSG_LIST_SNAPSHOTS_PARTLY_FAILED 5119
#define MSG_INVALID_SNAPSHOT_NAME 5204
#define MSG_MOUNT_SNAPSHOT_FAILED 5353
#define MSG_UNMOUNT_SNAPSHOT_FAILED 5354
#define MSG_UPDATE_MIRROR_FAILED 5367
#define MSG_LIST_MIRRORS_FAILED 6021
#define MSG_FREE_MIRROR_LIST_FAILED 6022

// Host connectivity.
#define MSG_INVALID_IP_ADDRESS 5306
#define MSG_INVALID_IP_PORT 5307
#define MSG_MULTI_SESSION_QUERY_FAILED 5368
#define MSG_LIST_TARGETS_FAILED 5378
#define MSG_LIST_SESSIONS_FAILED 5380
#define MSG_ESTABLISH_SESSION_FAILED 5387
#define MSG_TERMINATE_SESSION_FAILED 5388
#define MSG_DISCONNECT_TARGET_FAILED 5389
#define MSG_GET_PREFERRED_IPS_FAILED 5393
#define MSG_SET_PREFERRED_IP_FAILED 5394
#define MSG_DELETE_PREFERRED_IP_FAILED 5395
#define MSG_INVALID_LOG_LEVEL 5404
#define MSG_SESSION_EXISTS 6016
#define MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED 6017
#define MSG_PREFERRED_IP_NOT_FOUND 6018
#define MSG_COMPUTER_NAME_FAILED 6089
#define MSG_DELETE_TRANSPORT_PROTOCOL_FAILED 6109
#define MSG_LIST_TRANSPORT_PROTOCOLS_FAILED 6110
#define MSG_SET_TRANSPORT_PROTOCOL_FAILED 6111

// Virtualization.
#define MSG_LIST_VIRTUAL_MACHINES_FAILED 5646

// Usage faults, printed as "\n<text> ...\n\n" before the operation's usage.
#define MSG_USAGE_SNAPSHOT_NAME 5600
#define MSG_USAGE_MOUNT_POINT 5602
#define MSG_USAGE_NEW_SNAPSHOT_NAME 5603
#define MSG_USAGE_LIVE_MOUNT_POINT 5604
#define MSG_USAGE_STORAGE_SYSTEM 5607
#define MSG_USAGE_STORAGE_VOLUME 5608
#define MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME 5609
#define MSG_USAGE_SPACE_RESERVATION 5613
#define MSG_USAGE_SIZE 5614
#define MSG_USAGE_MOUNT_POINT_OR_LUN_PATH 5622
#define MSG_USAGE_VOLUME_NAME 5623
#define MSG_USAGE_PREFERRED_IP 5627
#define MSG_USAGE_VALID_STORAGE_SYSTEM 5632
#define MSG_USAGE_SESSIONS_SWITCH 5634
#define MSG_USAGE_TARGET_NAME 5635
#define MSG_USAGE_TARGET_PORTAL 5636
#define MSG_USAGE_SESSION_ID 5637
#define MSG_USAGE_INITIATORS 5638
#define MSG_USAGE_SAME_NODE 5639
#define MSG_USAGE_IGROUP_NAME 5640
#define MSG_USAGE_NEW_IGROUP_NAME 5641
#define MSG_USAGE_PROTOCOL_TYPE 5643
#define MSG_USAGE_INVALID_PROTOCOL_TYPE 5644
#define MSG_USAGE_USER_NAME 5645

#ifndef RC_INVOKED

// Every id above, once: X(name).
#define CORVANE_MESSAGE_LIST(X)                                                                                                  \
    X(MSG_ERROR_SEPARATOR)                                                                                                       \
    X(MSG_SERVICE_UNAVAILABLE)                                                                                                   \
    X(MSG_UNKNOWN_ERROR)                                                                                                         \
    X(MSG_PLEASE_WAIT)                                                                                                           \
    X(MSG_MESSAGE_FILE_NAME)                                                                                                     \
    X(MSG_OPERATION_COMPLETED)                                                                                                   \
    X(MSG_OPERATION_NOT_AVAILABLE)                                                                                               \
    X(MSG_EVENTS_NOT_CONNECTED)                                                                                              \
    X(MSG_EVENT_PREPARING_LUN)                                                                                                   \
    X(MSG_EVENT_FLUSHING_BUFFERS)                                                                                                \
    X(MSG_EVENT_SUSPENDING_WRITES)                                                                                               \
    X(MSG_EVENT_CREATING_SNAPSHOT)                                                                                               \
    X(MSG_EVENT_RESUMING_WRITES)                                                                                                 \
    X(MSG_EVENT_DELETING_SNAPSHOT)                                                                                               \
    X(MSG_EVENT_SNAPSHOT_DELETED)                                                                                                \
    X(MSG_EVENT_RENAMING_SNAPSHOT)                                                                                               \
    X(MSG_EVENT_SNAPSHOT_RENAMED)                                                                                                \
    X(MSG_EVENT_RESTORING_LUN)                                                                                                   \
    X(MSG_EVENT_LUN_RESTORED)                                                                                                    \
    X(MSG_EVENT_MOUNTING_SNAPSHOT)                                                                                               \
    X(MSG_EVENT_SNAPSHOT_MOUNTED)                                                                                                \
    X(MSG_EVENT_UNMOUNTING_SNAPSHOT)                                                                                             \
    X(MSG_EVENT_SNAPSHOT_UNMOUNTED)                                                                                              \
    X(MSG_EVENT_CONNECTING_LUN)                                                                                                  \
    X(MSG_EVENT_LUN_CONNECTED)                                                                                                   \
    X(MSG_EVENT_DISCONNECTING_LUN)                                                                                               \
    X(MSG_EVENT_LUN_DISCONNECTED)                                                                                                \
    X(MSG_EVENT_SNAPSHOT_CREATED)                                                                                                \
    X(MSG_EVENT_DELETING_LUN)                                                                                                    \
    X(MSG_EVENT_LUN_DELETED)                                                                                                     \
    X(MSG_EVENT_EXPANDING_LUN)                                                                                                   \
    X(MSG_EVENT_LUN_EXPANDED)                                                                                                    \
    X(MSG_EVENT_STARTING_MIRROR_UPDATE)                                                                                          \
    X(MSG_EVENT_MIRROR_UPDATE_STARTED)                                                                                           \
    X(MSG_EVENT_RESCANNING_DISKS)                                                                                                \
    X(MSG_EVENT_ADDING_MOUNT_POINT)                                                                                              \
    X(MSG_EVENT_WAITING_FOR_STORAGE)                                                                                             \
    X(MSG_EVENT_OPERATION_CANCELLED)                                                                                             \
    X(MSG_EVENT_REMOVING_MOUNT_POINT)                                                                                            \
    X(MSG_EXPAND_SNAPSHOT_BACKED_DISK)                                                                                           \
    X(MSG_LUN_PATH_NOT_CONNECTED)                                                                                                \
    X(MSG_DELETE_SNAPSHOT_BACKED_DISK)                                                                                           \
    X(MSG_INVALID_MOUNT_POINT)                                                                                                   \
    X(MSG_DELETE_DISK_FAILED)                                                                                                    \
    X(MSG_DISCONNECT_DISK_FAILED)                                                                                                \
    X(MSG_EXPAND_DISK_FAILED)                                                                                                    \
    X(MSG_LIST_DISKS_FAILED)                                                                                                     \
    X(MSG_CONNECT_DISK_FAILED)                                                                                                   \
    X(MSG_MOUNT_POINT_NOT_FOUND)                                                                                                 \
    X(MSG_ADD_MOUNT_POINT_FAILED)                                                                                                \
    X(MSG_REMOVE_MOUNT_POINT_FAILED)                                                                                             \
    X(MSG_INVALID_LUN_PATH)                                                                                                      \
    X(MSG_VOLUME_RESTORE_FAILED)                                                                                                 \
    X(MSG_CREATE_SNAPSHOT_FAILED)                                                                                                \
    X(MSG_RESTORE_SNAPSHOT_FAILED)                                                                                               \
    X(MSG_DELETE_SNAPSHOT_FAILED)                                                                                                \
    X(MSG_RENAME_SNAPSHOT_FAILED)                                                                                                \
    X(MSG_LIST_SNAPSHOTS_FAILED)                                                                                                 \
    X(MSG_LIST_SNAPSHOTS_PARTLY_FAILED)                                                                                          \
    X(MSG_INVALID_SNAPSHOT_NAME)                                                                                                 \
    X(MSG_MOUNT_SNAPSHOT_FAILED)                                                                                                 \
    X(MSG_UNMOUNT_SNAPSHOT_FAILED)                                                                                               \
    X(MSG_UPDATE_MIRROR_FAILED)                                                                                                  \
    X(MSG_LIST_MIRRORS_FAILED)                                                                                                   \
    X(MSG_FREE_MIRROR_LIST_FAILED)                                                                                               \
    X(MSG_INVALID_IP_ADDRESS)                                                                                                    \
    X(MSG_INVALID_IP_PORT)                                                                                                       \
    X(MSG_MULTI_SESSION_QUERY_FAILED)                                                                                            \
    X(MSG_LIST_TARGETS_FAILED)                                                                                                   \
    X(MSG_LIST_SESSIONS_FAILED)                                                                                                  \
    X(MSG_ESTABLISH_SESSION_FAILED)                                                                                              \
    X(MSG_TERMINATE_SESSION_FAILED)                                                                                              \
    X(MSG_DISCONNECT_TARGET_FAILED)                                                                                              \
    X(MSG_GET_PREFERRED_IPS_FAILED)                                                                                              \
    X(MSG_SET_PREFERRED_IP_FAILED)                                                                                               \
    X(MSG_DELETE_PREFERRED_IP_FAILED)                                                                                            \
    X(MSG_INVALID_LOG_LEVEL)                                                                                                     \
    X(MSG_SESSION_EXISTS)                                                                                                        \
    X(MSG_MULTIPLE_SESSIONS_NOT_SUPPORTED)                                                                                       \
    X(MSG_PREFERRED_IP_NOT_FOUND)                                                                                                \
    X(MSG_COMPUTER_NAME_FAILED)                                                                                                  \
    X(MSG_DELETE_TRANSPORT_PROTOCOL_FAILED)                                                                                      \
    X(MSG_LIST_TRANSPORT_PROTOCOLS_FAILED)                                                                                       \
    X(MSG_SET_TRANSPORT_PROTOCOL_FAILED)                                                                                         \
    X(MSG_LIST_VIRTUAL_MACHINES_FAILED)                                                                                          \
    X(MSG_USAGE_SNAPSHOT_NAME)                                                                                                   \
    X(MSG_USAGE_MOUNT_POINT)                                                                                                     \
    X(MSG_USAGE_NEW_SNAPSHOT_NAME)                                                                                               \
    X(MSG_USAGE_LIVE_MOUNT_POINT)                                                                                                \
    X(MSG_USAGE_STORAGE_SYSTEM)                                                                                                  \
    X(MSG_USAGE_STORAGE_VOLUME)                                                                                                  \
    X(MSG_USAGE_STORAGE_SYSTEM_AND_VOLUME)                                                                                       \
    X(MSG_USAGE_SPACE_RESERVATION)                                                                                               \
    X(MSG_USAGE_SIZE)                                                                                                            \
    X(MSG_USAGE_MOUNT_POINT_OR_LUN_PATH)                                                                                         \
    X(MSG_USAGE_VOLUME_NAME)                                                                                                     \
    X(MSG_USAGE_PREFERRED_IP)                                                                                                    \
    X(MSG_USAGE_VALID_STORAGE_SYSTEM)                                                                                            \
    X(MSG_USAGE_SESSIONS_SWITCH)                                                                                                 \
    X(MSG_USAGE_TARGET_NAME)                                                                                                     \
    X(MSG_USAGE_TARGET_PORTAL)                                                                                                   \
    X(MSG_USAGE_SESSION_ID)                                                                                                      \
    X(MSG_USAGE_INITIATORS)                                                                                                      \
    X(MSG_USAGE_SAME_NODE)                                                                                                       \
    X(MSG_USAGE_IGROUP_NAME)                                                                                                     \
    X(MSG_USAGE_NEW_IGROUP_NAME)                                                                                                 \
    X(MSG_USAGE_PROTOCOL_TYPE)                                                                                                   \
    X(MSG_USAGE_INVALID_PROTOCOL_TYPE)                                                                                           \
    X(MSG_USAGE_USER_NAME)

#ifdef __cplusplus
struct MessageIdName {
    unsigned id;
    const char *name;
};

#define CORVANE_MESSAGE_ENTRY(name) {name, #name},
inline constexpr MessageIdName kAllMessageIds[] = {CORVANE_MESSAGE_LIST(CORVANE_MESSAGE_ENTRY)};
#undef CORVANE_MESSAGE_ENTRY
#endif

#endif // RC_INVOKED
