// Random and mutated command lines fed to the front end in process: words from
// the vocabulary, switches from the usage tables, values of every shape (empty,
// huge, non-ASCII, numbers at their edges), and byte-level mutations of those.
// Each run must end with an exit status that cvcli documents and without an
// unhandled exception; a crash shows the command line that caused it.
//
//   cvcli_fuzz.exe [iterations] [seed]
//
// Run in a prefix where the service is not registered: every operation that
// gets past its checks then fails to create the service, quickly and always the
// same way.
#include "../unit/Arguments.h"
#include "app/Operations.h"
#include "app/Startup.h"
#include "front_end/Console.h"
#include "front_end/Help.h"
#include "front_end/Messages.h"
#include "front_end/Words.h"

#include <objbase.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr size_t kCommandLineLimit = 32767;

std::vector<std::wstring> g_current; // the line being run, for the crash report

void PrintCurrentLine(size_t longest) {
    for (const std::wstring &arg : g_current)
        fwprintf(stderr, L" [%ls]", arg.size() > longest ? (arg.substr(0, longest) + L"...").c_str() : arg.c_str());
    fwprintf(stderr, L"\n");
}

LONG WINAPI ReportCrash(EXCEPTION_POINTERS *info) {
    fwprintf(stderr, L"crash 0x%08lX on:", info->ExceptionRecord->ExceptionCode);
    PrintCurrentLine(200);
    fflush(stderr);
    return EXCEPTION_EXECUTE_HANDLER;
}

class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {
        for (unsigned i = 0; i < g_commandWordCount; ++i)
            m_commands.push_back(g_commandWords[i].word);
        for (unsigned i = 0; i < g_operationWordCount; ++i)
            m_operations.push_back(g_operationWords[i].word);
        std::set<std::wstring> switches;
        for (unsigned i = 0; i < Operations().Count(); ++i) {
            const OperationRow &usage = Operations().At(i);
            for (const SwitchSpec &spec : usage.switches)
                if (spec.word != nullptr)
                    switches.insert(spec.word);
        }
        m_switches.assign(switches.begin(), switches.end());
        m_values = {// mount points, LUN and UNC paths, names, lists
                    L"", L" ", L"E", L"E:", L"E:\\", L"C:\\mnt\\db", L"Ö:\\Dätä", L"filer1:/vol/vol1/lun1", L"filer1:/vol/",
                    L"\\\\filer1\\share\\lun", L"\\\\", L"nightly", L"snäp\u20ac\U0001F600", L"bad|name", L"a,b,c", L"a,a", L",",
                    // numbers at their edges, sizes, addresses
                    L"0", L"-1", L"1", L"65535", L"65536", L"4294967295", L"4294967296", L"18446744073709551616", L"10MB", L"2GB",
                    L"16TB", L"256TB", L"1KB", L"1.5GB", L"0.0.0.0", L"255.255.255.255", L"256.1.1.1", L"1.2.3", L"1.2.3.4.5",
                    // words, format strings, separators, node names
                    L"true", L"FALSE", L"yes", L"no", L"enabled", L"http", L"https", L"rpc", L"%s%s%s%n", L"%1%2%3", L"\t\r\n",
                    L"-", L"--", L"iqn.1991-05.com.example:host1", L"20:00:00:25:b5:00:00:0f"};
    }

    std::vector<std::wstring> Next() {
        std::vector<std::wstring> line{L"cvcli"};
        const unsigned shape = Pick(10);
        if (shape == 0) { // pure noise
            for (unsigned n = Pick(6); n > 0; --n)
                line.push_back(RandomText(Pick(40)));
            return Limit(line);
        }
        line.push_back(Pick(8) == 0 ? RandomText(Pick(12)) : Any(m_commands));
        line.push_back(Pick(8) == 0 ? RandomText(Pick(12)) : Any(m_operations));
        for (unsigned n = Pick(10); n > 0; --n) {
            line.push_back(Pick(10) == 0 ? RandomText(1 + Pick(8)) : Any(m_switches));
            for (unsigned v = Pick(4) == 0 ? Pick(5) : 1; v > 0; --v)
                line.push_back(Value());
        }
        if (shape == 1 && line.size() > 1) // a mutation of a well-formed line
            Mutate(line[1 + Pick(static_cast<unsigned>(line.size() - 1))]);
        return Limit(line);
    }

private:
    unsigned Pick(unsigned n) { return n == 0 ? 0 : static_cast<unsigned>(m_random() % n); }
    const std::wstring &Any(const std::vector<std::wstring> &from) { return from[Pick(static_cast<unsigned>(from.size()))]; }

    std::wstring Value() {
        switch (Pick(12)) {
        case 0:
            return std::wstring(1 + Pick(32000), static_cast<wchar_t>(L'a' + Pick(26)));
        case 1:
            return RandomText(1 + Pick(64));
        case 2: {
            std::wstring value = Any(m_values);
            Mutate(value);
            return value;
        }
        default:
            return Any(m_values);
        }
    }

    wchar_t RandomChar() {
        static const wchar_t kSpecial[] = L"\\/:,.-%\"' \t*?|<>é€\u00A0\uFFFD\xD800\xDC00";
        switch (Pick(4)) {
        case 0:
            return kSpecial[Pick(static_cast<unsigned>(wcslen(kSpecial)))];
        case 1:
            return static_cast<wchar_t>(1 + Pick(0xFFFE)); // any unit, lone surrogates included
        default:
            return static_cast<wchar_t>(L' ' + Pick(95));
        }
    }

    std::wstring RandomText(unsigned length) {
        std::wstring text;
        for (unsigned i = 0; i < length; ++i)
            text += RandomChar();
        return text;
    }

    void Mutate(std::wstring &text) {
        for (unsigned n = 1 + Pick(4); n > 0; --n) {
            const size_t at = text.empty() ? 0 : Pick(static_cast<unsigned>(text.size()));
            switch (Pick(3)) {
            case 0:
                text.insert(text.begin() + static_cast<std::ptrdiff_t>(at), RandomChar());
                break;
            case 1:
                if (!text.empty())
                    text.erase(at, 1);
                break;
            default:
                if (!text.empty())
                    text[at] = RandomChar();
                break;
            }
        }
    }

    // The system refuses a command line over its limit, so cvcli never sees one.
    static std::vector<std::wstring> Limit(std::vector<std::wstring> line) {
        size_t total = 0;
        for (size_t i = 0; i < line.size(); ++i) {
            total += line[i].size() + 3; // separator and quotes
            if (total > kCommandLineLimit) {
                line.resize(i);
                break;
            }
        }
        return line;
    }

    std::mt19937 m_random;
    std::vector<std::wstring> m_commands, m_operations, m_switches, m_values;
};

} // namespace

int wmain(int argc, wchar_t **argv) {
    const unsigned long iterations = argc > 1 ? wcstoul(argv[1], nullptr, 10) : 20000;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(wcstoul(argv[2], nullptr, 10)) : 20261123u;
    HMODULE resources = LoadLibraryW(kResourceLibraryName);
    if (resources == nullptr) {
        fwprintf(stderr, L"cannot load %ls\n", kResourceLibraryName);
        return 2;
    }
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_NONE, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE,
                         nullptr);
    SetUnhandledExceptionFilter(ReportCrash);
    std::wstring output;
    CaptureOutput(&output);

    // What a run may end with: success, a usage or local error, or the
    // failure to reach a service that is not there.
    const HRESULT allowed[] = {S_OK, E_INVALIDARG, REGDB_E_CLASSNOTREG};
    unsigned long counts[3] = {};
    int failures = 0;
    Generator generator(seed);
    for (unsigned long i = 0; i < iterations; ++i) {
        g_current = generator.Next();
        Arguments args(g_current);
        output.clear();
        HRESULT status = E_UNEXPECTED;
        try {
            status = RunCommandLine(args.pointers.data());
        } catch (...) {
            fwprintf(stderr, L"iteration %lu: an exception escaped the entry\n", i);
            ++failures;
            continue;
        }
        const HRESULT *known = std::find(std::begin(allowed), std::end(allowed), status);
        if (known != std::end(allowed)) {
            ++counts[known - allowed];
        } else {
            ++failures;
            fwprintf(stderr, L"iteration %lu: exit status 0x%08lX is not documented; line:", i,
                     static_cast<unsigned long>(status));
            PrintCurrentLine(80);
        }
    }
    CaptureOutput(nullptr);
    wprintf(L"%lu command lines (seed %u): %lu succeeded, %lu usage or local errors, %lu service absent, %d faults\n", iterations,
            seed, counts[0], counts[1], counts[2], failures);
    CoUninitialize();
    FreeLibrary(resources);
    return failures == 0 ? 0 : 1;
}
