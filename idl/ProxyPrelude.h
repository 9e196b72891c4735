/* Forced in front of widl's proxy code. That code is stubless (-Oicf): its
   proxy vtable headers start with the stubless information, a member that the
   system header lays out only under USE_STUBLESS_PROXY. Without it every
   header is shifted by one pointer, the DLL finds none of its interfaces and
   no call can be marshalled. The generated file defines the macro itself, but
   only after this prelude has already pulled rpcproxy.h in. */
#pragma once
#define USE_STUBLESS_PROXY
#include <rpcproxy.h>
#include <unknwn.h>

/* The IUnknown proxy entry points live in rpcrt4; the system headers do not
   declare them. */
HRESULT STDMETHODCALLTYPE IUnknown_QueryInterface_Proxy(IUnknown *This, REFIID riid, void **ppvObject);
ULONG STDMETHODCALLTYPE IUnknown_AddRef_Proxy(IUnknown *This);
ULONG STDMETHODCALLTYPE IUnknown_Release_Proxy(IUnknown *This);
