#include "ErrorText.h"

#include "AtCodec/IProcessor.h"
#include "Interface/INetSrv.h"
#include "LineClassifier.h"

namespace netsrvctl {

namespace {
struct ErrorName {
    unsigned long code;
    const char* text;
};

// The codes of our own service and processor; modem codes are read from the
// processor's table of mobile-equipment error texts.
const ErrorName kHostErrorNames[] = {
    {NETSRV_ERROR_BAD_PARAM, "bad argument"},
    {AT_ERROR_TIMEOUT, "the modem did not answer in time"},
    {AT_ERROR_PORT_CLOSED, "the modem's port is closed or gone"},
    {AT_ERROR_BAD_COMMAND, "the command could not be formatted"},
};
}  // namespace

std::string DescribeErrorWord(unsigned long dwError)
{
    for (const ErrorName& entry : kHostErrorNames) {
        if (entry.code == dwError) {
            return entry.text;
        }
    }
    for (const host::CmeErrorText& entry : host::KnownCmeErrorTexts()) {
        if (entry.code == dwError) {
            return entry.text;
        }
    }
    return "modem error " + std::to_string(dwError);
}

}  // namespace netsrvctl
