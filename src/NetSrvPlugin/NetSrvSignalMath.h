// The arithmetic of the signal bar: the modem's many signal scales turned into
// percentages and levels. Pure functions, integer arithmetic; every division
// truncates toward zero, as the host's signal bar has always shown it.
#ifndef NETSRVPLUGIN_NETSRVSIGNALMATH_H
#define NETSRVPLUGIN_NETSRVSIGNALMATH_H

#include <cstdint>

// "+CSQ" rssi (0..31, 99 unknown) to a percentage. Deliberately unclamped: an
// out-of-range value wraps at 8 bits (40 gives 129), as clients have long seen it.
uint8_t RssiToPercent(int iRssiVal);

#endif
