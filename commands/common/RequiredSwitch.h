// A switch that an operation cannot do without.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Exceptions.h"

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
