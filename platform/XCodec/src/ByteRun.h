// A run of input bytes, as the decoders pass it between them: never read
// beyond nSize.
#ifndef XCODEC_BYTERUN_H
#define XCODEC_BYTERUN_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xcodec {

struct ByteRun {
    const std::uint8_t* pData = nullptr;
    std::size_t nSize = 0;

    // The bytes a caller handed over: none for a null pointer or a length
    // that is not positive.
    static ByteRun Of(const void* pData, int nLength)
    {
        if (pData == nullptr || nLength <= 0) {
            return ByteRun();
        }
        return ByteRun{static_cast<const std::uint8_t*>(pData), static_cast<std::size_t>(nLength)};
    }

    static ByteRun Of(const std::vector<std::uint8_t>& bytes)
    {
        return ByteRun{bytes.data(), bytes.size()};
    }

    bool Empty() const { return nSize == 0; }
    std::uint8_t operator[](std::size_t nIndex) const { return pData[nIndex]; }
    const std::uint8_t* begin() const { return pData; }
    const std::uint8_t* end() const { return pData + nSize; }

    // The bytes from nOffset on, at most nCount of them (fewer at the end).
    ByteRun Sub(std::size_t nOffset, std::size_t nCount = SIZE_MAX) const
    {
        if (nOffset >= nSize) {
            return ByteRun();
        }
        const std::size_t nLeft = nSize - nOffset;
        return ByteRun{pData + nOffset, nCount < nLeft ? nCount : nLeft};
    }
};

}  // namespace xcodec

#endif
