// The system error of a "Failed to ..." line is the one the failure found
// where it was raised: what runs on the way out (releases make calls of their
// own) must not replace it.
#include "commands/common/FailureLine.h"
#include "front_end/Console.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Stands for a release on the way out that leaves its own last error.
struct LeavesItsOwnError {
    ~LeavesItsOwnError() { SetLastError(ERROR_INVALID_HANDLE); }
};

std::wstring FailureLineOf(void (*body)()) {
    std::wstring shown;
    CaptureOutput(&shown);
    RunWithFailureLine(FailureOutput::Wide, "Error code %d hr=0x%lx\n", [&](HRESULT &hr) {
        hr = E_FAIL;
        body();
    });
    CaptureOutput(nullptr);
    return shown;
}

TEST(FailureLineTest, TheSystemErrorIsTheOneWhereTheFailureWasRaised) {
    const struct {
        const char *what;
        void (*body)();
        const wchar_t *line;
    } cases[] = {
        {"a refusal of the handler",
         [] {
             LeavesItsOwnError release;
             SetLastError(ERROR_ACCESS_DENIED);
             throw LocalErrorException(1);
         },
         L"Error code 5 hr=0x80004005\n"},
        {"a failure that stands for an earlier one keeps the earlier error",
         [] {
             LeavesItsOwnError release;
             SetLastError(ERROR_FILE_NOT_FOUND);
             try {
                 throw AlertUserException(0, E_FAIL); // its text is composed here and may change the error
             } catch (const AlertUserException &e) {
                 throw LocalErrorException(1, e.SystemError());
             }
         },
         L"Error code 2 hr=0x80004005\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(FailureLineOf(c.body), c.line) << c.what;
}

} // namespace
