#include "service/EventLines.h"
#include "front_end/Messages.h"

#include <gtest/gtest.h>

namespace {

TEST(EventLinesTest, ProgressLineNamesSubjectAndEventText) {
    EXPECT_EQ(ProgressLine(L"E:\\", 1), L"E:\\ : " + LoadMessageText(5012, 256));
    EXPECT_EQ(ProgressLine(L"snap1", 6), L"snap1 : " + LoadMessageText(5032, 256));
    EXPECT_EQ(ProgressLine(L"snap1", 4), L"snap1 : ");  // code 4 has no text
    EXPECT_EQ(ProgressLine(L"snap1", 77), L"snap1 : "); // unknown codes neither
    EXPECT_EQ(ProgressLine(nullptr, 77), L" : ");
    EXPECT_FALSE(LoadMessageText(5012, 256).empty());
}

TEST(EventLinesTest, ReadyToCreate) {
    EXPECT_EQ(ReadyToCreateLine(L"nightly"), L"nightly : Ready to create snapshot copy");
}

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

#include "front_end/Console.h"
#include "service/EventSinks.h"

namespace {

// The sinks as the service sees them: through their event interfaces.
TEST(EventSinksTest, EachEventPrintsOneWholeLine) {
    std::wstring out;
    CaptureOutput(&out);
    ComPtr<_ISnapShotEvents> snap;
    snap.Attach(new CSnapShotEvents());
    ComPtr<_ISnapShotEvents2> mirror;
    mirror.Attach(new CSnapShotEvents2());
    ComPtr<_IVirtualDiskEvents> disk;
    disk.Attach(new CVirtualDiskEvents());
    MirrorProgress end = {};
    end.mirrorState = 34;
    MirrorProgress replicate = {};
    replicate.transferred = 512;
    replicate.countValid = 1;
    replicate.mirrorState = 35;
    EXPECT_EQ(snap->ProgressMessage(0, L"E:\\", 77), S_OK);
    EXPECT_EQ(snap->ReadyToCreate(0, 0, L"nightly"), S_OK);
    EXPECT_EQ(mirror->MirrorProgress(L"nightly", L"G:\\", L"vol2", &replicate), S_OK);
    EXPECT_EQ(mirror->MirrorProgress(L"nightly", L"G:\\", L"vol2", &end), S_OK);
    EXPECT_EQ(disk->ProgressMessage(0, L"filer1", 4), S_OK);
    EXPECT_EQ(disk->Reserved4(0), S_OK);
    CaptureOutput(nullptr);
    EXPECT_EQ(out, L"E:\\ : \n"
                   L"nightly : Ready to create snapshot copy\n"
                   L"\nnightly : Mounting snapshot copy vol2 Drive G:\\- Status MIRROR REPLICATE transferred 512"
                   L"\nnightly : Mounting snapshot copy vol2 Drive G:\\- Status MIRROR END\n"
                   L"filer1 : \n");
}

TEST(EventSinksTest, SinksAnswerOnlyForTheirInterface) {
    ComPtr<_IVirtualDiskEvents> disk;
    disk.Attach(new CVirtualDiskEvents());
    ComPtr<_ISnapShotEvents> other;
    EXPECT_EQ(disk.As(&other), E_NOINTERFACE);
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(disk.As(&unknown), S_OK);
}

} // namespace
