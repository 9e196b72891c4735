// Heap memory that held a password is wiped before it goes back. The COM
// allocator spy covers task memory in the end-to-end cases; here the heap:
// while a test watches a text, every block given back to the heap is searched
// for it first.
#include "front_end/Secret.h"
#include "front_end/CommandLine.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace {

const wchar_t *g_watched = nullptr;
int g_freedHolding = 0;

void Inspect(void *block) {
    if (g_watched == nullptr || block == nullptr)
        return;
    const size_t size = _msize(block);
    const size_t needle = wcslen(g_watched) * sizeof(wchar_t);
    const auto *bytes = static_cast<const unsigned char *>(block);
    for (size_t at = 0; at + needle <= size; ++at)
        if (std::memcmp(bytes + at, g_watched, needle) == 0) {
            ++g_freedHolding;
            return;
        }
}

// How many heap blocks freed while `body` ran still held `text`.
template <typename Body> int FreedHolding(const wchar_t *text, Body body) {
    g_freedHolding = 0;
    g_watched = text;
    body();
    g_watched = nullptr;
    return g_freedHolding;
}

} // namespace

// The test program's heap: operator new is malloc, so _msize knows each block.
void *operator new(size_t size) {
    if (void *block = std::malloc(size != 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}
void operator delete(void *block) noexcept {
    Inspect(block);
    std::free(block);
}
void operator delete(void *block, size_t) noexcept {
    Inspect(block);
    std::free(block);
}

namespace {

TEST(SecretTest, TheWatchSeesAnUnwipedCopy) {
    // The control: a plain string leaves its text in the block it gives back.
    EXPECT_EQ(FreedHolding(L"correct horse battery", [] { std::wstring plain(L"correct horse battery"); }), 1);
}

TEST(SecretTest, NoBlockThatHeldAPasswordGoesBackUnwiped) {
    const struct {
        const char *what;
        const wchar_t *password;
        void (*body)(const wchar_t *);
    } cases[] = {
        {"a typed password through every growth of its buffer", L"tr0ub4dor&3-and-more",
         [](const wchar_t *p) {
             SecretText typed;
             for (int round = 0; round < 40; ++round)
                 for (const wchar_t *c = p; *c != L'\0'; ++c)
                     typed.Append(*c);
         }},
        {"a password given as a switch value", L"tr0ub4dor&3-and-more",
         [](const wchar_t *p) {
             SecretText given(p);
             SecretText moved(std::move(given));
         }},
        {"-pwd among many switches", L"tr0ub4dor&3-and-more",
         [](const wchar_t *p) {
             wchar_t *args[] = {const_cast<wchar_t *>(L"-f"),
                                const_cast<wchar_t *>(L"filer"),
                                const_cast<wchar_t *>(L"-pwd"),
                                const_cast<wchar_t *>(p),
                                const_cast<wchar_t *>(L"-user"),
                                const_cast<wchar_t *>(L"admin"),
                                nullptr};
             CCommandLine cl(args);
         }},
        // A short value lives inside the string object, in the list's own
        // buffer: a list that regrew would give that buffer back with it.
        {"a short CHAP password before more values", L"hunt3r",
         [](const wchar_t *p) {
             wchar_t *args[] = {const_cast<wchar_t *>(L"-c"), const_cast<wchar_t *>(L"host1"), const_cast<wchar_t *>(p),
                                const_cast<wchar_t *>(L"x"),  const_cast<wchar_t *>(L"y"),     const_cast<wchar_t *>(L"z"),
                                const_cast<wchar_t *>(L"-c"), const_cast<wchar_t *>(L"again"), nullptr};
             CCommandLine cl(args);
         }},
    };
    for (const auto &c : cases)
        EXPECT_EQ(FreedHolding(c.password, [&] { c.body(c.password); }), 0) << c.what;
}

TEST(SecretTest, TheTextStaysAsGiven) {
    SecretText typed;
    EXPECT_STREQ(typed.Get(), L"");
    EXPECT_EQ(typed.Length(), 0u);
    for (wchar_t c : std::wstring(L"a\bc\x00E9"))
        typed.Append(c);
    EXPECT_STREQ(typed.Get(), L"a\bc\x00E9");
    EXPECT_EQ(typed.Length(), 4u);
    EXPECT_STREQ(SecretText(nullptr).Get(), L"");
}

} // namespace
