// The plugin as a host sees it: a library opened with dlopen that exports two
// plain functions and hands out one plugin object and one service.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <chrono>

#include "FakePluginHost.h"
#include "FakeProcessor.h"
#include "Interface/IBasePlugin.h"
#include "Interface/INetSrv.h"
#include "ThreadCount.h"
#include "WaitUntil.h"

namespace {

using testkit::CountThreads;

class PluginLoad : public ::testing::Test {
protected:
    void SetUp() override
    {
        threadsBefore = CountThreads();
        library = dlopen(NETSRV_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        create = reinterpret_cast<PFN_CREATE_PLUGIN>(dlsym(library, "CreatePlugin"));
        release = reinterpret_cast<PFN_RELEASE_PLUGIN>(dlsym(library, "ReleasePlugin"));
        ASSERT_NE(create, nullptr);
        ASSERT_NE(release, nullptr);
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                           static_cast<IProcessor*>(&processor));
        container.Register(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO,
                           static_cast<IDeviceMgr*>(&deviceMgr));
    }

    void TearDown() override
    {
        if (library != nullptr) {
            // A test that stopped early may have left the service running:
            // its threads must be gone before the library is unloaded.
            if (IBasePlugin* plugin = create()) {
                plugin->OnDestroy();
            }
            release();
            dlclose(library);
        }
    }

    int threadsBefore = 0;
    void* library = nullptr;
    PFN_CREATE_PLUGIN create = nullptr;
    PFN_RELEASE_PLUGIN release = nullptr;
    testkit::FakeProcessor processor;
    testkit::FakeDeviceMgr deviceMgr;
    testkit::FakeContainer container;
};

TEST_F(PluginLoad, ExportsOnlyThePluginFunctionsUnmangled)
{
    // Internal classes stay inside the library.
    EXPECT_EQ(dlsym(library, "_ZN13CNetSrvPlugin18GetPluginContainerEv"), nullptr);
    EXPECT_EQ(dlsym(library, "_AtCmdSetTable"), nullptr);
    EXPECT_EQ(dlsym(library, "_ZN20CNetSrvPluginFactory6CreateEv"), nullptr);
}

TEST_F(PluginLoad, OnePluginObjectUntilReleased)
{
    release();   // nothing to release yet: harmless
    IBasePlugin* first = create();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(create(), first);
    release();
    IBasePlugin* second = create();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(create(), second);
}

TEST_F(PluginLoad, IdentityValues)
{
    IBasePlugin* plugin = create();
    ASSERT_NE(plugin, nullptr);
    EXPECT_STREQ(plugin->GetCLSID(), "385BDF98-9AA3-4121-9FBB-CACB1CD9608C");
    EXPECT_STREQ(plugin->GetPluginName(), "NetSrvPlugin");
    EXPECT_EQ(plugin->GetVersion(), 257u);
    EXPECT_EQ(plugin->GetPluginType(), IBasePlugin::OPERATION);
    EXPECT_TRUE(plugin->IsAllowRelease());
    EXPECT_TRUE(plugin->Init());
    EXPECT_EQ(plugin->GetLastError(), 0);
}

TEST_F(PluginLoad, ServesOneNetSrvOnInterfaceFiveOnly)
{
    IBasePlugin* plugin = create();
    plugin->SetPluginContainer(&container);
    plugin->SetPluginContainer(nullptr);   // keeps the container already given
    ASSERT_TRUE(plugin->Init());

    IBaseInterface* wrong = reinterpret_cast<IBaseInterface*>(&container);
    EXPECT_FALSE(plugin->QueryInterface(4, &wrong));
    EXPECT_EQ(wrong, nullptr);

    IBaseInterface* first = nullptr;
    IBaseInterface* second = nullptr;
    ASSERT_TRUE(plugin->QueryInterface(5, &first));
    ASSERT_TRUE(plugin->QueryInterface(5, &second));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);

    // The container given before survived the null: the service subscribed.
    ASSERT_EQ(processor.Registrations().size(), 1u);
    EXPECT_EQ(processor.Registrations()[0].client, "NetSrv");

    // The service answers through the INetSrv view the host casts to.
    INetSrv* netSrv = static_cast<INetSrv*>(first);
    processor.Expect("^GLASTERR", testkit::AtForm::Set).With({"0"}).Answer({"0", "21"});
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    unsigned long err = 0;
    ASSERT_TRUE(netSrv->SRVGetLastErr(&lastErr, &err));
    EXPECT_EQ(lastErr.code, 21u);

    plugin->OnDestroy();
    plugin->OnDestroy();   // the second has nothing left to delete
    EXPECT_EQ(processor.Unregistrations().size(), 1u);
}

TEST_F(PluginLoad, UnloadStopsEveryThreadWithinOneSecond)
{
    IBasePlugin* plugin = create();
    plugin->SetPluginContainer(&container);
    IBaseInterface* service = nullptr;
    ASSERT_TRUE(plugin->QueryInterface(5, &service));
    EXPECT_GT(CountThreads(), threadsBefore) << "the report thread runs";

    const auto begin = std::chrono::steady_clock::now();
    plugin->OnDestroy();
    release();
    const auto elapsed = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(elapsed, std::chrono::seconds(1));
    EXPECT_TRUE(testkit::WaitUntil([&] { return CountThreads() == threadsBefore; },
                                   std::chrono::milliseconds(500)))
        << CountThreads() << " threads, " << threadsBefore << " before";
}

}  // namespace
