// Band masks of the network configuration: 64-bit masks that the modem
// writes in hexadecimal ("3FFFFFFF", "7FFFFFFFFFFFFFFF"), read from the
// command line and shown the same way, and the LTE band numbers a mask
// stands for. Pure.
#ifndef NETSRVCTL_BANDMASK_H
#define NETSRVCTL_BANDMASK_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace netsrvctl {

// Hexadecimal digits of either case, as the modem writes a mask; a leading
// "0x" (or "0X") is taken too, since masks are often copied from code. None
// for anything else: no digits, a sign, blanks, or a value beyond 64 bits
// (leading zeros do not count towards that).
std::optional<uint64_t> ParseBandMask(std::string_view text);

// Upper-case hexadecimal without prefix or leading zeros: "3FFFFFFF"; "0".
std::string BandMaskText(uint64_t mask);

// The LTE bands of an LTE mask, bit 0 being band 1: 0x800C5 is 1, 3, 7, 8, 20.
std::vector<int> LteBandNumbers(uint64_t mask);

// "1, 3, 7, 8, 20"; a run of three or more as "1-63".
std::string NumberRanges(const std::vector<int>& numbers);

}  // namespace netsrvctl

#endif
