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

const unsigned long kCode = 100;
const unsigned long kUntouched = 777;
const char* const kNoProcessor = "CNetSrvImpl IProcess pointer is null";

// One operation: bRecord false passes a null output; what it read, as text.
typedef std::function<bool(CNetSrvImpl&, bool bRecord, unsigned long*, std::string*)> Call;

template <typename T, bool (CNetSrvImpl::*Method)(T*, unsigned long*)>
Call Getter(std::function<std::string(const T&)> show)
{
    return [show](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string* out) {
        T value = T();
        const bool ok = (s.*Method)(bRecord ? &value : nullptr, e);
        *out = show(value);
        return ok;
    };
}

template <typename T>
std::string Number(const T& value)
{
    return std::to_string(static_cast<long long>(value));
}

std::string RegText(const RegStateReport& r)
{
    return Number(r.ReportMode) + "," + Number(r.ReportState) + "," + r.LacCode + "," + r.CellID;
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
    AtForm form;
    Fields params;    // of the set form
    Fields answer;    // of a read
    std::string out;
    Word word;
    const char* okTrace;
    int okLevel;
    const char* failTrace;
    const char* noProcessor;
};

const Op kOps[] = {
    {"SRVGetCSRegState", Getter<RegStateReport, &CNetSrvImpl::SRVGetCSRegState>(RegText), true,
     "+CREG", AtForm::Read, {}, {"2", "1", "2A3B", "01A2B3C4"}, "2,1,2A3B,01A2B3C4", Word::Both,
     nullptr, 0, nullptr, kNoProcessor},
    {"SRVGetPSRegState", Getter<RegStateReport, &CNetSrvImpl::SRVGetPSRegState>(RegText), true,
     "+CGREG", AtForm::Read, {}, {"0", "5"}, "0,5,,", Word::Both, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVGetLTEPSRegState", Getter<RegStateReport, &CNetSrvImpl::SRVGetLTEPSRegState>(RegText),
     true, "+CEREG", AtForm::Read, {}, {"2", "1", "8d83", "671f98a", "7"}, "2,1,8d83,671f98a",
     Word::Both, nullptr, 0,
     "CNetSrvImpl::SRVGetLTEPSRegState(): ExecuteCmdWaitResponse return false",
     "CNetSrvImpl::SRVGetLTEPSRegState(): IProcess pointer is null"},
    {"SRVGetPSState", Getter<PSState, &CNetSrvImpl::SRVGetPSState>(Number<PSState>), true,
     "+CGATT", AtForm::Read, {}, {"1"}, "1", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVSetPSState",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string*) {
         return s.SRVSetPSState(PS_STAT_DETACHED, e);
     },
     false, "+CGATT", AtForm::Set, {"0"}, {}, "", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVGetHSPAState(DPA)",
     [](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string* out) {
         HSPA_STAT v = HSPA_STAT_DISABLE;
         const bool ok = s.SRVGetHSPAState(HSPA_MODE_DPA, bRecord ? &v : nullptr, e);
         *out = Number(v);
         return ok;
     },
     true, "^HSDPA", AtForm::Read, {}, {"1"}, "1", Word::Derived, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVGetHSPAState(7)",   // any mode but 0 is the uplink
     [](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string* out) {
         HSPA_STAT v = HSPA_STAT_DISABLE;
         const bool ok = s.SRVGetHSPAState(static_cast<HSPA_MODE>(7), bRecord ? &v : nullptr, e);
         *out = Number(v);
         return ok;
     },
     true, "^HSUPA", AtForm::Read, {}, {"1"}, "1", Word::Derived, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVSetHSPAState(UPA)",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string*) {
         return s.SRVSetHSPAState(HSPA_MODE_UPA, HSPA_STAT_ENABLE, e);
     },
     false, "^HSUPA", AtForm::Set, {"1"}, {}, "", Word::Derived, nullptr, 0, nullptr, kNoProcessor},
    {"SRVGetCDMAPrefMod", Getter<CdmaPrefMode, &CNetSrvImpl::SRVGetCDMAPrefMod>(Number<CdmaPrefMode>),
     true, "^PREFMODE", AtForm::Read, {}, {"8"}, "8", Word::Both, "SRVGetCDMAPrefMod success",
     TL_ERRO, "SRVGetCDMAPrefMod error", kNoProcessor},
    {"SRVSetCDMAPrefMod",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string*) {
         return s.SRVSetCDMAPrefMod(CDMA_PREF_MODE_HDR, e);
     },
     false, "^PREFMODE", AtForm::Set, {"4"}, {}, "", Word::Both, "SRVSetCDMAPrefMod success",
     TL_ERRO, "SRVSetCDMAPrefMod error", kNoProcessor},
    {"SRVGetEvdoRevision",
     Getter<EvdoRevision, &CNetSrvImpl::SRVGetEvdoRevision>(Number<EvdoRevision>), true,
     "^EVDOREV", AtForm::Read, {}, {"2"}, "2", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVSetEvdoRevision",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string*) {
         return s.SRVSetEvdoRevision(EVDO_REV0, e);
     },
     false, "^EVDOREV", AtForm::Set, {"1"}, {}, "", Word::Both, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVGetNAM",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string* out) {
         NAMMode v = NAM_MODE_FIRST;
         const bool ok = s.SRVGetNAM(v, e);
         *out = Number(v);
         return ok;
     },
     false, "^SNAM", AtForm::Read, {}, {"1"}, "1", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVSetNAM",
     [](CNetSrvImpl& s, bool, unsigned long* e, std::string*) {
         return s.SRVSetNAM(NAM_MODE_SECOND, e);
     },
     false, "^SNAM", AtForm::Set, {"1"}, {}, "", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVRegMin",
     [](CNetSrvImpl& s, bool bRecord, unsigned long* e, std::string*) {
         return s.SRVRegMin(bRecord ? "1234567890" : nullptr, e);
     },
     true, "^REG", AtForm::Set, {"1234567890"}, {}, "", Word::Both, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVGetPrlVer",
     Getter<SPrlVer, &CNetSrvImpl::SRVGetPrlVer>([](const SPrlVer& v) { return v.szPrlVer; }),
     true, "^PRLVER", AtForm::Read, {}, {"10015"}, "10015", Word::Both, nullptr, 0, nullptr,
     kNoProcessor},
    {"SRVGetKTFSimType",
     Getter<KTFSimType, &CNetSrvImpl::SRVGetKTFSimType>(Number<KTFSimType>), true,
     "^KTFSIMTYPE", AtForm::Read, {}, {"3"}, "3", Word::Both, nullptr, 0, nullptr, kNoProcessor},
    {"SRVGetCurrNetworkID",
     Getter<CURRNETWORKIDINFO, &CNetSrvImpl::SRVGetCurrNetworkID>([](const CURRNETWORKIDINFO& v) {
         return Number(v.unCurrSID) + "," + Number(v.unCurrNID) + "," + v.szSubNetID;
     }),
     true, "^CURRSID", AtForm::Read, {}, {"65535", "65537", "00A1B2C3"}, "65535,1,00A1B2C3",
     Word::CallerOnly, "SRVGetCurrNetworkID() success", TL_INFO, nullptr,
     "CNetSrvImpl IProcess pointer is NULL"},
};

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
    for (const Op& op : kOps) {
        SCOPED_TRACE(op.name);
        ++code;
        std::string out;
        unsigned long err = kUntouched;

        // Success: the command as the modem must see it, the answer copied out,
        // the error word left alone.
        auto& expected = processor.Expect(op.at, op.form);
        if (op.form == AtForm::Set) {
            expected.With(op.params).Ok();
        } else {
            expected.Answer(op.answer);
        }
        EXPECT_TRUE(op.call(*service, true, &err, &out));
        EXPECT_EQ(out, op.out);
        EXPECT_EQ(err, kUntouched);
        EXPECT_EQ(processor.Calls().back().timeoutMs, 30000u);
        EXPECT_EQ(traces.Lines().size(), op.okTrace ? 1u : 0u);
        if (op.okTrace != nullptr) {
            EXPECT_TRUE(traces.Contains(op.okTrace, op.okLevel));
        }

        // Failure: the code reaches the caller; the service's word as the
        // operation's contract says.
        traces.Clear();
        processor.Expect(op.at, op.form).Fail(code);
        EXPECT_FALSE(op.call(*service, true, &err, &out));
        EXPECT_EQ(err, code);
        EXPECT_EQ(service->GetLastError() == static_cast<int>(code), op.word != Word::CallerOnly);
        EXPECT_EQ(traces.Lines().size(), op.failTrace ? 1u : 0u);
        if (op.failTrace != nullptr) {
            EXPECT_TRUE(traces.Contains(op.failTrace, TL_ERRO));
        }

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
    processor.Expect("+CREG", AtForm::Read).Answer({"2", "1", longText, longText});
    RegStateReport reg;
    unsigned long err = 0;
    ASSERT_TRUE(service->SRVGetCSRegState(&reg, &err));
    EXPECT_EQ(std::string(reg.LacCode), longText.substr(0, 15));
    EXPECT_EQ(std::string(reg.CellID), longText.substr(0, 15));

    processor.Expect("^PRLVER", AtForm::Read).Answer({longText});
    SPrlVer prl;
    ASSERT_TRUE(service->SRVGetPrlVer(&prl, &err));
    EXPECT_EQ(std::string(prl.szPrlVer), longText.substr(0, 63));

    processor.Expect("^CURRSID", AtForm::Read).Answer({"1", "2", longText});
    CURRNETWORKIDINFO id;
    ASSERT_TRUE(service->SRVGetCurrNetworkID(&id, &err));
    EXPECT_EQ(std::string(id.szSubNetID), longText.substr(0, 32));
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
        processor.Expect(sw.at, AtForm::Set).With({"1"}).Fail(kCode);
        EXPECT_FALSE((service->*sw.set)(1));
        EXPECT_EQ(service->GetLastError(), static_cast<int>(kCode));
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
