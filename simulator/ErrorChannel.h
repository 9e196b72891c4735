// Carries a failing call's error information (the error object that the
// service sets with SetErrorInfo) from the service's thread to the calling
// client thread, where GetErrorInfo finds it.
//
// Windows' COM channel does this by itself; Wine's does not, so under Wine
// both ends register this channel hook: the service, and every client through
// the contract's proxy/stub DLL, which links this file and registers the hook
// when it is loaded. Elsewhere the registration does nothing.
#pragma once

#include <objbase.h>

namespace corvane {

// Registers the hook once per process when running under Wine. Returns
// S_FALSE when it is not needed.
HRESULT RegisterErrorChannel();

} // namespace corvane
