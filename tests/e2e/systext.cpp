// systext: prints the texts that FormatMessageW gives for message ids, looked
// up the way cvcli composes the cause of a failure, so that end-to-end cases
// compare the wording of the system they run on instead of a copy of it.
//
//   systext MODULE ID [MODULE ID ...]
//
// MODULE "-" looks in the system tables alone; any other MODULE is loaded with
// LoadLibraryW and searched before the system tables. ID is hexadecimal. Each
// lookup prints "ok N\n" and the N bytes of its UTF-8 text, or "fail\n".
#include "WindowsSide.h"

#include <windows.h>

#include <cwchar>
#include <string>

namespace {

void Write(const std::string &bytes) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void Lookup(const wchar_t *moduleName, DWORD id) {
    const bool systemOnly = wcscmp(moduleName, L"-") == 0;
    Module module(systemOnly ? nullptr : LoadLibraryW(moduleName));
    if (!systemOnly && module.get() == nullptr) {
        Write("fail\n");
        return;
    }
    DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
    if (!systemOnly)
        flags |= FORMAT_MESSAGE_FROM_HMODULE;
    wchar_t *buffer = nullptr;
    DWORD length = FormatMessageW(flags, module.get(), id, 0, reinterpret_cast<wchar_t *>(&buffer), 256, nullptr);
    LocalText text(buffer);
    if (length == 0 || text.get() == nullptr) {
        Write("fail\n");
        return;
    }
    std::string utf8 = Utf8(text.get());
    Write("ok " + std::to_string(utf8.size()) + "\n" + utf8);
}

} // namespace

int wmain(int argc, wchar_t **argv) {
    if (argc < 3 || argc % 2 == 0) {
        Write("usage: systext MODULE ID [MODULE ID ...]\n");
        return 2;
    }
    for (int i = 1; i + 1 < argc; i += 2)
        Lookup(argv[i], static_cast<DWORD>(wcstoul(argv[i + 1], nullptr, 16)));
    return 0;
}
