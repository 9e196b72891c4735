// Message ids of the CorvaneRes.dll string table. Shared by the resource script
// and the code, so that an id used in code always names a resource.
#pragma once

// Front end.
#define MSG_ERROR_SEPARATOR 5092
#define MSG_SERVICE_UNAVAILABLE 5108
#define MSG_UNKNOWN_ERROR 5112
#define MSG_PLEASE_WAIT 5120
#define MSG_MESSAGE_FILE_NAME 5184
#define MSG_OPERATION_COMPLETED 5375
#define MSG_OPERATION_NOT_AVAILABLE 7000
