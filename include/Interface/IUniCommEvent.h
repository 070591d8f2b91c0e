// A receiver of service events as an object.
#ifndef INTERFACE_IUNICOMMEVENT_H
#define INTERFACE_IUNICOMMEVENT_H

#include "Interface/IBaseInterface.h"

class IUniCommEvent {
public:
    virtual bool OnUniCommEvent(DWORD dwEvent, void* pData) = 0;

protected:
    virtual ~IUniCommEvent() {}
};

#endif
