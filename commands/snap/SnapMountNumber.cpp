#include "commands/snap/SnapMountNumber.h"

#include <climits>
#include <cwctype>

LONG MountNumber(const CCommandLine::ValueList *values) {
    if (values == nullptr || values->size() != 1)
        return 0;
    const wchar_t *text = (*values)[0].c_str();
    while (iswspace(*text))
        ++text;
    bool negative = false;
    if (*text == L'+' || *text == L'-')
        negative = *text++ == L'-';
    // Accumulated as a negative number so that LONG_MIN itself fits.
    long long value = 0;
    for (; *text >= L'0' && *text <= L'9'; ++text) {
        value = value * 10 - (*text - L'0');
        if (value < LLONG_MIN / 100)
            break;
    }
    if (!negative)
        value = -value;
    if (value > LONG_MAX)
        return LONG_MAX;
    if (value < LONG_MIN)
        return LONG_MIN;
    return static_cast<LONG>(value);
}
