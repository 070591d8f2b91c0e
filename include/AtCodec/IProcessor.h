// The host's AT processor: owns the modem line, runs one command at a time and
// routes unsolicited reports to subscribed clients. All operations are
// thread-safe; callers on other threads wait their turn for the line.
#ifndef ATCODEC_IPROCESSOR_H
#define ATCODEC_IPROCESSOR_H

#include <string>
#include <vector>

#include "AtCodec/CmdDef.h"
#include "AtCodec/CmdInterface.h"
#include "AtCodec/IAtCallBack.h"
#include "Interface/IBaseInterface.h"

// Codes that the processor writes into the error word of a failed command.
// Modem codes (+CME ERROR / +CMS ERROR numbers) are passed through as they are;
// the processor's own codes lie above that range and never equal 10001, the
// service's bad-argument code.
enum AT_PROCESSOR_ERROR {
    AT_ERROR_NOT_SUPPORTED = 4,        // COMMAND NOT SUPPORT, TOO MANY PARAMETERS
    AT_ERROR_UNKNOWN = 100,            // a bare ERROR, as +CME ERROR: 100
    AT_ERROR_TIMEOUT = 20001,          // no final result within the command's time-out
    AT_ERROR_PORT_CLOSED = 20002,      // the port is closed or vanished under the command
    AT_ERROR_BAD_COMMAND = 20003       // the command object could not be formatted
};

class IProcessor : public IBaseInterface {
public:
    virtual bool RegisterClient(const std::string& strClient, IAtCallBack* pCallBack,
                                const std::vector<CmdSetItem>& vctCmds) = 0;
    virtual bool UnRegisterClient(const std::string& strClient) = 0;
    virtual bool ExecuteCmdWaitResponse(ICommand* pCmd, ICommand* pRsp,
                                        unsigned long* pdwError, unsigned long ulTimeoutMs) = 0;
    virtual bool ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                             unsigned long* pdwError,
                                             unsigned long ulTimeoutMs) = 0;
    virtual bool ExecuteCmdNoResponse(ICommand* pCmd, unsigned long* pdwError,
                                      unsigned long ulTimeoutMs) = 0;

protected:
    virtual ~IProcessor() {}
};

// Identity under which the container hands out the processor.
#define IPROCESSOR_INTERFACE_ID "AB349C02-A87F-4ef5-A54A-F178A9FABF39"
#define IPROCESSOR_INTERFACE_NO 0x1001

#endif
