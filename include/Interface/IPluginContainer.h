// The host's plugin container: hands out the interfaces of the host and of
// other plugins by identifier string and interface number.
#ifndef INTERFACE_IPLUGINCONTAINER_H
#define INTERFACE_IPLUGINCONTAINER_H

class IPluginContainer {
public:
    virtual ~IPluginContainer() {}
    // Fills *ppInterface with the interface registered under (id, number), or leaves it null.
    virtual bool QueryPluginInterface(const char* pszInterfaceId, int nInterfaceNo,
                                      void** ppInterface) = 0;
};

#endif
