#include "service/EventSinks.h"

#include <gtest/gtest.h>

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
