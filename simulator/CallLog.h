// The call log: one JSON object a line, appended for every call the service
// receives and for every object and connection that comes and goes, so that a
// test can check what a client asked for and that it left nothing behind.
#pragma once

#include <nlohmann/json.hpp>

#include <mutex>
#include <string>

namespace sim {

class CallLog {
public:
    // The file lines go to from now on; empty: nowhere (lines are dropped).
    void SetPath(const std::wstring &path);
    std::wstring Path() const;

    // Appends one line; "seq", "pid" and "time" are added. Each line is
    // written and the file closed at once, so that a reader sees it at once
    // and may delete the file between test cases while the server lingers.
    void Write(nlohmann::json line);

    // Live service objects and open connections across all clients.
    void ObjectCreated(const std::string &className, unsigned long id);
    void ObjectDestroyed(const std::string &className, unsigned long id, unsigned openAdvises);
    void Advised(unsigned long id, const std::string &eventInterface, unsigned long cookie);
    void Unadvised(unsigned long id, const std::string &eventInterface, unsigned long cookie, bool known);
    unsigned LiveObjects() const;

private:
    void WriteLocked(nlohmann::json &line);

    mutable std::mutex lock_;
    std::wstring path_;
    unsigned long long sequence_ = 0;
    unsigned liveObjects_ = 0;
    unsigned liveAdvises_ = 0;
    unsigned droppedAdvises_ = 0; // connections still open when their object went away
};

CallLog &TheCallLog();

} // namespace sim
