#include "FakeProcessor.h"

#include <gtest/gtest.h>

#include <sstream>

namespace testkit {

namespace {
// The error code the fake writes for a command that was not expected.
const unsigned long kUnexpectedCommandCode = 100;

std::string Join(const std::vector<std::string>& fields)
{
    std::ostringstream out;
    for (size_t i = 0; i < fields.size(); ++i) {
        out << (i ? "," : "") << '"' << fields[i] << '"';
    }
    return out.str();
}

std::string Describe(const AtRequest& request)
{
    return request.name + " (" + FormName(request.form) + ") [" + Join(request.params) + "]";
}
}  // namespace

const char* FormName(AtForm form)
{
    switch (form) {
    case AtForm::Bare:
        return "bare";
    case AtForm::Read:
        return "read";
    case AtForm::Test:
        return "test";
    case AtForm::Set:
        return "set";
    }
    return "?";
}

AtRequest DescribeCommand(ICommand* pCmd)
{
    AtRequest request;
    request.name = pCmd->GetName();
    request.form = AtForm::Bare;
    const unsigned long count = pCmd->GetElemCount();
    PARAMETER* pFirst = pCmd->GetFirstElemAddr();
    if (count == 0 || pFirst == nullptr) {
        return request;
    }
    if (pFirst->TypeId() == PARAM_ID_OPERATOR) {
        const uint64 op = pFirst->GetNumValue();
        if (op == OPERATOR_READ_CMD) {
            request.form = AtForm::Read;
            return request;
        }
        if (op == OPERATOR_TEST_CMD) {
            request.form = AtForm::Test;
            return request;
        }
    }
    request.form = AtForm::Set;
    for (unsigned long i = 0; i < count; ++i) {
        request.params.push_back(pFirst[i].ToString());
    }
    while (!request.params.empty() && request.params.back().empty()) {
        request.params.pop_back();
    }
    return request;
}

void FillResponse(ICommand* pRsp, const std::vector<std::string>& fields)
{
    PARAMETER* pFirst = pRsp->GetFirstElemAddr();
    const size_t count = pFirst == nullptr ? 0 : pRsp->GetElemCount();
    for (size_t i = 0; i < count && i < fields.size(); ++i) {
        if (!pFirst[i].FromString(fields[i])) {
            break;
        }
    }
}

Expectation& Expectation::With(const std::vector<std::string>& params)
{
    m_checkParams = true;
    m_params = params;
    return *this;
}

Expectation& Expectation::Answer(const std::vector<std::string>& fields)
{
    m_outcome = Outcome::Lines;
    m_lines.assign(1, fields);
    return *this;
}

Expectation& Expectation::AnswerLines(const std::vector<std::vector<std::string>>& lines)
{
    m_outcome = Outcome::Lines;
    m_lines = lines;
    return *this;
}

Expectation& Expectation::Ok()
{
    m_outcome = Outcome::Ok;
    m_lines.clear();
    return *this;
}

Expectation& Expectation::Fail(unsigned long code)
{
    m_outcome = Outcome::Fail;
    m_code = code;
    return *this;
}

Expectation& FakeProcessor::Expect(const std::string& name, AtForm form)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_expected.emplace_back(name, form);
    return m_expected.back();
}

void FakeProcessor::VerifyAllUsed()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Expectation& e : m_expected) {
        ADD_FAILURE() << "expected command never came: " << e.m_name << " ("
                      << FormName(e.m_form) << ")";
    }
    m_expected.clear();
}

void FakeProcessor::SetRegisterResult(bool bResult)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_registerResult = bResult;
}

std::vector<ExecutedCall> FakeProcessor::Calls() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

std::vector<FakeProcessor::Registration> FakeProcessor::Registrations() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_registrations;
}

std::vector<std::string> FakeProcessor::Unregistrations() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_unregistrations;
}

IAtCallBack* FakeProcessor::ClientCallBack(const std::string& client) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    IAtCallBack* pFound = nullptr;
    for (const Registration& r : m_registrations) {
        if (r.client == client) {
            pFound = r.pCallBack;
        }
    }
    for (const std::string& gone : m_unregistrations) {
        if (gone == client) {
            pFound = nullptr;
        }
    }
    return pFound;
}

bool FakeProcessor::RegisterClient(const std::string& strClient, IAtCallBack* pCallBack,
                                   const std::vector<CmdSetItem>& vctCmds)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_registrations.push_back({strClient, pCallBack, vctCmds});
    return m_registerResult;
}

bool FakeProcessor::UnRegisterClient(const std::string& strClient)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_unregistrations.push_back(strClient);
    return true;
}

bool FakeProcessor::Take(const AtRequest& request, unsigned long timeoutMs,
                         ExecutedCall::Kind kind, Expectation* pOut)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.push_back({request, timeoutMs, kind});
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected command: " << Describe(request);
        return false;
    }
    const Expectation& next = m_expected.front();
    const bool sameCommand = next.m_name == request.name && next.m_form == request.form;
    const bool sameParams = !next.m_checkParams || next.m_params == request.params;
    if (!sameCommand || !sameParams) {
        ADD_FAILURE() << "unexpected command: " << Describe(request) << "; expected "
                      << next.m_name << " (" << FormName(next.m_form) << ")"
                      << (next.m_checkParams ? " [" + Join(next.m_params) + "]" : "");
        return false;
    }
    *pOut = next;
    m_expected.pop_front();
    return true;
}

bool FakeProcessor::Run(ICommand* pCmd, ExecutedCall::Kind kind, unsigned long ulTimeoutMs,
                        unsigned long* pdwError, Expectation* pOut)
{
    if (!Take(DescribeCommand(pCmd), ulTimeoutMs, kind, pOut)) {
        if (pdwError != nullptr) {
            *pdwError = kUnexpectedCommandCode;
        }
        return false;
    }
    if (pOut->m_outcome == Expectation::Outcome::Fail) {
        if (pdwError != nullptr) {
            *pdwError = pOut->m_code;
        }
        return false;
    }
    return true;
}

bool FakeProcessor::ExecuteCmdWaitResponse(ICommand* pCmd, ICommand* pRsp,
                                           unsigned long* pdwError, unsigned long ulTimeoutMs)
{
    Expectation e("", AtForm::Bare);
    if (!Run(pCmd, ExecutedCall::Kind::WithResponse, ulTimeoutMs, pdwError, &e)) {
        return false;
    }
    if (!e.m_lines.empty()) {
        FillResponse(pRsp, e.m_lines.front());
    }
    return true;
}

bool FakeProcessor::ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                                unsigned long* pdwError,
                                                unsigned long ulTimeoutMs)
{
    Expectation e("", AtForm::Bare);
    if (!Run(pCmd, ExecutedCall::Kind::WithMultiResponse, ulTimeoutMs, pdwError, &e)) {
        return false;
    }
    for (const std::vector<std::string>& line : e.m_lines) {
        FillResponse(pRsp->AddRsp(), line);
    }
    return true;
}

bool FakeProcessor::ExecuteCmdNoResponse(ICommand* pCmd, unsigned long* pdwError,
                                         unsigned long ulTimeoutMs)
{
    Expectation e("", AtForm::Bare);
    return Run(pCmd, ExecutedCall::Kind::NoResponse, ulTimeoutMs, pdwError, &e);
}

}  // namespace testkit
