#include "service/ProxySecurity.h"

namespace {

SetProxyBlanketFn g_setProxyBlanket = nullptr;

} // namespace

void SetProxyBlanketForTesting(SetProxyBlanketFn fn) {
    g_setProxyBlanket = fn;
}

HRESULT RequestPacketPrivacy(IUnknown *object) {
    const SetProxyBlanketFn fn = g_setProxyBlanket != nullptr ? g_setProxyBlanket : CoSetProxyBlanket;
    return fn(object, RPC_C_AUTHN_DEFAULT, RPC_C_AUTHZ_DEFAULT, COLE_DEFAULT_PRINCIPAL, RPC_C_AUTHN_LEVEL_PKT_PRIVACY,
              RPC_C_IMP_LEVEL_DEFAULT, COLE_DEFAULT_AUTHINFO, EOAC_DEFAULT);
}
