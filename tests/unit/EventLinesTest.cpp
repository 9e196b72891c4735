#include "service/EventLines.h"

#include <gtest/gtest.h>

namespace {

TEST(EventLinesTest, MirrorStates) {
    const wchar_t *head = L"snap1 : Mounting snapshot copy vol1 Drive F:\\- Status ";
    const struct {
        uint64_t transferred;
        unsigned countValid;
        unsigned state;
        const wchar_t *tail;
    } cases[] = {
        {0, 0, 33, L"MIRROR START"},
        {0, 0, 34, L"MIRROR END\n"},
        {4096, 1, 35, L"MIRROR REPLICATE transferred 4096"},
        {0, 1, 35, L"MIRROR REPLICATE"},                             // nothing transferred yet
        {4096, 0, 35, L"MIRROR REPLICATE"},                          // count not valid
        {0x100000010ull, 1, 35, L"MIRROR REPLICATE transferred 16"}, // "%u": the low 32 bits
        {0, 0, 36, L"USER CANCELLED"},
        {0, 0, 37, L""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(MirrorProgressLine(L"snap1", L"F:\\", L"vol1", c.transferred, c.countValid, c.state),
                  std::wstring(head) + c.tail)
            << c.state;
}

} // namespace

#include "service/EventSinks.h"

namespace {

TEST(EventSinksTest, SinksAnswerOnlyForTheirInterface) {
    ComPtr<_IVirtualDiskEvents> disk;
    disk.Attach(new CVirtualDiskEvents());
    ComPtr<_ISnapShotEvents> other;
    EXPECT_EQ(disk.As(&other), E_NOINTERFACE);
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(disk.As(&unknown), S_OK);
}

} // namespace
