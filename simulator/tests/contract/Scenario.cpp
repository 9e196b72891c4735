// The scenario of the contract tests: the events that the balance client's
// snapshot creation fires into its sinks.
#include "simulator/tests/contract/Client.h"

namespace contract {

const char kScenario[] = R"json({
  "lingerSeconds": 2,
  "methods": {
    "ISnapShotCreate.CreateSnapshot": {"events": [
      {"event": "ProgressMessage", "subject": "E:\\", "code": 3}, {"event": "ReadyToCreate", "name": "nightly.3"}]}
  }
})json";

} // namespace contract
