// The service's progress events: firing one scenario event on the sinks that
// clients advised, and checking the events a scenario lists.
#pragma once

#include "simulator/Scenario.h"
#include "simulator/ServiceObject.h"

namespace sim {

// Fires `event` ({"event": name, arguments...}) on every sink of the right
// event interface of `object`, synchronously. Counts the sinks called and the
// sinks that answered with a failure.
void FireEvent(CServiceObject &object, const Json &event, unsigned &sinksCalled, unsigned &failures);

// Event name -> check of its arguments, for the catalog.
std::map<std::string, DataCheck> EventChecks();

} // namespace sim
