#include "app/Startup.h"

int wmain(int /*argc*/, wchar_t **argv) {
    return RunCvcli(argv);
}
