// Small move-only owners, one per kind of resource the tool touches, so that
// every path (exceptions included) gives back what it took.
#pragma once

#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <utility>

void FreeBstrText(BSTR text); // front_end/SystemLibraries.h: SysFreeString, found on first use

template <typename Traits> class UniqueResource {
public:
    using Handle = typename Traits::Handle;

    UniqueResource() = default;
    explicit UniqueResource(Handle handle) : m_handle(handle) {}
    ~UniqueResource() { Reset(); }
    UniqueResource(UniqueResource &&other) noexcept : m_handle(std::exchange(other.m_handle, Traits::Null())) {}
    UniqueResource &operator=(UniqueResource &&other) noexcept {
        if (this != &other) {
            Reset();
            m_handle = std::exchange(other.m_handle, Traits::Null());
        }
        return *this;
    }
    UniqueResource(const UniqueResource &) = delete;
    UniqueResource &operator=(const UniqueResource &) = delete;

    Handle Get() const { return m_handle; }
    Handle *Receive() {
        Reset();
        return &m_handle;
    }
    Handle Release() { return std::exchange(m_handle, Traits::Null()); }
    void Reset(Handle handle = Traits::Null()) {
        if (m_handle != Traits::Null())
            Traits::Free(m_handle);
        m_handle = handle;
    }
    explicit operator bool() const { return m_handle != Traits::Null(); }

private:
    Handle m_handle = Traits::Null();
};

struct LocalMemoryTraits {
    using Handle = wchar_t *;
    static Handle Null() { return nullptr; }
    static void Free(Handle h) { LocalFree(h); }
};
// Text allocated by FormatMessageW.
using LocalText = UniqueResource<LocalMemoryTraits>;

template <typename T> struct CoTaskMemTraits {
    using Handle = T *;
    static Handle Null() { return nullptr; }
    static void Free(Handle h) { CoTaskMemFree(h); }
};
// Memory of the COM task allocator (records and strings exchanged with the service).
template <typename T> using CoTaskPtr = UniqueResource<CoTaskMemTraits<T>>;

struct BstrTraits {
    using Handle = BSTR;
    static Handle Null() { return nullptr; }
    static void Free(Handle h) { FreeBstrText(h); }
};
using Bstr = UniqueResource<BstrTraits>;

struct LibraryTraits {
    using Handle = HMODULE;
    static Handle Null() { return nullptr; }
    static void Free(Handle h) { FreeLibrary(h); }
};
using Library = UniqueResource<LibraryTraits>;

struct KernelHandleTraits {
    using Handle = HANDLE;
    static Handle Null() { return nullptr; }
    static void Free(Handle h) { CloseHandle(h); }
};
// An event or a thread.
using KernelHandle = UniqueResource<KernelHandleTraits>;

// A CoTaskMem copy of a wide string (null for null), for strings the service receives.
wchar_t *CoTaskStrDup(const wchar_t *text);
