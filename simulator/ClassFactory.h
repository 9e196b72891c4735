// The class object that COM calls to create objects of one service class.
#pragma once

#include "simulator/ServiceObject.h"

#include <wrl/client.h>

namespace sim {

Microsoft::WRL::ComPtr<IClassFactory> MakeClassFactory(const ClassDef &definition);

} // namespace sim
