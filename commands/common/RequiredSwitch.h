// A switch that an operation cannot do without.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Exceptions.h"

#include <string>

// The one value of a required switch. Absent, given without a value or given
// twice (two values): the operation's usage fault with messageId. An empty
// value is a value like any other and is returned.
inline const wchar_t *RequiredValue(const CCommandLine &cl, const wchar_t *word, unsigned commandId, unsigned operationId,
                                    unsigned messageId) {
    const wchar_t *value = cl.SingleValue(word);
    if (value == nullptr)
        throw OperationUsageException(commandId, operationId, messageId);
    return value;
}

// The same through the into-a-string accessor: absent, given without a value
// or given twice is the usage fault; an empty value is a value.
inline std::wstring RequiredString(const CCommandLine &cl, const wchar_t *word, unsigned commandId, unsigned operationId,
                                   unsigned messageId) {
    std::wstring value;
    if (!cl.SingleValueInto(word, value))
        throw OperationUsageException(commandId, operationId, messageId);
    return value;
}

// -d, normalised (a drive gives its letter, a folder gets its final
// backslash); without exactly one value the usage fault with messageId.
inline std::wstring RequiredMountPoint(const CCommandLine &cl, unsigned commandId, unsigned operationId, unsigned messageId) {
    std::wstring mountPoint;
    if (!cl.MountPointInto(mountPoint))
        throw OperationUsageException(commandId, operationId, messageId);
    return mountPoint;
}
