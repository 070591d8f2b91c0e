// The AT command table, its two accessors, the report-to-object cast and the
// AddRsp operations of the multi-line collections.
#include "NetSrvAtCommonds.h"

#include <memory>
#include <new>
#include <string>

// These three come with the address-book side of the shared headers; the
// network service never reads them. Backslashes as the host writes its paths.
static const std::string PB_PROFILE_SIM = "userdata\\AddrProfileSim.xml";
static const std::string PB_PROFILE_NV = "userdata\\AddrProfileNv.xml";
static const std::string ADDR_FIELD = "plugins\\AddrBookPlugin\\addrfield.xml";

// The types are handed to the AT processor as they stand. "+CIMI" is raw data
// because its answer ("998899889988997") is a bare line without a name. Only
// the pure reports are unsolicited; reports that the modem also gives on
// request ("^RSSI", "+CREG", "^SYSINFO") stay normal.
const CmdSetItem _AtCmdSetTable[INDEX_COUNT] = {
    CmdSetItem(INDEX_INVALID, "", AT_TYPE_INVALID),
    CmdSetItem(INDEX_CRSM, "+CRSM", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SYS_CFG, "^SYSCFG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_NET_SEARCH, "+COPS", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_REGISTER_NET, "^REGISTER", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SYS_INFO, "^SYSINFO", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CSQ, "+CSQ", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_RSSI_CDMA, "^CSQLVL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SIGNAL_EX, "^CSNR", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_RSSI_HDR, "^HDRCSQLVL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_ANTENNA_QUERY, "^ANQUERY", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SYS_CDMA_PREFMODE, "^PREFMODE", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_PIN_ENABLE, "+CLCK", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SPN, "^SPN", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_HSDPA, "^HSDPA", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_GPRS_CGATT, "+CGATT", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SRV_GLASTERR, "^GLASTERR", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_IMSI, "+CIMI", AT_TYPE_RAWDATA),
    CmdSetItem(INDEX_SERV_IND, "^SRVST", AT_TYPE_UNSOLICITED),
    CmdSetItem(INDEX_HSUPA, "^HSUPA", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_DISP_PNN, "^CPNN", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_OPL, "^OPL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_PNN, "^PNN", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_EVDOREV, "^EVDOREV", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_NAM_SWITCH, "^SNAM", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_REG_MIN, "^REG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_PRL_VER, "^PRLVER", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_KTF_SIM_TYPE, "^KTFSIMTYPE", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_NET_REGISTER, "+CREG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CGREG, "+CGREG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CEREG, "+CEREG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_RSSI_IND, "^RSSI", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_RSSI_IND_EC, "^RSSILVL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_RSSI_HDR_IND, "^HRSSILVL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_ANTENNA_REPORT, "^ANLEVEL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SIM_STATUS, "^SIMST", AT_TYPE_UNSOLICITED),
    CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED),
    CmdSetItem(INDEX_SIM_REFRESH, "^SIMREFRESH", AT_TYPE_UNSOLICITED),
    CmdSetItem(INDEX_PNN_FILE_REFRESH, "^PNNFILEREFRESH", AT_TYPE_UNSOLICITED),
    CmdSetItem(INDEX_SYS_SYSCONFIG, "^SYSCONFIG", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CPLS, "+CPLS", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CPOL, "+CPOL", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SYS_INFOEX, "^SYSINFOEX", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_FPVERIFYIND, "^FPVERIFYIND", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_SYS_CFGEX, "^SYSCFGEX", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_LTERSRP, "^LTERSRP", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_LTESCINFO, "^LTESCINFO", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_HCSQ, "^HCSQ", AT_TYPE_NORMAL),
    CmdSetItem(INDEX_CURRSID, "^CURRSID", AT_TYPE_NORMAL),
};

const char* _GetCmdName(unsigned long uIndex)
{
    return _AtCmdSetTable[uIndex].name.c_str();
}

unsigned long _GetCmdType(unsigned long uIndex)
{
    return _AtCmdSetTable[uIndex].type;
}

Command MakeReport(unsigned long uIndex, const ParamList& params)
{
    Command report;
    report.index = uIndex;
    report.name = _GetCmdName(uIndex);
    report.type = _GetCmdType(uIndex);
    report.params = params;
    return report;
}

bool CommandCast(Command rawCmd, ICommand* rsp)
{
    if (rsp == nullptr) {
        return true;
    }
    // A report meant for another object is not an error: the dispatcher tries
    // the report on the object of the name it expects and checks the name itself.
    if (rawCmd.name != rsp->GetName()) {
        return true;
    }
    return _CmdCastHelper(rawCmd.params, rsp->GetFirstElemAddr(),
                          static_cast<unsigned int>(rsp->GetElemCount()));
}

bool _CmdCastHelper(const ParamList& params, PARAMETER* begin, unsigned int count)
{
    if (begin == nullptr) {
        return true;   // a bare command has nothing to fill
    }
    for (std::size_t k = 0; k < params.size() && k < count; ++k) {
        // Positional: once a field is refused, the fields behind it would land
        // in the wrong members, so filling ends here.
        if (!begin[k].FromString(params[k])) {
            break;
        }
    }
    return true;
}

// The by-value lists append a fresh response and hand out the stored copy.
template <class Rsp>
static IResponse* AppendFresh(std::vector<Rsp>& lines)
{
    try {
        lines.push_back(Rsp());
        return &lines.back();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

IResponse* VctOplLstRsp::AddRsp()
{
    return AppendFresh(vctOplLst);
}

IResponse* VctPmnListRsp::AddRsp()
{
    return AppendFresh(vctPmnList);
}

IResponse* VctReadCpolRsp::AddRsp()
{
    return AppendFresh(vctPLMNPreferList);
}

IResponse* ReadHcsqRspList::AddRsp()
{
    try {
        std::unique_ptr<ReadHcsqRsp> line(new ReadHcsqRsp());
        m_vecReadHcsqRspList.push_back(line.get());
        return line.release();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

ReadHcsqRspList::~ReadHcsqRspList()
{
    // The responses belong to the reader of the list (it deletes them after
    // converting the readings); here only the pointers are dropped.
    try {
        m_vecReadHcsqRspList.clear();
    } catch (...) {
    }
}
