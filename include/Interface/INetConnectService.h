// The host's connect service: the data links of the operating system.
#ifndef INTERFACE_INETCONNECTSERVICE_H
#define INTERFACE_INETCONNECTSERVICE_H

#include <string>

#include "Interface/IBaseInterface.h"

namespace NETCONNECT_DATA {
enum _EN_CONNECT_STATE {
    CONNECT_UNKNOWN = -1,
    DISCONNECTED = 0,
    CONNECTED = 1,
    CONNECTED_NO_RRC = 2,
    CONNECTTING = 3,
    DISCONNECTTING = 4,
    CONNECTFAILED = 5,
    DISCONNECTFAILED = 6,
    ALREADYCONNECTED = 7,
    CONNECTSUCCESS = 8,
    CANCELSUCCESS = 9
};

enum _EN_CONNECT_TYPE {
    TYPE_DIALUP = 0,
    TYPE_WLAN = 1,
    TYPE_NDIS = 2,
    TYPE_ADSL = 4,
    TYPE_END = 5
};
}

class INetConnectList {
public:
    virtual bool MoveFirst() = 0;                // false when the list is empty
    virtual bool MoveNext() = 0;                 // false past the last entry
    virtual int GetState() = 0;                  // NETCONNECT_DATA::_EN_CONNECT_STATE
    virtual int GetType() = 0;                   // NETCONNECT_DATA::_EN_CONNECT_TYPE
    virtual std::basic_string<unsigned short> GetInterfaceName() = 0;
    virtual void Release() = 0;

protected:
    virtual ~INetConnectList() {}
};

class INetConnectService : public IBaseInterface {
public:
    virtual INetConnectList* GetConnectList() = 0;   // null when there is none
};

#define INETCONNECTSERVICE_INTERFACE_ID "84CC0B43-5AEB-4de3-9FA1-98B97D73E13E"
#define INETCONNECTSERVICE_INTERFACE_NO 0x4001

#endif
