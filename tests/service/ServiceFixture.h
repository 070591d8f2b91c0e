// A service object on a fake host: container, scripted AT processor, device
// manager and device service, with every trace recorded. Each test gets fresh state.
#ifndef SERVICE_SERVICEFIXTURE_H
#define SERVICE_SERVICEFIXTURE_H

#include <gtest/gtest.h>

#include <memory>

#include "FakePluginHost.h"
#include "FakeProcessor.h"
#include "NetSrvImpl.h"
#include "NetSrvPlugin.h"
#include "TraceRecorder.h"

class ServiceFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                           static_cast<IProcessor*>(&processor));
        container.Register(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO,
                           static_cast<IDeviceMgr*>(&deviceMgr));
        container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO,
                           static_cast<IDeviceService*>(&deviceService));
        plugin.reset(new CNetSrvPlugin());
        plugin->SetPluginContainer(&container);
    }

    void TearDown() override
    {
        DestroyService();
        plugin.reset();
        processor.VerifyAllUsed();
    }

    // The service object, created through the plugin as the host does.
    CNetSrvImpl* Service()
    {
        if (service == nullptr) {
            IBaseInterface* pInterface = nullptr;
            EXPECT_TRUE(plugin->QueryInterface(INETSRV_INTERFACE_NO, &pInterface));
            service = static_cast<CNetSrvImpl*>(static_cast<INetSrv*>(pInterface));
        }
        return service;
    }

    void DestroyService()
    {
        if (plugin) {
            plugin->OnDestroy();
        }
        service = nullptr;
    }

    testkit::TraceRecorder traces;
    testkit::FakeProcessor processor;
    testkit::FakeDeviceMgr deviceMgr;
    testkit::FakeDeviceService deviceService;
    testkit::FakeContainer container;
    std::unique_ptr<CNetSrvPlugin> plugin;
    CNetSrvImpl* service = nullptr;
};

#endif
