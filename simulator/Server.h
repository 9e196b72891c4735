// The process as a COM local server: the class objects it registers, the
// scenario it reloads for each new object, and how long it stays alive.
#pragma once

#include "simulator/Scenario.h"
#include "simulator/ServiceObject.h"

#include <windows.h>

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace sim {

class Server {
public:
    Server();
    ~Server();

    void Configure(const std::vector<ClassDef> *classes, Engine *engine);

    // The scenario file in force: CORVANE_SIM_SCENARIO, else scenario.json
    // beside the executable.
    static std::wstring ScenarioPath();

    // Reads the scenario again for a new object of `className`; on failure
    // reports the problem loudly and returns the HRESULT the creation fails
    // with, having set the error information.
    HRESULT PrepareCreation(const std::string &className, std::set<std::string> &missingInterfaces);

    Engine &GetEngine() { return *engine_; }

    void ObjectCreated();
    void ObjectDestroyed();
    void Lock(bool lock);

    // Registers the class objects, serves until the last object has been gone
    // for the linger time, then revokes them. `lingerMs` applies until a
    // scenario says otherwise.
    HRESULT Run(unsigned lingerMs);

private:
    bool Busy() const { return objects_ > 0 || locks_ > 0; }
    void Wake();

    const std::vector<ClassDef> *classes_ = nullptr;
    Engine *engine_ = nullptr;
    std::atomic<long> objects_{0};
    std::atomic<long> locks_{0};
    std::atomic<unsigned> lingerMs_{5000};
    std::atomic<bool> lingerFromScenario_{false};
    HANDLE wake_ = nullptr;
};

Server &TheServer();

// Sets the error information of the calling thread, as a failing method leaves
// it for its client: an empty text gives an error object with an empty
// description; no text at all clears the error information.
void SetErrorText(const std::optional<std::string> &description, REFIID iid);

} // namespace sim
