#include "commands/common/FailureLine.h"

#include "front_end/Console.h"

#include <string>

void PrintFailureLine(FailureOutput output, const char *format, DWORD systemError, HRESULT lastHr) {
    const int error = static_cast<int>(systemError);
    const unsigned long hr = static_cast<unsigned long>(lastHr);
    if (output == FailureOutput::Narrow) {
        PrintNarrow(format, error, hr);
        return;
    }
    const std::wstring wideFormat(format, format + std::char_traits<char>::length(format)); // ASCII formats only
    Print(wideFormat.c_str(), error, hr);
}
