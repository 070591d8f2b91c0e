// A scripted AT processor for service tests: "expect this command, answer that".
// Each expectation names the AT command and its form, the parameter texts it
// must carry, and the outcome: the answer's fields, several lines of fields, or
// a failure with a code. Commands are matched in the order they were expected;
// a command that does not match the next expectation fails the test. Thread-safe.
#ifndef TESTKIT_FAKEPROCESSOR_H
#define TESTKIT_FAKEPROCESSOR_H

#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "AtCodec/IProcessor.h"

namespace testkit {

// How a command object goes out, as told by its parameters.
enum class AtForm { Bare, Read, Test, Set };

const char* FormName(AtForm form);

// What the processor saw of one command.
struct AtRequest {
    std::string name;
    AtForm form;
    std::vector<std::string> params;   // ToString of each parameter; trailing empties dropped
};

// Reads a command object the way the processor does.
AtRequest DescribeCommand(ICommand* pCmd);

class Expectation {
public:
    Expectation(const std::string& name, AtForm form) : m_name(name), m_form(form) {}

    // The parameter texts the command must carry (set form).
    Expectation& With(const std::vector<std::string>& params);
    // Success with one answer line of these fields.
    Expectation& Answer(const std::vector<std::string>& fields);
    // Success with several answer lines (multi-line commands).
    Expectation& AnswerLines(const std::vector<std::vector<std::string>>& lines);
    // Success with no information line (settings).
    Expectation& Ok();
    // Failure: the processor writes this code into the error word.
    Expectation& Fail(unsigned long code);

private:
    friend class FakeProcessor;
    enum class Outcome { Ok, Lines, Fail };

    std::string m_name;
    AtForm m_form;
    bool m_checkParams = false;
    std::vector<std::string> m_params;
    Outcome m_outcome = Outcome::Ok;
    std::vector<std::vector<std::string>> m_lines;
    unsigned long m_code = 0;
};

// One call as it reached the processor.
struct ExecutedCall {
    AtRequest request;
    unsigned long timeoutMs;
    enum class Kind { WithResponse, WithMultiResponse, NoResponse } kind;
};

class FakeProcessor : public IProcessor {
public:
    FakeProcessor() {}
    ~FakeProcessor() override {}

    // Scripting.
    Expectation& Expect(const std::string& name, AtForm form);
    // Fails the current test for every expectation that was not used.
    void VerifyAllUsed();
    // What RegisterClient answers (true by default).
    void SetRegisterResult(bool bResult);

    // Observations.
    std::vector<ExecutedCall> Calls() const;
    struct Registration {
        std::string client;
        IAtCallBack* pCallBack;
        std::vector<CmdSetItem> rows;
    };
    std::vector<Registration> Registrations() const;
    std::vector<std::string> Unregistrations() const;
    // The callback registered under this client name, or null.
    IAtCallBack* ClientCallBack(const std::string& client) const;

    // IBaseInterface
    void Release() override {}
    int GetLastError() override { return 0; }

    // IProcessor
    bool RegisterClient(const std::string& strClient, IAtCallBack* pCallBack,
                        const std::vector<CmdSetItem>& vctCmds) override;
    bool UnRegisterClient(const std::string& strClient) override;
    bool ExecuteCmdWaitResponse(ICommand* pCmd, ICommand* pRsp, unsigned long* pdwError,
                                unsigned long ulTimeoutMs) override;
    bool ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                     unsigned long* pdwError, unsigned long ulTimeoutMs) override;
    bool ExecuteCmdNoResponse(ICommand* pCmd, unsigned long* pdwError,
                              unsigned long ulTimeoutMs) override;

private:
    // Takes the next expectation if it matches the request; fails the test otherwise.
    bool Take(const AtRequest& request, unsigned long timeoutMs, ExecutedCall::Kind kind,
              Expectation* pOut);
    // Takes the expectation and settles a failure into the error word; true
    // when the command succeeds.
    bool Run(ICommand* pCmd, ExecutedCall::Kind kind, unsigned long ulTimeoutMs,
             unsigned long* pdwError, Expectation* pOut);

    mutable std::mutex m_mutex;
    std::deque<Expectation> m_expected;
    std::vector<ExecutedCall> m_calls;
    std::vector<Registration> m_registrations;
    std::vector<std::string> m_unregistrations;
    bool m_registerResult = true;
};

// Fills a response's parameters from fields by position, stopping at the first
// field that a parameter refuses, as the processor does.
void FillResponse(ICommand* pRsp, const std::vector<std::string>& fields);

}  // namespace testkit

#endif
