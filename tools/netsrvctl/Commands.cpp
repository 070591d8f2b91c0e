#include "Commands.h"

#include <nlohmann/json.hpp>

#include "AtCodec/IProcessor.h"
#include "ErrorText.h"

namespace netsrvctl {

namespace {
// The service failed: say which error word it gave and what it means. A modem
// that stopped answering or whose port went away is the modem's failure, not
// the operation's.
ExitStatus ReportFailure(const char* pszWhat, unsigned long dwError, const OutputOptions& out,
                         std::ostream& os, std::ostream& err)
{
    const ExitStatus status =
        dwError == AT_ERROR_TIMEOUT || dwError == AT_ERROR_PORT_CLOSED ? EXIT_NO_MODEM
                                                                       : EXIT_FAILED;
    const std::string meaning = DescribeErrorWord(dwError);
    if (out.json) {
        os << nlohmann::json{{"error", dwError}, {"meaning", meaning}}.dump() << "\n";
    }
    err << "netsrvctl: " << pszWhat << " failed: error " << dwError << " (" << meaning << ")\n";
    return status;
}
}  // namespace

ExitStatus RunPluginInfo(ToolHost& host, const OutputOptions& out, std::ostream& os)
{
    IBasePlugin* pPlugin = host.Plugin();
    const unsigned long version = pPlugin->GetVersion();
    const char* type = pPlugin->GetPluginType() == IBasePlugin::OPERATION ? "OPERATION" : "UI";
    if (out.json) {
        os << nlohmann::json{{"clsid", pPlugin->GetCLSID()},
                             {"name", pPlugin->GetPluginName()},
                             {"version", version},
                             {"type", type},
                             {"allow_release", pPlugin->IsAllowRelease()}}
                  .dump()
           << "\n";
        return EXIT_OK;
    }
    os << "name:          " << pPlugin->GetPluginName() << "\n"
       << "clsid:         " << pPlugin->GetCLSID() << "\n"
       << "version:       " << (version >> 8) << "." << (version & 0xFF) << " (" << version
       << ")\n"
       << "type:          " << type << "\n"
       << "allow release: " << (pPlugin->IsAllowRelease() ? "yes" : "no") << "\n";
    return EXIT_OK;
}

ExitStatus RunLastErr(ToolHost& host, unsigned long dwType, const OutputOptions& out,
                      std::ostream& os, std::ostream& err)
{
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    lastErr.type = dwType;
    unsigned long dwError = 0;
    if (!host.NetSrv()->SRVGetLastErr(&lastErr, &dwError)) {
        return ReportFailure("lasterr", dwError, out, os, err);
    }
    if (out.json) {
        os << nlohmann::json{{"type", lastErr.type}, {"code", lastErr.code}}.dump() << "\n";
    } else {
        os << "type: " << lastErr.type << "\ncode: " << lastErr.code << "\n";
    }
    return EXIT_OK;
}

ExitStatus RunAddress(ToolHost& host, const OutputOptions& out, std::ostream& os,
                      std::ostream& err)
{
    typedef bool (INetSrv::*AddressQuery)(const char*, const char*, char*, int);
    struct Query {
        const char* label;
        AddressQuery query;
    };
    const Query queries[] = {
        {"ipv4", &INetSrv::SRVGetDynamicIP},
        {"dns", &INetSrv::SRVGetDynamicDNS},
        {"ipv6", &INetSrv::SRVGetDynamicIP6},
    };

    nlohmann::json result = nlohmann::json::object();
    int found = 0;
    for (const Query& q : queries) {
        char buffer[256] = {};
        // The reserved argument must be given; the service puts the current
        // link's name in its place.
        if ((host.NetSrv()->*q.query)("", "", buffer, sizeof(buffer) - 1)) {
            result[q.label] = buffer;
            ++found;
        } else {
            result[q.label] = nullptr;
        }
    }
    if (out.json) {
        os << result.dump() << "\n";
    } else {
        for (const Query& q : queries) {
            const nlohmann::json& value = result[q.label];
            os << q.label << ": " << (value.is_null() ? "(none)" : value.get<std::string>())
               << "\n";
        }
    }
    if (found == 0) {
        err << "netsrvctl: address: no address: no data link is connected\n";
        return EXIT_FAILED;
    }
    return EXIT_OK;
}

}  // namespace netsrvctl
