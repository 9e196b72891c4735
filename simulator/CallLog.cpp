#include "simulator/CallLog.h"

#include "simulator/Text.h"

#include <windows.h>

#include <cstdio>

namespace sim {

void CallLog::SetPath(const std::wstring &path) {
    std::lock_guard<std::mutex> guard(lock_);
    path_ = path;
}

std::wstring CallLog::Path() const {
    std::lock_guard<std::mutex> guard(lock_);
    return path_;
}

void CallLog::Write(nlohmann::json line) {
    std::lock_guard<std::mutex> guard(lock_);
    WriteLocked(line);
}

void CallLog::WriteLocked(nlohmann::json &line) {
    line["seq"] = ++sequence_;
    line["pid"] = GetCurrentProcessId();
    SYSTEMTIME now;
    GetLocalTime(&now);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%02u:%02u:%02u.%03u", now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
    line["time"] = stamp;
    if (path_.empty())
        return;
    // Invalid UTF-8 from a client string must not stop the log: replace it.
    std::string text = line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    HANDLE file = CreateFileW(path_.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        std::fprintf(stderr, "corvane-sim: cannot write the call log %s (error %lu)\n", Narrow(path_.c_str()).c_str(),
                     GetLastError());
        return;
    }
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

void CallLog::ObjectCreated(const std::string &className, unsigned long id) {
    std::lock_guard<std::mutex> guard(lock_);
    ++liveObjects_;
    nlohmann::json line = {{"event", "create"}, {"class", className}, {"object", id}, {"liveObjects", liveObjects_}};
    WriteLocked(line);
}

void CallLog::ObjectDestroyed(const std::string &className, unsigned long id, unsigned openAdvises) {
    std::lock_guard<std::mutex> guard(lock_);
    --liveObjects_;
    liveAdvises_ -= openAdvises;
    droppedAdvises_ += openAdvises;
    nlohmann::json line = {{"event", "destroy"},         {"class", className},          {"object", id},
                           {"openAdvises", openAdvises}, {"liveObjects", liveObjects_}, {"liveAdvises", liveAdvises_}};
    WriteLocked(line);
    if (liveObjects_ == 0) {
        // The line a test looks for: everything its client created is gone,
        // and this many sinks were never unadvised.
        nlohmann::json idle = {{"event", "idle"}, {"liveObjects", 0}, {"leakedAdvises", droppedAdvises_}};
        WriteLocked(idle);
        droppedAdvises_ = 0;
    }
}

void CallLog::Advised(unsigned long id, const std::string &eventInterface, unsigned long cookie) {
    std::lock_guard<std::mutex> guard(lock_);
    ++liveAdvises_;
    nlohmann::json line = {
        {"event", "advise"}, {"object", id}, {"interface", eventInterface}, {"cookie", cookie}, {"liveAdvises", liveAdvises_}};
    WriteLocked(line);
}

void CallLog::Unadvised(unsigned long id, const std::string &eventInterface, unsigned long cookie, bool known) {
    std::lock_guard<std::mutex> guard(lock_);
    if (known)
        --liveAdvises_;
    nlohmann::json line = {{"event", "unadvise"}, {"object", id},   {"interface", eventInterface},
                           {"cookie", cookie},    {"known", known}, {"liveAdvises", liveAdvises_}};
    WriteLocked(line);
}

unsigned CallLog::LiveObjects() const {
    std::lock_guard<std::mutex> guard(lock_);
    return liveObjects_;
}

CallLog &TheCallLog() {
    static CallLog log;
    return log;
}

} // namespace sim
