/* widl's proxy code refers to the IUnknown proxy entry points that the system
   headers do not declare; they live in rpcrt4. */
#pragma once
#include <rpcproxy.h>
#include <unknwn.h>

HRESULT STDMETHODCALLTYPE IUnknown_QueryInterface_Proxy(IUnknown *This, REFIID riid, void **ppvObject);
ULONG STDMETHODCALLTYPE IUnknown_AddRef_Proxy(IUnknown *This);
ULONG STDMETHODCALLTYPE IUnknown_Release_Proxy(IUnknown *This);
