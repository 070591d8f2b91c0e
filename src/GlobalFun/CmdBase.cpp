// The seven AT field types: how each reads the text of one comma-separated field
// of a modem line, prints itself back and copies itself out. Values stay in the
// fixed storage of PARAMETER; conversions use stack buffers only.
#include "CmdBase.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "GlobalFunction.h"

// Command objects walk their members as an array of PARAMETER with a fixed
// stride, so no value type may add data.
static_assert(sizeof(BINARY) == sizeof(PARAMETER), "BINARY adds no data");
static_assert(sizeof(STRING) == sizeof(PARAMETER), "STRING adds no data");
static_assert(sizeof(NUMERIC) == sizeof(PARAMETER), "NUMERIC adds no data");
static_assert(sizeof(HEX) == sizeof(PARAMETER), "HEX adds no data");
static_assert(sizeof(REAL) == sizeof(PARAMETER), "REAL adds no data");
static_assert(sizeof(RANGE) == sizeof(PARAMETER), "RANGE adds no data");
static_assert(sizeof(OPERATOR<1>) == sizeof(PARAMETER), "OPERATOR<1> adds no data");
static_assert(sizeof(OPERATOR<32>) == sizeof(PARAMETER), "OPERATOR<32> adds no data");

namespace {

// The longest hexadecimal text of a BINARY field: two digits per stored byte.
const size_t kMaxBinaryDigits = 2 * PARAM_MAX_SIZE;
// Raw values and strings keep at least one byte of the storage free.
const uint32_t kMaxRawLength = PARAM_MAX_SIZE - 1;
// Integer texts: 64 binary digits at most, plus the terminator.
const size_t kNumberTextSize = 64;
// A double's text with all digits of its exact binary expansion.
const int kRealDigits = 992;
// 992 digits, sign, point, "e-308" and the terminator, with room to spare.
const size_t kRealTextSize = kRealDigits + 32;
// A RANGE always counts as 8 bytes.
const uint32_t kRangeSize = 8;

// Text length as the storage keeps it.
uint32_t TextLength(const std::string& strText)
{
    return static_cast<uint32_t>(strText.size());
}

// nSize of a byte-carrying type, bounded by the storage (a value copied in
// through the base class may bring the text length of a number).
uint32_t StoredBytes(const ParameterData& data)
{
    return std::min<uint32_t>(data.nSize, PARAM_MAX_SIZE);
}

// The digits of value in radix 10 or 16 into a zeroed buffer; returns their count.
size_t PrintNumber(uint64 value, int nRadix, char (&szText)[kNumberTextSize])
{
    std::memset(szText, 0, sizeof(szText));
    _ui64toa(value, szText, nRadix);
    return std::strlen(szText);
}

// The C library's gcvt stops at 17 significant digits, but a value assigned in
// the program must print with every digit of its binary expansion (0.1 prints
// as 0.1000000000000000055511151231257827021181583404541015625). gcvt is
// defined as the %g conversion, so that is used with the full digit count.
// No double has more than 767 significant digits, so the cap changes nothing.
size_t PrintReal(double value, uint32_t nDigits, char (&szText)[kRealTextSize])
{
    const int nPrecision = static_cast<int>(std::min<uint32_t>(nDigits, kRealDigits));
    const int nWritten = std::snprintf(szText, sizeof(szText), "%.*g", nPrecision, value);
    if (nWritten < 0) {
        szText[0] = '\0';
        return 0;
    }
    return std::strlen(szText);
}

// atol of the original 32-bit host: saturates at the bounds of a 32-bit long,
// whatever the width of long here.
int32_t ReadLong32(const std::string& strText)
{
    const long long llValue = std::strtoll(strText.c_str(), nullptr, 10);
    const long long llMin = std::numeric_limits<int32_t>::min();
    const long long llMax = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::min(std::max(llValue, llMin), llMax));
}

}  // namespace

short CharToNum(char c)
{
    if (c >= '0' && c <= '9') {
        return static_cast<short>(c - '0');
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<short>(c - 'A' + 10);
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<short>(c - 'a' + 10);
    }
    return -1;
}

unsigned char NumToChar(unsigned short n)
{
    if (n <= 9) {
        return static_cast<unsigned char>('0' + n);
    }
    if (n <= 15) {
        return static_cast<unsigned char>('A' + (n - 10));
    }
    return 0xFF;
}

uint64 dsatutil_atoll(uint64* pOut, const unsigned char* pszText, unsigned int uRadix)
{
    uint64 value = 0;
    for (const unsigned char* p = pszText; p != nullptr && *p != '\0'; ++p) {
        const short nDigit = CharToNum(static_cast<char>(*p));
        if (nDigit < 0) {
            break;
        }
        value = value * uRadix + static_cast<uint64>(nDigit);
    }
    if (pOut != nullptr) {
        *pOut = value;
    }
    return value;
}

// ---- BINARY: "0A1B" carries the bytes 0x0A 0x1B -------------------------------

long BINARY::TypeId()
{
    return PARAM_ID_BINARY;
}

std::string BINARY::ToString()
{
    const uint32_t nBytes = StoredBytes(m_data);
    std::string strText;
    strText.reserve(2 * nBytes);
    for (uint32_t i = 0; i < nBytes; ++i) {
        const unsigned char byte = static_cast<unsigned char>(m_data.RawData[i]);
        strText += static_cast<char>(NumToChar(byte >> 4));
        strText += static_cast<char>(NumToChar(byte & 0x0F));
    }
    return strText;
}

bool BINARY::FromString(const std::string& strText)
{
    if (strText.size() % 2 != 0 || strText.size() > kMaxBinaryDigits) {
        return false;
    }
    if (!IsEmpty()) {
        Empty();
    }
    const size_t nBytes = strText.size() / 2;
    for (size_t i = 0; i < nBytes; ++i) {
        const short nHigh = CharToNum(strText[2 * i]);
        const short nLow = CharToNum(strText[2 * i + 1]);
        if (nHigh < 0 || nLow < 0) {
            // The bytes before stay, but nSize is still 0: the field reads as empty.
            return false;
        }
        m_data.RawData[i] = static_cast<char>(nHigh * 16 + nLow);
    }
    m_data.nSize = static_cast<uint32_t>(nBytes);
    return true;
}

bool BINARY::SetData(const void* pSource, uint nLength)
{
    // One byte less than a text can carry: callers size their data for a
    // terminated buffer.
    if (pSource == nullptr || nLength > kMaxRawLength) {
        return false;
    }
    if (!IsEmpty()) {
        Empty();
    }
    std::memcpy(m_data.RawData, pSource, nLength);
    m_data.nSize = nLength;
    return true;
}

bool BINARY::GetData(void* pDestination, uint nCapacity)
{
    if (IsEmpty() || pDestination == nullptr || m_data.nSize > nCapacity) {
        return false;
    }
    std::memcpy(pDestination, m_data.RawData, StoredBytes(m_data));
    return true;
}

// ---- STRING: the field as sent, e.g. "46001" with its quotes --------------------

long STRING::TypeId()
{
    return PARAM_ID_STRING;
}

std::string STRING::ToString()
{
    return std::string(m_data.RawData, strnlen(m_data.RawData, PARAM_MAX_SIZE));
}

bool STRING::FromString(const std::string& strText)
{
    if (strText.size() > kMaxRawLength) {
        return false;
    }
    if (!IsEmpty()) {
        Empty();
    }
    std::memcpy(m_data.RawData, strText.data(), strText.size());
    m_data.RawData[strText.size()] = '\0';
    m_data.nSize = TextLength(strText);
    return true;
}

bool STRING::SetData(const void* pSource, uint nLength)
{
    if (pSource == nullptr || nLength > kMaxRawLength) {
        return false;
    }
    if (!IsEmpty()) {
        Empty();
    }
    // The storage behind the copied bytes is zero already: no terminator needed.
    std::memcpy(m_data.RawData, pSource, nLength);
    m_data.nSize = nLength;
    return true;
}

bool STRING::GetData(void* pDestination, uint nCapacity)
{
    if (IsEmpty() || pDestination == nullptr || m_data.nSize > nCapacity) {
        return false;
    }
    const uint32_t nBytes = StoredBytes(m_data);
    char* pszOut = static_cast<char*>(pDestination);
    std::memcpy(pszOut, m_data.RawData, nBytes);
    // Callers pass one less than their buffer's size, so the terminator fits.
    pszOut[nBytes] = '\0';
    return true;
}

STRING& STRING::operator=(const std::string& strText)
{
    // An over-long text keeps the previous value.
    FromString(strText);
    return *this;
}

bool STRING::operator==(const std::string& strText)
{
    return !IsEmpty() && ToString() == strText;
}

// ---- NUMERIC and HEX: the printing and copying they share ------------------------

template <int Radix>
std::string RadixNumber<Radix>::ToString()
{
    if (IsEmpty()) {
        return std::string();
    }
    char szText[kNumberTextSize];
    PrintNumber(m_data.NumValue, Radix, szText);
    return szText;
}

template <int Radix>
bool RadixNumber<Radix>::SetData(const void* pSource, uint /*nLength*/)
{
    if (pSource == nullptr) {
        return false;
    }
    return FromString(std::string(static_cast<const char*>(pSource)));
}

template <int Radix>
bool RadixNumber<Radix>::GetData(void* pDestination, uint nCapacity)
{
    if (IsEmpty() || pDestination == nullptr) {
        return false;
    }
    char szText[kNumberTextSize];
    const size_t nLength = PrintNumber(m_data.NumValue, Radix, szText);
    if (nLength > nCapacity) {
        return false;
    }
    std::memcpy(pDestination, szText, nLength);
    return true;
}

template <int Radix>
void RadixNumber<Radix>::Assign(uint64 value)
{
    char szText[kNumberTextSize];
    m_data.NumValue = value;
    m_data.nSize = static_cast<uint32_t>(PrintNumber(value, Radix, szText));
}

template class RadixNumber<10>;
template class RadixNumber<16>;

// ---- NUMERIC: decimal fields such as the 2 of "+CREG: 0,2" ----------------------

long NUMERIC::TypeId()
{
    return PARAM_ID_NUMERIC;
}

bool NUMERIC::FromString(const std::string& strText)
{
    // An empty field leaves nSize 0: the modem sent no value.
    m_data.NumValue = static_cast<uint64>(std::atoll(strText.c_str()));
    m_data.nSize = TextLength(strText);
    return true;
}

// ---- HEX: hexadecimal fields such as the cell id 1A2B of "+CREG: 2,1,..." --------

long HEX::TypeId()
{
    return PARAM_ID_HEX;
}

bool HEX::FromString(const std::string& strText)
{
    // No blank, sign or "0x" is skipped: the first other character ends the number.
    dsatutil_atoll(&m_data.NumValue, reinterpret_cast<const unsigned char*>(strText.c_str()), 16);
    m_data.nSize = TextLength(strText);
    return true;
}

// ---- REAL: prints with as many significant digits as its text had ---------------

long REAL::TypeId()
{
    return PARAM_ID_REAL;
}

std::string REAL::ToString()
{
    if (IsEmpty()) {
        return std::string();
    }
    // "12.5" came in as 4 characters and goes out with 4 significant digits.
    char szText[kRealTextSize];
    PrintReal(m_data.floatValue, m_data.nSize, szText);
    return szText;
}

bool REAL::FromString(const std::string& strText)
{
    m_data.floatValue = std::atof(strText.c_str());
    m_data.nSize = TextLength(strText);
    return true;
}

bool REAL::SetData(const void* pSource, uint /*nLength*/)
{
    if (pSource == nullptr) {
        return false;
    }
    return FromString(std::string(static_cast<const char*>(pSource)));
}

bool REAL::GetData(void* pDestination, uint nCapacity)
{
    if (IsEmpty() || pDestination == nullptr) {
        return false;
    }
    char szText[kRealTextSize];
    // The full text's length becomes the digit count of later ToString calls,
    // also when the caller's buffer turns out too small.
    m_data.nSize = static_cast<uint32_t>(PrintReal(m_data.floatValue, kRealDigits, szText));
    if (m_data.nSize > nCapacity) {
        return false;
    }
    std::memcpy(pDestination, szText, m_data.nSize);
    return true;
}

REAL& REAL::operator=(double value)
{
    char szText[kRealTextSize];
    m_data.floatValue = value;
    m_data.nSize = static_cast<uint32_t>(PrintReal(value, kRealDigits, szText));
    return *this;
}

bool REAL::operator==(double value)
{
    return !IsEmpty() && m_data.floatValue == value;
}

REAL::operator double()
{
    return GetFloatValue();
}

double REAL::GetFloatValue()
{
    return IsEmpty() ? 0.0 : m_data.floatValue;
}

// ---- RANGE: "(0-5)" as in the test answer of "+CSQ" ----------------------------

long RANGE::TypeId()
{
    return PARAM_ID_RANGE;
}

std::string RANGE::ToString()
{
    if (IsEmpty()) {
        return std::string();
    }
    // Each bound goes out as unsigned 64-bit, so -1 prints as
    // 18446744073709551615. The closing bracket was never part of the text that
    // peers read back: "(0-5" for 0 and 5.
    char szBegin[kNumberTextSize];
    char szEnd[kNumberTextSize];
    PrintNumber(static_cast<uint64>(static_cast<int64_t>(m_data.RangeValue.lRangeBegin)), 10,
                szBegin);
    PrintNumber(static_cast<uint64>(static_cast<int64_t>(m_data.RangeValue.lRangeEnd)), 10,
                szEnd);
    return std::string("(") + szBegin + "-" + szEnd;
}

bool RANGE::FromString(const std::string& strText)
{
    // The first and the last character are taken for brackets unseen: "0-5"
    // loses its outer digits and reads as 0 and 0.
    const size_t nDash = strText.find('-');
    if (nDash == std::string::npos || strText.size() < 2) {
        m_data.RangeValue.lRangeBegin = 0;
        m_data.RangeValue.lRangeEnd = 0;
    } else {
        // With the dash first, the begin runs to the end of the text.
        const size_t nBeginCount = nDash == 0 ? std::string::npos : nDash - 1;
        const size_t nEndCount =
            nDash + 2 > strText.size() ? 0 : strText.size() - nDash - 2;
        m_data.RangeValue.lRangeBegin = ReadLong32(strText.substr(1, nBeginCount));
        m_data.RangeValue.lRangeEnd = ReadLong32(strText.substr(nDash + 1, nEndCount));
    }
    m_data.nSize = kRangeSize;
    return true;
}

bool RANGE::SetData(const void* pSource, uint /*nLength*/)
{
    if (pSource == nullptr) {
        return false;
    }
    return FromString(std::string(static_cast<const char*>(pSource)));
}

bool RANGE::GetData(void* pDestination, uint nCapacity)
{
    if (IsEmpty() || pDestination == nullptr || nCapacity < m_data.nSize) {
        return false;
    }
    // "(1-8" is shorter than the 8 bytes a range always gives: pad with zeros;
    // a longer text is cut.
    char szText[kNumberTextSize * 2 + 4] = {};
    const std::string strText = ToString();
    std::memcpy(szText, strText.data(), std::min(strText.size(), sizeof(szText) - 1));
    std::memcpy(pDestination, szText, std::min<size_t>(m_data.nSize, sizeof(szText)));
    return true;
}

RANGE& RANGE::operator=(const RangeType& range)
{
    m_data.RangeValue = range;
    m_data.nSize = kRangeSize;
    return *this;
}

bool RANGE::operator==(const RangeType& range)
{
    return !IsEmpty() && m_data.RangeValue.lRangeBegin == range.lRangeBegin &&
           m_data.RangeValue.lRangeEnd == range.lRangeEnd;
}

long RANGE::GetRangeBegin()
{
    return m_data.RangeValue.lRangeBegin;
}

long RANGE::GetRangeEnd()
{
    return m_data.RangeValue.lRangeEnd;
}
