// Obtaining one interface of a service object, locally or on the machine named
// with -m, and turning a failure to reach the service into the 5108 alert.
#pragma once

#include <objbase.h>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

// The activation call, replaceable so tests can see what is asked for.
using CreateInstanceExFn = HRESULT(WINAPI *)(REFCLSID, IUnknown *, DWORD, COSERVERINFO *, DWORD, MULTI_QI *);
void SetCreateInstanceExForTesting(CreateInstanceExFn fn); // null restores CoCreateInstanceEx

// A null or empty machine name means the local machine. On success *out holds
// a referenced pointer; on failure AlertUserException (5108) is thrown and *out
// is left untouched.
void CreateServiceInterface(const wchar_t *machineName, REFCLSID clsid, REFIID iid, void **out);

template <typename Interface> void CreateServiceInterface(const wchar_t *machineName, REFCLSID clsid, ComPtr<Interface> &out) {
    Interface *created = nullptr;
    CreateServiceInterface(machineName, clsid, __uuidof(Interface), reinterpret_cast<void **>(&created));
    out.Attach(created);
}

// Throws AlertUserException(messageId, hr) unless hr is exactly S_OK: S_FALSE
// and every other success code count as failures of a service call.
void CheckServiceCall(HRESULT hr, unsigned messageId);

// Creates the disk service locally and lets it go again: a start-up check that
// the service is there at all. Always false; a failure throws the 5108 alert.
bool ProbeDiskService();
