// Calls that carry a password ask for packet privacy (authenticated and
// encrypted) on their own proxy. The process-wide security that start-up sets
// stays as it is: every other call goes as before.
#pragma once

#include <objbase.h>

// The call that sets a proxy's security, replaceable so tests can see it.
using SetProxyBlanketFn = HRESULT(WINAPI *)(IUnknown *, DWORD, DWORD, OLECHAR *, DWORD, DWORD, RPC_AUTH_IDENTITY_HANDLE, DWORD);
void SetProxyBlanketForTesting(SetProxyBlanketFn fn); // null restores CoSetProxyBlanket

// Sets RPC_C_AUTHN_LEVEL_PKT_PRIVACY on the proxy of `object`, every other
// setting left to the defaults. Returns what the runtime answered; a proxy
// that cannot take it (Wine answers E_NOTIMPL, an in-process object has no
// proxy) keeps its level, and the call goes with what the service demands.
HRESULT RequestPacketPrivacy(IUnknown *object);
