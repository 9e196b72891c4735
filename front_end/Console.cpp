#include "front_end/Console.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <mutex>
#include <vector>

namespace {

std::wstring *g_capture = nullptr;

// Where standard output goes, found once: asking on every write costs a
// round trip to the system for each line.
enum class Target { Unknown, None, Console, Stream };

class OutputWriter {
public:
    ~OutputWriter() { Finish(); }

    void Write(const wchar_t *text, size_t length) {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_target == Target::Unknown)
            Resolve();
        if (m_target == Target::Console) {
            DWORD written = 0;
            WriteConsoleW(m_handle, text, static_cast<DWORD>(length), &written, nullptr);
        } else if (m_target == Target::Stream && !m_stopped) {
            AppendUtf8WithCrLf(text, length, m_pending, m_heldCrs);
            if (m_pending.size() >= kFlushBytes)
                FlushLocked();
        }
    }

    void Flush() {
        std::lock_guard<std::mutex> lock(m_mutex);
        FlushLocked();
    }

    DWORD Finish() {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_stopped)
            AppendHeldCrs(m_pending, m_heldCrs);
        FlushLocked();
        return m_error;
    }

private:
    // A pipe or a file gets whole blocks: under Wine each write is a costly
    // call, and scripts read the output only once cvcli is done anyway.
    static constexpr size_t kFlushBytes = 64 * 1024;

    void Resolve() {
        m_handle = GetStdHandle(STD_OUTPUT_HANDLE);
        DWORD mode = 0;
        if (m_handle == nullptr || m_handle == INVALID_HANDLE_VALUE)
            m_target = Target::None;
        else if (GetConsoleMode(m_handle, &mode))
            m_target = Target::Console;
        else
            m_target = Target::Stream;
    }

    void FlushLocked() {
        size_t done = 0;
        while (!m_stopped && done < m_pending.size()) {
            DWORD written = 0;
            const DWORD chunk = static_cast<DWORD>(m_pending.size() - done);
            if (!WriteFile(m_handle, m_pending.data() + done, chunk, &written, nullptr)) {
                // A reader that went away (a closed pipe) is no failure of the
                // run; anything else (a full disk) is: the output is lost.
                const DWORD error = GetLastError();
                if (error != ERROR_NO_DATA && error != ERROR_BROKEN_PIPE)
                    m_error = error != 0 ? error : ERROR_WRITE_FAULT;
                m_stopped = true;
            } else if (written == 0) {
                m_stopped = true; // nothing goes out: the rest has nowhere to go
            }
            done += written;
        }
        m_pending.clear();
    }

    std::mutex m_mutex; // progress sinks print from COM's threads
    Target m_target = Target::Unknown;
    HANDLE m_handle = nullptr;
    std::string m_pending;
    unsigned m_heldCrs = 0;
    bool m_stopped = false; // nothing more is written once a write has failed
    DWORD m_error = 0;
};

OutputWriter &Writer() {
    static OutputWriter writer;
    return writer;
}

void WriteOut(const wchar_t *text, size_t length) {
    if (length == 0)
        return;
    if (g_capture != nullptr) {
        g_capture->append(text, length);
        return;
    }
    Writer().Write(text, length);
}

} // namespace

void AppendUtf8WithCrLf(const wchar_t *text, size_t length, std::string &out, unsigned &heldCrs) {
    // Texts arrive with either line end (literal formats end in LF, message
    // and system texts in CR LF, service texts with anything): every LF ends
    // up as exactly CR LF, whatever CRs stood before it, also when they ended
    // the previous write. A CR that no LF follows stays as it is. One pass
    // does both, straight into the pending block (whose capacity stays from
    // block to block): no call to the system and no allocation per line. A
    // lone surrogate becomes U+FFFD, as the system's own conversion makes it.
    // Nothing large goes on the stack: the progress sinks print from COM's
    // threads, and with a kilobyte block on their stack the sinks' calls
    // failed under Wine (ERROR_NOACCESS, the service call with them).
    for (size_t i = 0; i < length; ++i) {
        const unsigned c = text[i];
        if (c == L'\r') {
            ++heldCrs;
            continue;
        }
        if (c == L'\n') {
            heldCrs = 0;
            out += "\r\n";
            continue;
        }
        if (heldCrs > 0)
            AppendHeldCrs(out, heldCrs);
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else if (c >= 0xD800 && c <= 0xDBFF && i + 1 < length && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            const unsigned code = 0x10000 + ((c - 0xD800) << 10) + (static_cast<unsigned>(text[++i]) - 0xDC00);
            out.push_back(static_cast<char>(0xF0 | (code >> 18)));
            out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        } else {
            const unsigned code = (c >= 0xD800 && c <= 0xDFFF) ? 0xFFFD : c;
            out.push_back(static_cast<char>(0xE0 | (code >> 12)));
            out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        }
    }
}

void AppendHeldCrs(std::string &out, unsigned &heldCrs) {
    out.append(heldCrs, '\r');
    heldCrs = 0;
}

void FlushOutput() {
    Writer().Flush();
}

unsigned long FinishOutput() {
    return Writer().Finish();
}

std::wstring FormatTextV(const wchar_t *format, va_list args) {
    if (format == nullptr)
        return std::wstring();
    std::vector<wchar_t> buffer(512);
    for (;;) {
        va_list copy;
        va_copy(copy, args);
        int n = _vsnwprintf(buffer.data(), buffer.size() - 1, format, copy);
        va_end(copy);
        if (n >= 0 && static_cast<size_t>(n) < buffer.size() - 1)
            return std::wstring(buffer.data(), static_cast<size_t>(n));
        if (buffer.size() > (1u << 24))
            return std::wstring(buffer.data(), buffer.size() - 1);
        buffer.assign(buffer.size() * 2, L'\0');
    }
}

std::wstring FormatText(const wchar_t *format, ...) {
    va_list args;
    va_start(args, format);
    std::wstring text = FormatTextV(format, args);
    va_end(args);
    return text;
}

void PrintV(const wchar_t *format, va_list args) {
    if (format == nullptr)
        return;
    // Nearly every line fits the thread's own block, which the formatter fills
    // as far as it reports: nothing to zero, allocate or copy per line. Not on
    // the stack: see AppendUtf8WithCrLf.
    static thread_local wchar_t line[1024];
    va_list copy;
    va_copy(copy, args);
    const int n = _vsnwprintf(line, ARRAYSIZE(line) - 1, format, copy);
    va_end(copy);
    if (n >= 0 && n < static_cast<int>(ARRAYSIZE(line)) - 1) {
        WriteOut(line, static_cast<size_t>(n));
        return;
    }
    std::wstring text = FormatTextV(format, args);
    WriteOut(text.data(), text.size());
}

void Print(const wchar_t *format, ...) {
    va_list args;
    va_start(args, format);
    PrintV(format, args);
    va_end(args);
}

void PrintNarrow(const char *format, ...) {
    std::vector<char> buffer(512);
    for (;;) {
        va_list args;
        va_start(args, format);
        int n = _vsnprintf(buffer.data(), buffer.size() - 1, format, args);
        va_end(args);
        if (n >= 0 && static_cast<size_t>(n) < buffer.size() - 1) {
            buffer.resize(static_cast<size_t>(n));
            break;
        }
        if (buffer.size() > (1u << 24)) {
            buffer.resize(buffer.size() - 1);
            break;
        }
        buffer.assign(buffer.size() * 2, '\0');
    }
    if (buffer.empty())
        return;
    int chars = MultiByteToWideChar(CP_ACP, 0, buffer.data(), static_cast<int>(buffer.size()), nullptr, 0);
    if (chars <= 0)
        return;
    std::wstring wide(static_cast<size_t>(chars), L'\0');
    MultiByteToWideChar(CP_ACP, 0, buffer.data(), static_cast<int>(buffer.size()), &wide[0], chars);
    WriteOut(wide.data(), wide.size());
}

void PrintText(const std::wstring &text) {
    WriteOut(text.data(), text.size());
}

std::wstring SubstituteStrings(const wchar_t *format, const wchar_t *const *args, unsigned count) {
    std::wstring text;
    unsigned next = 0;
    for (const wchar_t *p = format; *p != L'\0'; ++p) {
        if (p[0] == L'%' && p[1] == L's') {
            const wchar_t *arg = next < count ? args[next] : nullptr;
            ++next;
            text += arg != nullptr ? arg : L"(null)";
            ++p;
        } else if (p[0] == L'%' && p[1] == L'%') {
            text += L'%';
            ++p;
        } else {
            text += *p;
        }
    }
    return text;
}

void CaptureOutput(std::wstring *sink) {
    g_capture = sink;
}
