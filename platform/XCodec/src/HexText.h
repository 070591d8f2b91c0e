// Bytes written as hexadecimal text, the form in which modems answer with
// coded names.
#ifndef XCODEC_HEXTEXT_H
#define XCODEC_HEXTEXT_H

#include <cstdint>
#include <optional>
#include <vector>

#include "ByteRun.h"

namespace xcodec {

// The bytes of a text of hexadecimal digits (either case), two digits a byte.
// Nothing when the text is empty, of odd length, or holds anything else.
std::optional<std::vector<std::uint8_t>> BytesOfHexText(ByteRun text);

}  // namespace xcodec

#endif
