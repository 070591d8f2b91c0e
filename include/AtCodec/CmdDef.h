// The vocabulary shared by the plugin and the host's AT processor: the untyped
// command record, the command-table row and the enumerations of command types,
// indices and send operators. Plain data; safe to read from any thread.
#ifndef ATCODEC_CMDDEF_H
#define ATCODEC_CMDDEF_H

#include <cstdint>
#include <string>
#include <vector>

typedef std::string CmdValue;          // an AT name such as "+COPS"
typedef unsigned long CmdIndex;        // a value of EnumCmdIndex
typedef unsigned long CmdType;         // a value (or bit set) of EnumCmdType
typedef std::vector<std::string> ParamList;

enum EnumCmdType {
    AT_TYPE_INVALID = 0,
    AT_TYPE_BASIC = 1,
    AT_TYPE_SPARAM = 2,
    AT_TYPE_RESULT = 3,
    AT_TYPE_NORMAL = 4,
    AT_TYPE_CMEE = 7,
    AT_TYPE_BINARY = 8,
    AT_TYPE_BINARY_EX = 16,
    AT_TYPE_RAWDATA = 32,
    AT_TYPE_BOTH_IMPL = 64,
    AT_TYPE_UNSOLICITED = 128
};

// How a command goes out; carried by the OPERATOR<N> parameter of a command.
enum COMMAND_OPERATOR {
    OPERATOR_READ_CMD = 1,
    OPERATOR_WAIT_PROMPT = 2,
    OPERATOR_CARRIAGE = 4,
    OPERATOR_SEND_ESCAPE = 8,
    OPERATOR_SEND = 16,
    OPERATOR_TEST_CMD = 32
};

// Row numbers of _AtCmdSetTable; row i has index i.
enum EnumCmdIndex {
    INDEX_INVALID = 0,
    INDEX_CRSM,
    INDEX_SYS_CFG,
    INDEX_NET_SEARCH,
    INDEX_REGISTER_NET,
    INDEX_SYS_INFO,
    INDEX_CSQ,
    INDEX_RSSI_CDMA,
    INDEX_SIGNAL_EX,
    INDEX_RSSI_HDR,
    INDEX_ANTENNA_QUERY,
    INDEX_SYS_CDMA_PREFMODE,
    INDEX_PIN_ENABLE,
    INDEX_SPN,
    INDEX_HSDPA,
    INDEX_GPRS_CGATT,
    INDEX_SRV_GLASTERR,
    INDEX_IMSI,
    INDEX_SERV_IND,
    INDEX_HSUPA,
    INDEX_DISP_PNN,
    INDEX_OPL,
    INDEX_PNN,
    INDEX_EVDOREV,
    INDEX_NAM_SWITCH,
    INDEX_REG_MIN,
    INDEX_PRL_VER,
    INDEX_KTF_SIM_TYPE,
    INDEX_NET_REGISTER,
    INDEX_CGREG,
    INDEX_CEREG,
    INDEX_RSSI_IND,
    INDEX_RSSI_IND_EC,
    INDEX_RSSI_HDR_IND,
    INDEX_ANTENNA_REPORT,
    INDEX_SIM_STATUS,
    INDEX_SYS_MODE,
    INDEX_SIM_REFRESH,
    INDEX_PNN_FILE_REFRESH,
    INDEX_SYS_SYSCONFIG,
    INDEX_CPLS,
    INDEX_CPOL,
    INDEX_SYS_INFOEX,
    INDEX_FPVERIFYIND,
    INDEX_SYS_CFGEX,
    INDEX_LTERSRP,
    INDEX_LTESCINFO,
    INDEX_HCSQ,
    INDEX_CURRSID,
    INDEX_COUNT   // number of rows, not a command
};

// The processor's untyped command or report.
struct Command {
    CmdValue name;
    CmdIndex index;
    CmdType type;
    ParamList params;   // field texts in order, as the processor split them

    Command() : index(0), type(0) {}
    Command(const Command& other) : name(other.name), index(other.index), type(other.type)
    {
        CopyParams(other.params);
    }
    Command& operator=(const Command& other)
    {
        if (this != &other) {
            name = other.name;
            index = other.index;
            type = other.type;
            CopyParams(other.params);
        }
        return *this;
    }
    bool operator==(const Command& other) const
    {
        return name == other.name && index == other.index && type == other.type &&
               params == other.params;
    }

private:
    void CopyParams(const ParamList& source)
    {
        params.clear();
        for (const std::string& field : source) {
            params.push_back(field);
        }
    }
};

// One row of the command table.
struct CmdSetItem {
    CmdIndex index;
    CmdValue name;
    CmdType type;

    CmdSetItem() : index(0), type(0) {}
    CmdSetItem(CmdIndex i, const CmdValue& n, CmdType t) : index(i), name(n), type(t) {}
    CmdSetItem(const CmdSetItem& other) = default;
    CmdSetItem& operator=(const CmdSetItem& other)
    {
        if (!(*this == other)) {
            index = other.index;
            name = other.name;
            type = other.type;
        }
        return *this;
    }
    bool operator==(const CmdSetItem& other) const
    {
        return index == other.index && name == other.name && type == other.type;
    }
    void init()
    {
        index = 0;
        name.clear();
        type = 0;
    }
};

#endif
