// What an error word means, in words a user reads. Pure.
#ifndef NETSRVCTL_ERRORTEXT_H
#define NETSRVCTL_ERRORTEXT_H

#include <string>

namespace netsrvctl {

// The meaning of an error word that the service or the AT processor wrote:
// the service's bad-argument code, the processor's own codes, or a modem's
// +CME ERROR number.
std::string DescribeErrorWord(unsigned long dwError);

}  // namespace netsrvctl

#endif
