// The root of every interface handed between plugins.
#ifndef INTERFACE_IBASEINTERFACE_H
#define INTERFACE_IBASEINTERFACE_H

typedef unsigned long DWORD;

class IBaseInterface {
public:
    virtual void Release() = 0;
    virtual int GetLastError() = 0;

protected:
    virtual ~IBaseInterface() {}
};

#endif
