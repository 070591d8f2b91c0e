// The one-command operations of registration, packet attach, the HSPA switches
// and the CDMA settings, as one table: the command each sends, where a failure's
// code goes, what it copies out (bounded to its record) and what it traces.

#include <functional>
#include <string>
#include <vector>

#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using namespace NETSRV_DATA;
using testkit::AtForm;
typedef std::vector<std::string> Fields;

const unsigned long kUntouched = 777;

// Runs an operation; bRecord false passes a null output. What it read, as text.
typedef std::function<bool(CNetSrvImpl&, bool bRecord, unsigned long*, std::string*)> Call;

template <typename T>
std::string Text(const T& v)
{
    return std::to_string(static_cast<long long>(v));
}
std::string Text(const RegStateReport& r)
{
    return Text(r.ReportMode) + "," + Text(r.ReportState) + "," + r.LacCode + "," + r.CellID;
}
std::string Text(const SPrlVer& v)
{
    return v.szPrlVer;
}
std::string Text(const CURRNETWORKIDINFO& v)
{
    return Text(v.unCurrSID) + "," + Text(v.unCurrNID) + "," + v.szSubNetID;
}

template <typename T, bool (CNetSrvImpl::*Method)(T*, unsigned long*)>
Call Get()
{
    return [](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string* out) {
        T value = T();
        const bool ok = (s.*Method)(bRecord ? &value : nullptr, e);
        *out = Text(value);
        return ok;
    };
}

Call Hspa(int mode)
{
    return [mode](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string* out) {
        HSPA_STAT v = HSPA_STAT_DISABLE;
        const bool ok = s.SRVGetHSPAState(static_cast<HSPA_MODE>(mode), bRecord ? &v : nullptr, e);
        *out = Text(v);
        return ok;
    };
}

// A setting: only its error word can be missing.
Call Set(std::function<bool(CNetSrvImpl&, unsigned long*)> set)
{
    return [set](CNetSrvImpl& s, bool, unsigned long* e, std::string*) { return set(s, e); };
}

// Where a failure's code goes: both words; the caller's only; or the caller
// gets the service's last error after a helper failed, also when the helper
// found no processor (the HSPA switches, like the signal bar).
enum class Word { Both, CallerOnly, Derived };

struct Op {
    const char* name;
    Call call;
    bool hasOutput;   // a null output gives 10001
    const char* at;
    Fields fields;    // the parameters of a set, the answer of a read
    std::string out;
    Word word = Word::Both;
    const char* okTrace = nullptr;
    int okLevel = TL_ERRO;
    const char* failTrace = nullptr;
    const char* noProcessor = "CNetSrvImpl IProcess pointer is null";
};

Op Read(const char* name, Call call, const char* at, Fields answer, std::string out)
{
    return {name, call, true, at, answer, out};
}
Op Write(const char* name, Call call, const char* at, Fields params, bool hasInput = false)
{
    return {name, call, hasInput, at, params, ""};
}
template <typename E>
Op Write(const char* name, bool (CNetSrvImpl::*set)(E, unsigned long*), E value, const char* at,
         Fields params)
{
    return Write(name, Set([set, value](CNetSrvImpl& s, unsigned long* e) { return (s.*set)(value, e); }),
                 at, params);
}
Op Traced(Op op, const char* okTrace, const char* failTrace)
{
    op.okTrace = okTrace;
    op.failTrace = failTrace;
    return op;
}
Op Derived(Op op)
{
    op.word = Word::Derived;
    return op;
}

std::vector<Op> Ops()
{
    Op lte = Read("SRVGetLTEPSRegState", Get<RegStateReport, &CNetSrvImpl::SRVGetLTEPSRegState>(),
                  "+CEREG", {"2", "1", "8d83", "671f98a", "7"}, "2,1,8d83,671f98a");
    lte.failTrace = "CNetSrvImpl::SRVGetLTEPSRegState(): ExecuteCmdWaitResponse return false";
    lte.noProcessor = "CNetSrvImpl::SRVGetLTEPSRegState(): IProcess pointer is null";
    Op id = Read("SRVGetCurrNetworkID", Get<CURRNETWORKIDINFO, &CNetSrvImpl::SRVGetCurrNetworkID>(),
                 "^CURRSID", {"65535", "65537", "00A1B2C3"}, "65535,1,00A1B2C3");
    id.word = Word::CallerOnly;
    id.okTrace = "SRVGetCurrNetworkID() success";
    id.okLevel = TL_INFO;
    id.noProcessor = "CNetSrvImpl IProcess pointer is NULL";
    return {
        Read("SRVGetCSRegState", Get<RegStateReport, &CNetSrvImpl::SRVGetCSRegState>(), "+CREG",
             {"2", "1", "2A3B", "01A2B3C4"}, "2,1,2A3B,01A2B3C4"),
        Read("SRVGetPSRegState", Get<RegStateReport, &CNetSrvImpl::SRVGetPSRegState>(), "+CGREG",
             {"0", "5"}, "0,5,,"),
        lte,
        Read("SRVGetPSState", Get<PSState, &CNetSrvImpl::SRVGetPSState>(), "+CGATT", {"1"}, "1"),
        Write("SRVSetPSState", &CNetSrvImpl::SRVSetPSState, PS_STAT_DETACHED, "+CGATT", {"0"}),
        Derived(Read("SRVGetHSPAState(DPA)", Hspa(HSPA_MODE_DPA), "^HSDPA", {"1"}, "1")),
        Derived(Read("SRVGetHSPAState(7)", Hspa(7), "^HSUPA", {"0"}, "0")),   // not 0: uplink
        Derived(Write("SRVSetHSPAState(UPA)", Set([](CNetSrvImpl& s, unsigned long* e) {
                          return s.SRVSetHSPAState(HSPA_MODE_UPA, HSPA_STAT_ENABLE, e);
                      }),
                      "^HSUPA", {"1"})),
        Traced(Read("SRVGetCDMAPrefMod", Get<CdmaPrefMode, &CNetSrvImpl::SRVGetCDMAPrefMod>(),
                    "^PREFMODE", {"8"}, "8"),
               "SRVGetCDMAPrefMod success", "SRVGetCDMAPrefMod error"),
        Traced(Write("SRVSetCDMAPrefMod", &CNetSrvImpl::SRVSetCDMAPrefMod, CDMA_PREF_MODE_HDR,
                     "^PREFMODE", {"4"}),
               "SRVSetCDMAPrefMod success", "SRVSetCDMAPrefMod error"),
        Read("SRVGetEvdoRevision", Get<EvdoRevision, &CNetSrvImpl::SRVGetEvdoRevision>(),
             "^EVDOREV", {"2"}, "2"),
        Write("SRVSetEvdoRevision", &CNetSrvImpl::SRVSetEvdoRevision, EVDO_REV0, "^EVDOREV", {"1"}),
        {"SRVGetNAM", [](CNetSrvImpl& s, bool, unsigned long* e, std::string* out) {
             NAMMode v = NAM_MODE_FIRST;
             const bool ok = s.SRVGetNAM(v, e);
             *out = Text(v);
             return ok;
         }, false, "^SNAM", {"1"}, "1"},
        Write("SRVSetNAM", &CNetSrvImpl::SRVSetNAM, NAM_MODE_SECOND, "^SNAM", {"1"}),
        Write("SRVRegMin", [](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string*) {
                  return s.SRVRegMin(bRecord ? "1234567890" : nullptr, e);
              },
              "^REG", {"1234567890"}, true),
        Read("SRVGetPrlVer", Get<SPrlVer, &CNetSrvImpl::SRVGetPrlVer>(), "^PRLVER", {"10015"},
             "10015"),
        Read("SRVGetKTFSimType", Get<KTFSimType, &CNetSrvImpl::SRVGetKTFSimType>(), "^KTFSIMTYPE",
             {"3"}, "3"),
        id,
    };
}

class SettingsQueries : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        Service();
        traces.Clear();
    }
};

TEST_F(SettingsQueries, EachOperationOnEachBranch)
{
    unsigned long code = 1000;   // each row fails with a code of its own
    for (const Op& op : Ops()) {
        SCOPED_TRACE(op.name);
        ++code;
        const bool bSet = op.out.empty();
        const AtForm form = bSet ? AtForm::Set : AtForm::Read;
        std::string out;
        unsigned long err = kUntouched;

        // Success: the command as the modem must see it, the answer copied
        // out, the error word left alone.
        if (bSet) {
            processor.Expect(op.at, form).With(op.fields).Ok();
        } else {
            processor.Expect(op.at, form).Answer(op.fields);
        }
        EXPECT_TRUE(op.call(*service, true, &err, &out));
        EXPECT_EQ(out, op.out);
        EXPECT_EQ(err, kUntouched);
        EXPECT_EQ(processor.Calls().back().timeoutMs, 30000u);
        EXPECT_EQ(traces.Lines().size(), op.okTrace ? 1u : 0u);
        EXPECT_TRUE(!op.okTrace || traces.Contains(op.okTrace, op.okLevel));

        // Failure: the code reaches the caller, and the service's word as the
        // operation's contract says.
        traces.Clear();
        processor.Expect(op.at, form).Fail(code);
        EXPECT_FALSE(op.call(*service, true, &err, &out));
        EXPECT_EQ(err, code);
        EXPECT_EQ(service->GetLastError() == static_cast<int>(code), op.word != Word::CallerOnly);
        EXPECT_EQ(traces.Lines().size(), op.failTrace ? 1u : 0u);
        EXPECT_TRUE(!op.failTrace || traces.Contains(op.failTrace, TL_ERRO));

        // Bad arguments send nothing.
        const std::size_t calls = processor.Calls().size();
        EXPECT_FALSE(op.call(*service, true, nullptr, &out));
        if (op.hasOutput) {
            err = kUntouched;
            EXPECT_FALSE(op.call(*service, false, &err, &out));
            EXPECT_EQ(err, 10001u);
        }
        EXPECT_EQ(processor.Calls().size(), calls);

        // No processor: the operation's own trace, the word untouched.
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
        traces.Clear();
        err = kUntouched;
        EXPECT_FALSE(op.call(*service, true, &err, &out));
        EXPECT_EQ(err, op.word == Word::Derived ? code : kUntouched);
        EXPECT_TRUE(traces.Contains(op.noProcessor, TL_ERRO));
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                           static_cast<IProcessor*>(&processor));
        traces.Clear();
    }
}

TEST_F(SettingsQueries, TextsAreCutToTheirRecords)
{
    const std::string longText(70, '7');
    unsigned long err = 0;
    processor.Expect("+CREG", AtForm::Read).Answer({"2", "1", longText, longText});
    RegStateReport reg;
    ASSERT_TRUE(service->SRVGetCSRegState(&reg, &err));
    EXPECT_EQ(Text(reg), "2,1," + longText.substr(0, 15) + "," + longText.substr(0, 15));
    processor.Expect("^PRLVER", AtForm::Read).Answer({longText});
    SPrlVer prl;
    ASSERT_TRUE(service->SRVGetPrlVer(&prl, &err));
    EXPECT_EQ(Text(prl), longText.substr(0, 63));
    processor.Expect("^CURRSID", AtForm::Read).Answer({"1", "2", longText});
    CURRNETWORKIDINFO id;
    ASSERT_TRUE(service->SRVGetCurrNetworkID(&id, &err));
    EXPECT_EQ(Text(id), "1,2," + longText.substr(0, 32));
}

TEST_F(SettingsQueries, ReportSwitchesAndTheAttachStateWithoutAnErrorWord)
{
    const struct {
        bool (CNetSrvImpl::*set)(int);
        const char* at;
    } switches[] = {{&CNetSrvImpl::SRVSetCSRegReport, "+CREG"},
                    {&CNetSrvImpl::SRVSetPSRegReport, "+CGREG"},
                    {&CNetSrvImpl::SRVSetLTEPSRegReport, "+CEREG"}};
    for (const auto& sw : switches) {
        SCOPED_TRACE(sw.at);
        processor.Expect(sw.at, AtForm::Set).With({"2"}).Ok();
        EXPECT_TRUE((service->*sw.set)(2));
        processor.Expect(sw.at, AtForm::Set).With({"1"}).Fail(100);
        EXPECT_FALSE((service->*sw.set)(1));
        EXPECT_EQ(service->GetLastError(), 100);
    }
    PSState state = PS_STAT_UNKNOW;
    processor.Expect("+CGATT", AtForm::Read).Answer({"0"});
    EXPECT_TRUE(service->SRVGetGprsState(state));
    EXPECT_EQ(state, PS_STAT_DETACHED);
    processor.Expect("+CGATT", AtForm::Read).Fail(AT_ERROR_TIMEOUT);
    EXPECT_FALSE(service->SRVGetGprsState(state));
    EXPECT_EQ(service->GetLastError(), static_cast<int>(AT_ERROR_TIMEOUT));
    EXPECT_TRUE(traces.Lines().empty());
}

}  // namespace
