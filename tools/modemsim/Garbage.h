// Junk that a confused modem or a noisy line produces: a few CR LF framed
// lines of random bytes, binary ones included. Pure: one seed, one burst.
#ifndef MODEMSIM_GARBAGE_H
#define MODEMSIM_GARBAGE_H

#include <cstdint>
#include <string>

namespace modemsim {

std::string MakeGarbage(uint32_t seed);

}  // namespace modemsim

#endif
