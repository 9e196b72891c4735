#include "service/ServiceAccess.h"
#include "MessageIds.h"
#include "front_end/Exceptions.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What the fake activation saw, and what it answers.
struct Activation {
    int calls = 0;
    DWORD context = 0;
    bool hadServerInfo = false;
    std::wstring serverName;
    bool serverNameWasPrivateCopy = false;
    const IID *requested = nullptr;
    HRESULT callResult = S_OK;
    HRESULT memberResult = S_OK;
} g_activation;

const wchar_t *g_machineArgument = nullptr;

// A trivial object to hand back, counting its references.
class Dummy : public IUnknown {
public:
    ULONG refs = 1;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++refs; }
    ULONG STDMETHODCALLTYPE Release() override { return --refs; }
} g_dummy;

HRESULT WINAPI FakeCreateInstanceEx(REFCLSID, IUnknown *, DWORD context, COSERVERINFO *server, DWORD count, MULTI_QI *qi) {
    ++g_activation.calls;
    g_activation.context = context;
    g_activation.hadServerInfo = server != nullptr;
    if (server != nullptr) {
        g_activation.serverName = server->pwszName;
        g_activation.serverNameWasPrivateCopy = server->pwszName != g_machineArgument;
        EXPECT_EQ(server->pAuthInfo, nullptr);
        EXPECT_EQ(server->dwReserved1, 0u);
        EXPECT_EQ(server->dwReserved2, 0u);
    }
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(qi[0].pItf, nullptr);
    EXPECT_EQ(qi[0].hr, S_OK);
    g_activation.requested = qi[0].pIID;
    if (FAILED(g_activation.callResult))
        return g_activation.callResult;
    qi[0].hr = g_activation.memberResult;
    if (SUCCEEDED(g_activation.memberResult)) {
        g_dummy.AddRef();
        qi[0].pItf = &g_dummy;
    }
    return g_activation.callResult;
}

class ServiceAccessTest : public testing::Test {
protected:
    void SetUp() override {
        g_activation = Activation();
        g_dummy.refs = 1;
        SetCreateInstanceExForTesting(FakeCreateInstanceEx);
    }
    void TearDown() override { SetCreateInstanceExForTesting(nullptr); }
};

TEST_F(ServiceAccessTest, LocalOrRemoteByMachineName) {
    const struct {
        const wchar_t *machine;
        DWORD context;
    } cases[] = {{nullptr, CLSCTX_LOCAL_SERVER},
                 {L"", CLSCTX_LOCAL_SERVER},
                 {L"filer-host", CLSCTX_REMOTE_SERVER},
                 {L"10.0.0.7", CLSCTX_REMOTE_SERVER}};
    for (const auto &c : cases) {
        g_activation = Activation();
        g_machineArgument = c.machine;
        IUnknown *out = nullptr;
        CreateServiceInterface(c.machine, CLSID_NULL, IID_IUnknown, reinterpret_cast<void **>(&out));
        EXPECT_EQ(out, &g_dummy);
        EXPECT_EQ(g_activation.context, c.context);
        EXPECT_EQ(g_activation.hadServerInfo, c.context == CLSCTX_REMOTE_SERVER);
        if (c.context == CLSCTX_REMOTE_SERVER) {
            EXPECT_EQ(g_activation.serverName, c.machine);      // passed unchanged...
            EXPECT_TRUE(g_activation.serverNameWasPrivateCopy); // ...as a private copy
        }
        EXPECT_EQ(*g_activation.requested, IID_IUnknown);
        out->Release();
    }
    EXPECT_EQ(g_dummy.refs, 1u);
}

TEST_F(ServiceAccessTest, FailuresRaiseTheServiceAlertAndLeaveThePointerAlone) {
    const struct {
        HRESULT call;
        HRESULT member;
        HRESULT reported;
    } cases[] = {
        {REGDB_E_CLASSNOTREG, S_OK, REGDB_E_CLASSNOTREG},
        {E_ACCESSDENIED, S_OK, E_ACCESSDENIED},
        {S_OK, E_NOINTERFACE, E_NOINTERFACE},
        {CO_S_NOTALLINTERFACES, E_NOINTERFACE, E_NOINTERFACE},
    };
    for (const auto &c : cases) {
        g_activation = Activation();
        g_activation.callResult = c.call;
        g_activation.memberResult = c.member;
        IUnknown *out = reinterpret_cast<IUnknown *>(0x1234);
        try {
            CreateServiceInterface(L"host", CLSID_NULL, IID_IUnknown, reinterpret_cast<void **>(&out));
            ADD_FAILURE() << "no exception for " << std::hex << c.reported;
        } catch (AlertUserException &e) {
            EXPECT_EQ(e.MessageId(), static_cast<unsigned>(MSG_SERVICE_UNAVAILABLE));
            EXPECT_EQ(e.Hresult(), c.reported);
        }
        EXPECT_EQ(out, reinterpret_cast<IUnknown *>(0x1234));
    }
    EXPECT_EQ(g_dummy.refs, 1u);
}

TEST_F(ServiceAccessTest, TheRealActivationOfAnUnregisteredClassFails) {
    SetCreateInstanceExForTesting(nullptr);
    const CLSID unregistered = {0x5a1c0d2e, 0x7b3f, 0x4c11, {0x9e, 0x20, 0x61, 0x7d, 0x33, 0x0a, 0x4b, 0xc2}};
    IUnknown *out = nullptr;
    try {
        CreateServiceInterface(nullptr, unregistered, IID_IUnknown, reinterpret_cast<void **>(&out));
        ADD_FAILURE();
    } catch (AlertUserException &e) {
        EXPECT_EQ(e.Hresult(), REGDB_E_CLASSNOTREG);
    }
    try {
        CreateServiceInterface(L"no-such-host", unregistered, IID_IUnknown, reinterpret_cast<void **>(&out));
        ADD_FAILURE();
    } catch (AlertUserException &e) {
        EXPECT_TRUE(FAILED(e.Hresult()));
    }
    EXPECT_EQ(out, nullptr);
}

TEST_F(ServiceAccessTest, OnlyExactSuccessCountsForServiceCalls) {
    EXPECT_NO_THROW(CheckServiceCall(S_OK, 5362));
    for (HRESULT hr : {S_FALSE, static_cast<HRESULT>(2), E_FAIL}) {
        try {
            CheckServiceCall(hr, 5362);
            ADD_FAILURE() << hr;
        } catch (AlertUserException &e) {
            EXPECT_EQ(e.Hresult(), hr);
            EXPECT_EQ(e.MessageId(), 5362u);
        }
    }
}

} // namespace
