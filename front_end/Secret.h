// Passwords in memory: kept only in buffers that are wiped before their memory
// goes back, so that no freed block of the process still holds one.
#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <vector>

// Zeroes a block in a way the compiler may not drop as a dead store.
void WipeMemory(void *block, size_t bytes);

// Zeroes a string's whole buffer, its unused capacity included (an earlier,
// longer state may still be there), and leaves it empty.
void WipeText(std::wstring &text);

// An allocator whose blocks are wiped when they are given back, growth
// included: the old block of a container that grew is wiped too.
template <typename T> struct WipingAllocator {
    using value_type = T;
    WipingAllocator() = default;
    template <typename U> WipingAllocator(const WipingAllocator<U> &) {}
    T *allocate(size_t count) { return static_cast<T *>(::operator new(count * sizeof(T))); }
    void deallocate(T *block, size_t count) {
        WipeMemory(block, count * sizeof(T));
        ::operator delete(block);
    }
    template <typename U> bool operator==(const WipingAllocator<U> &) const { return true; }
    template <typename U> bool operator!=(const WipingAllocator<U> &) const { return false; }
};

// A password: zero-terminated wide text in a wiping buffer. Move-only.
class SecretText {
public:
    SecretText() = default;
    explicit SecretText(const wchar_t *text);
    SecretText(SecretText &&other) noexcept = default;
    SecretText(const SecretText &) = delete;
    SecretText &operator=(const SecretText &) = delete;
    SecretText &operator=(SecretText &&) = delete;

    void Append(wchar_t key);
    const wchar_t *Get() const { return m_text.empty() ? L"" : m_text.data(); }
    size_t Length() const { return m_text.empty() ? 0 : m_text.size() - 1; }

private:
    std::vector<wchar_t, WipingAllocator<wchar_t>> m_text; // with its terminator, or empty
};
