// Keeps every interface the simulator serves registered with the RPC run-time
// for as long as the class objects are registered.
//
// COM unregisters an interface when the last stub of it in the process goes,
// and waits there for the calls on that interface to end. Wine's run-time
// counts a call as ended only after it has sent the answer, and a wait that
// starts in between can miss the end and last for ever: a client's release
// that comes right after its last call then never returns, and the client
// stalls with it. One object of each class, marshalled table-strong for each
// of its interfaces and never handed out, keeps one stub of each alive, so no
// interface is unregistered while clients come and go.
#pragma once

#include "simulator/ServiceObject.h"

#include <objidl.h>
#include <wrl/client.h>

#include <vector>

namespace sim {

class InterfaceKeeper {
public:
    explicit InterfaceKeeper(const std::vector<ClassDef> &classes);
    ~InterfaceKeeper();
    InterfaceKeeper(const InterfaceKeeper &) = delete;
    InterfaceKeeper &operator=(const InterfaceKeeper &) = delete;

private:
    void Keep(IUnknown *object, REFIID iid);

    std::vector<Microsoft::WRL::ComPtr<IUnknown>> objects_;
    std::vector<Microsoft::WRL::ComPtr<IStream>> marshalled_;
};

} // namespace sim
