#include "ErrorText.h"

#include "AtCodec/IProcessor.h"
#include "Interface/INetSrv.h"

namespace netsrvctl {

namespace {
struct ErrorName {
    unsigned long code;
    const char* text;
};

// Mobile-equipment error numbers of the AT command standard that modems report
// most, and the codes of our own service and processor.
const ErrorName kErrorNames[] = {
    {0, "phone failure"},
    {1, "no connection to phone"},
    {3, "operation not allowed"},
    {AT_ERROR_NOT_SUPPORTED, "operation not supported by the modem"},
    {5, "PH-SIM PIN required"},
    {10, "SIM not inserted"},
    {11, "SIM PIN required"},
    {12, "SIM PUK required"},
    {13, "SIM failure"},
    {14, "SIM busy"},
    {15, "SIM wrong"},
    {16, "incorrect password"},
    {20, "memory full"},
    {21, "invalid index"},
    {22, "not found"},
    {23, "memory failure"},
    {30, "no network service"},
    {31, "network timeout"},
    {32, "network not allowed - emergency calls only"},
    {50, "incorrect parameters"},
    {AT_ERROR_UNKNOWN, "unknown error"},
    {NETSRV_ERROR_BAD_PARAM, "bad argument"},
    {AT_ERROR_TIMEOUT, "the modem did not answer in time"},
    {AT_ERROR_PORT_CLOSED, "the modem's port is closed or gone"},
    {AT_ERROR_BAD_COMMAND, "the command could not be formatted"},
};
}  // namespace

std::string DescribeErrorWord(unsigned long dwError)
{
    for (const ErrorName& entry : kErrorNames) {
        if (entry.code == dwError) {
            return entry.text;
        }
    }
    return "modem error " + std::to_string(dwError);
}

}  // namespace netsrvctl
