#include "DeviceService.h"

#include <strings.h>

#include "AtCodec/IProcessor.h"
#include "AtFields.h"
#include "AtProcessor.h"

namespace host {

namespace {

// A modem answers these reads at once; a silent one costs this much per command.
const unsigned long kProbeTimeoutMs = 5000;

}  // namespace

bool ModemAnswered(bool bSucceeded, unsigned long dwError)
{
    if (bSucceeded) {
        return true;
    }
    return dwError != AT_ERROR_TIMEOUT && dwError != AT_ERROR_PORT_CLOSED &&
           dwError != AT_ERROR_BAD_COMMAND;
}

bool GcapNamesCdma(const std::vector<std::string>& gcapLines)
{
    static const char kCdma[] = "+CIS707";
    const std::size_t nLength = sizeof(kCdma) - 1;
    for (const std::string& line : gcapLines) {
        for (const std::string& field : SplitAtFields(line)) {
            if (field.size() >= nLength && strncasecmp(field.c_str(), kCdma, nLength) == 0 &&
                (field.size() == nLength || field[nLength] == '-')) {
                return true;
            }
        }
    }
    return false;
}

int ProductTypeFromProbe(bool gcapAnswered, const std::vector<std::string>& gcapLines,
                         bool syscfgAnswered, bool sysconfigAnswered)
{
    if (gcapAnswered && GcapNamesCdma(gcapLines)) {
        return DevDataDef::PRODUCT_TYPE_CDMA;
    }
    if (sysconfigAnswered && !syscfgAnswered) {
        return DevDataDef::PRODUCT_TYPE_TD_SCDMA;
    }
    if (gcapAnswered || syscfgAnswered) {
        return DevDataDef::PRODUCT_TYPE_WCDMA;
    }
    return DevDataDef::PRODUCT_TYPE_UNKNOW;
}

CDeviceService::CDeviceService()
    : m_productType(DevDataDef::PRODUCT_TYPE_UNKNOW), m_bSetByUser(false)
{
}

int CDeviceService::GetProductType()
{
    return m_productType;
}

void CDeviceService::SetProductType(int productType)
{
    m_bSetByUser = true;
    m_productType = productType;
}

void CDeviceService::Probe(CAtProcessor& processor)
{
    if (m_bSetByUser) {
        return;
    }
    std::vector<std::string> gcapLines;
    unsigned long dwError = 0;
    const bool bGcap = processor.ExecuteText("AT+GCAP", "+GCAP", &gcapLines, &dwError,
                                             kProbeTimeoutMs);
    const bool bGcapAnswered = ModemAnswered(bGcap, dwError);
    if (!bGcap) {
        gcapLines.clear();
    }
    bool bSyscfg = false;
    bool bSysconfig = false;
    // A modem silent on AT+GCAP is not asked again; a CDMA modem needs no more.
    if (bGcapAnswered && !GcapNamesCdma(gcapLines)) {
        std::vector<std::string> lines;
        bSyscfg = processor.ExecuteText("AT^SYSCFG?", "^SYSCFG", &lines, &dwError,
                                        kProbeTimeoutMs);
        if (!bSyscfg) {
            lines.clear();
            bSysconfig = processor.ExecuteText("AT^SYSCONFIG?", "^SYSCONFIG", &lines, &dwError,
                                               kProbeTimeoutMs);
        }
    }
    const int productType = ProductTypeFromProbe(bGcapAnswered, gcapLines, bSyscfg, bSysconfig);
    if (!m_bSetByUser) {
        m_productType = productType;
    }
}

}  // namespace host
