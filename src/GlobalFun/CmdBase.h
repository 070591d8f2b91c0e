// The seven value types of an AT field. Each holds its value in the fixed
// storage of PARAMETER and adds no data, so all have the size of PARAMETER.
// No locking: a parameter belongs to one command object used by one thread.
#ifndef GLOBALFUN_CMDBASE_H
#define GLOBALFUN_CMDBASE_H

#include <string>

#include "AtCodec/CmdInterface.h"

// '0'-'9', 'A'-'F', 'a'-'f' give 0-15; any other character gives -1.
short CharToNum(char c);
// 0-9 give '0'-'9', 10-15 give 'A'-'F'; anything above 15 gives 0xFF.
unsigned char NumToChar(unsigned short n);
// Reads digits of the radix from text until NUL or the first non-digit (the digit
// is not checked against the radix); wraps modulo 2^64. Writes and returns the value.
uint64 dsatutil_atoll(uint64* pOut, const unsigned char* pszText, unsigned int uRadix);

// Raw bytes carried as hexadecimal text.
class BINARY : public PARAMETER {
public:
    BINARY() {}
    BINARY(const BINARY& other) : PARAMETER(other) {}
    BINARY& operator=(const BINARY& other)
    {
        PARAMETER::operator=(other);
        return *this;
    }

    long TypeId() override;
    std::string ToString() override;
    bool FromString(const std::string& strText) override;
    bool SetData(const void* pSource, uint nLength) override;
    bool GetData(void* pDestination, uint nCapacity) override;
};

// Text, kept as the modem sent it (quotes included).
class STRING : public PARAMETER {
public:
    STRING() {}
    STRING(const STRING& other) : PARAMETER(other) {}
    STRING& operator=(const STRING& other)
    {
        PARAMETER::operator=(other);
        return *this;
    }
    STRING& operator=(const std::string& strText);
    bool operator==(const std::string& strText);

    long TypeId() override;
    std::string ToString() override;
    bool FromString(const std::string& strText) override;
    bool SetData(const void* pSource, uint nLength) override;
    // Writes a terminator at index nSize of the destination: pass one less than
    // the buffer's size.
    bool GetData(void* pDestination, uint nCapacity) override;
};

// What NUMERIC and HEX share: an unsigned 64-bit value that prints in one
// radix (10 or 16), with nSize the length of its text. Only reading differs.
template <int Radix>
class RadixNumber : public PARAMETER {
public:
    bool operator==(uint64 value) { return !IsEmpty() && m_data.NumValue == value; }
    operator uint64() { return GetNumValue(); }

    std::string ToString() override;
    bool SetData(const void* pSource, uint nLength) override;
    bool GetData(void* pDestination, uint nCapacity) override;

protected:
    RadixNumber() {}
    RadixNumber(const RadixNumber& other) : PARAMETER(other) {}
    RadixNumber& operator=(const RadixNumber& other)
    {
        PARAMETER::operator=(other);
        return *this;
    }
    ~RadixNumber() {}

    // Stores the value with the length of its text in this radix.
    void Assign(uint64 value);
};

// Both radixes are instantiated once, in CmdBase.cpp.
extern template class RadixNumber<10>;
extern template class RadixNumber<16>;

// Unsigned 64-bit decimal number; a sign is read ("-95" wraps to 2^64 - 95).
class NUMERIC : public RadixNumber<10> {
public:
    NUMERIC() {}
    NUMERIC(const NUMERIC& other) : RadixNumber(other) {}
    NUMERIC& operator=(const NUMERIC& other)
    {
        RadixNumber::operator=(other);
        return *this;
    }
    NUMERIC& operator=(uint64 value)
    {
        Assign(value);
        return *this;
    }

    long TypeId() override;
    bool FromString(const std::string& strText) override;
};

// Unsigned 64-bit number written in hexadecimal.
class HEX : public RadixNumber<16> {
public:
    HEX() {}
    HEX(const HEX& other) : RadixNumber(other) {}
    HEX& operator=(const HEX& other)
    {
        RadixNumber::operator=(other);
        return *this;
    }
    HEX& operator=(uint64 value)
    {
        Assign(value);
        return *this;
    }

    long TypeId() override;
    bool FromString(const std::string& strText) override;
};

// A double; ToString prints as many significant digits as nSize says.
class REAL : public PARAMETER {
public:
    REAL() {}
    REAL(const REAL& other) : PARAMETER(other) {}
    REAL& operator=(const REAL& other)
    {
        PARAMETER::operator=(other);
        return *this;
    }
    REAL& operator=(double value);
    bool operator==(double value);
    operator double();
    double GetFloatValue();

    long TypeId() override;
    std::string ToString() override;
    bool FromString(const std::string& strText) override;
    bool SetData(const void* pSource, uint nLength) override;
    bool GetData(void* pDestination, uint nCapacity) override;
};

// A pair of signed 32-bit numbers read from "(a-b)"; printed without the
// closing bracket.
class RANGE : public PARAMETER {
public:
    RANGE() {}
    RANGE(const RANGE& other) : PARAMETER(other) {}
    RANGE& operator=(const RANGE& other)
    {
        PARAMETER::operator=(other);
        return *this;
    }
    RANGE& operator=(const RangeType& range);
    bool operator==(const RangeType& range);
    long GetRangeBegin();
    long GetRangeEnd();

    long TypeId() override;
    std::string ToString() override;
    bool FromString(const std::string& strText) override;
    bool SetData(const void* pSource, uint nLength) override;
    bool GetData(void* pDestination, uint nCapacity) override;
};

// The operator of a command (1 read, 32 test); never empty.
template <unsigned long N>
class OPERATOR : public NUMERIC {
public:
    OPERATOR() { NUMERIC::operator=(static_cast<uint64>(N)); }
    OPERATOR(const OPERATOR& other) : NUMERIC(other) {}
    OPERATOR& operator=(const OPERATOR& other)
    {
        NUMERIC::operator=(other);
        return *this;
    }

    long TypeId() override { return PARAM_ID_OPERATOR; }
};

#endif
