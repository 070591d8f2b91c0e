// Typed AT parameters and the two interfaces behind which every command,
// response and indication object stands. Objects are used by one thread at a time.
#ifndef ATCODEC_CMDINTERFACE_H
#define ATCODEC_CMDINTERFACE_H

#include <cstdint>
#include <cstring>
#include <string>

#include "AtCodec/CmdDef.h"

typedef uint32_t uint;
typedef uint64_t uint64;

enum {
    PARAM_EMPTY = 0,
    PARAM_MAX_SIZE = 1024
};

enum ParamTypeId {
    PARAM_ID_BINARY = 1,
    PARAM_ID_STRING = 2,
    PARAM_ID_NUMERIC = 3,
    PARAM_ID_OPERATOR = 4,
    PARAM_ID_RANGE = 5,
    PARAM_ID_HEX = 6,
    PARAM_ID_REAL = 7
};

struct RangeType {
    int32_t lRangeBegin;
    int32_t lRangeEnd;
};

// Storage of every parameter. nSize 0 means empty; otherwise its meaning depends
// on the type (a byte count for BINARY/STRING, a text length for the numbers).
struct ParameterData {
    uint32_t nSize;
    union {
        char RawData[PARAM_MAX_SIZE];
        uint64 NumValue;
        double floatValue;
        RangeType RangeValue;
    };

    ParameterData() { Empty(); }
    void Empty()
    {
        nSize = PARAM_EMPTY;
        std::memset(RawData, 0, sizeof(RawData));
    }
};

// One typed AT field. Derived types add no data, so a run of parameter members
// of a command object can be walked as an array of PARAMETER.
class PARAMETER {
public:
    PARAMETER() {}
    PARAMETER(const PARAMETER& other) { CopyFrom(other); }
    PARAMETER& operator=(const PARAMETER& other)
    {
        if (this != &other) {
            CopyFrom(other);
        }
        return *this;
    }

    virtual bool IsEmpty() { return m_data.nSize == PARAM_EMPTY; }
    virtual void Empty() { m_data.Empty(); }
    virtual long TypeId() = 0;
    virtual std::string ToString() = 0;
    virtual bool FromString(const std::string& strText) = 0;
    virtual bool SetData(const void* pSource, uint nLength) = 0;
    virtual bool GetData(void* pDestination, uint nCapacity) = 0;
    virtual long GetLength() { return static_cast<long>(m_data.nSize); }
    virtual uint64 GetNumValue() { return IsEmpty() ? 0 : m_data.NumValue; }
    virtual const char* GetRawData() const { return m_data.RawData; }

protected:
    // No virtual destructor: parameters live by value inside command objects.
    ~PARAMETER() {}

    void CopyFrom(const PARAMETER& other)
    {
        m_data.nSize = other.m_data.nSize;
        std::memcpy(m_data.RawData, other.m_data.RawData, sizeof(m_data.RawData));
    }

    ParameterData m_data;
};

typedef PARAMETER* ParamPtr;

// A command, a response or an indication: a row of parameters and the command
// it belongs to.
class ICommand {
public:
    virtual unsigned long GetElemCount() = 0;
    virtual ParamPtr GetFirstElemAddr() = 0;
    virtual unsigned long GetIndex() = 0;
    virtual const char* GetName() = 0;
    virtual unsigned long GetType() = 0;

protected:
    ~ICommand() {}
};

typedef ICommand IResponse;

// A growing collection of responses for commands that answer with several lines.
class IMultiResponse {
public:
    virtual IResponse* AddRsp() = 0;
    virtual unsigned long GetRspCount() = 0;
    virtual IResponse* GetFirstRsp() = 0;
    virtual IResponse* GetNextRsp() = 0;

protected:
    ~IMultiResponse() {}
};

#endif
