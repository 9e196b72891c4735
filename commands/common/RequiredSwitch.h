// A switch that an operation cannot do without.
#pragma once

#include "front_end/CommandLine.h"
#include "front_end/Exceptions.h"

// The one value of a required switch. Absent, given without a value, given
// twice (two values) or empty: the operation's usage fault with messageId.
inline const wchar_t *RequiredValue(const CCommandLine &cl, const wchar_t *word, unsigned commandId, unsigned operationId,
                                    unsigned messageId) {
    const wchar_t *value = cl.SingleValue(word);
    if (value == nullptr || value[0] == L'\0')
        throw OperationUsageException(commandId, operationId, messageId);
    return value;
}
