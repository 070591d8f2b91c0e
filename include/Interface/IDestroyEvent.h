// Called by the container just before it unloads a plugin.
#ifndef INTERFACE_IDESTROYEVENT_H
#define INTERFACE_IDESTROYEVENT_H

class IDestroyEvent {
public:
    virtual void OnDestroy() = 0;

protected:
    virtual ~IDestroyEvent() {}
};

#endif
