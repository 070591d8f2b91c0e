// The shipped profiles, compiled into the library from profiles/*.json by the
// build (CMakeLists.txt generates the definitions), so that the simulator
// needs no files at run time.
#ifndef MODEMSIM_EMBEDDEDPROFILES_H
#define MODEMSIM_EMBEDDEDPROFILES_H

#include <cstddef>

namespace modemsim {

struct EmbeddedProfile {
    const char* name;   // "lte"
    const char* text;   // the JSON as shipped
};

extern const EmbeddedProfile kEmbeddedProfiles[];
extern const std::size_t kEmbeddedProfileCount;

}  // namespace modemsim

#endif
