// The scenario: what the simulated service answers, read from a JSON file that
// test scripts rewrite between runs. This part knows nothing of COM records;
// the catalog handed in by the server says which classes, interfaces, methods
// and events exist and checks the data of each.
#pragma once

#include <windows.h>

#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace sim {

using Json = nlohmann::json;

// A fault in the scenario, with the JSON path of the offending value.
class ScenarioError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Checks one method's data (or one event's arguments): throws ScenarioError.
using DataCheck = std::function<void(const Json &data, const std::string &path)>;

struct Catalog {
    std::map<std::string, std::set<std::string>> classInterfaces; // class -> interfaces it offers
    std::map<std::string, DataCheck> methods;                     // "IVirtualDisk.EnumerateDisks" -> check
    std::map<std::string, DataCheck> events;                      // "ProgressMessage" -> check
};

struct Response {
    HRESULT result = S_OK;
    std::optional<std::string> errorDescription;
    Json events = Json::array();
    unsigned delayMs = 0;
    bool dieDuringCall = false;      // the process ends while the client waits
    Json lateEvents = Json::array(); // fired from another thread once the call has returned
    unsigned lateDelayMs = 0;        // how long after the return
    Json data = Json::object();      // every key that is not one of the above
    int index = -1;                  // position in the method's list; -1: method not in the scenario
};

struct ClassSpec {
    HRESULT createResult = S_OK;
    std::optional<std::string> createErrorDescription;
    std::set<std::string> missingInterfaces;
};

struct Scenario {
    std::string description;
    std::wstring callLog;
    std::optional<unsigned> lingerMs;
    std::map<std::string, ClassSpec> classes;
    std::map<std::string, std::vector<Response>> methods;

    const ClassSpec *FindClass(const std::string &name) const;
};

// Parses and checks a scenario text. Every problem found is listed (not only
// the first), each starting with the JSON path it concerns; an empty list means
// that `out` holds the scenario.
std::vector<std::string> ParseScenario(const std::string &text, const Catalog &catalog, Scenario &out);

// A result code: a number, a hexadecimal text ("0x80070057") or one of the
// usual names ("S_OK", "E_FAIL", ...). Throws ScenarioError.
HRESULT ParseResult(const Json &value, const std::string &path);

// Where one client object stands in each method's list of responses. Each
// object keeps its own, so that clients running at the same time never take
// each other's responses.
struct ResponsePositions {
    unsigned long long scenario = 0; // the scenario text the positions belong to
    std::map<std::string, size_t> calls;
};

// The scenario in force. Thread-safe: calls arrive on any RPC thread.
class Engine {
public:
    explicit Engine(Catalog catalog) : catalog_(std::move(catalog)) {}

    // Takes a freshly read scenario text; every object's positions restart
    // when it differs from the one in force. On a faulty text the scenario in
    // force is dropped and ScenarioError lists the problems.
    void Load(const std::string &text);

    bool Loaded() const;
    Scenario Current() const;

    // The next response of a method for the object whose positions these
    // are: its successive calls walk the list, the last entry repeats. A
    // method that the scenario leaves out answers S_OK with no data.
    Response Next(const std::string &methodKey, ResponsePositions &positions);

    const Catalog &GetCatalog() const { return catalog_; }

private:
    Catalog catalog_;
    mutable std::mutex lock_;
    bool loaded_ = false;
    std::string text_;
    Scenario scenario_;
    unsigned long long generation_ = 1; // changes with every text taken
};

} // namespace sim
