// Name servers from the resolver files.
#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <fstream>

#include "OSDialupQuery.h"

namespace osdialup {

namespace {

// A resolver file is a few lines; anything past this is not read.
const std::size_t kMaxResolvBytes = 64 * 1024;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

// A numeric IPv4 or IPv6 address; an IPv6 link-local server may carry its
// zone ("fe80::1%wwan0"), which is kept in the text.
bool IsNumericAddress(const std::string& text)
{
    unsigned char buffer[sizeof(in6_addr)];
    if (inet_pton(AF_INET, text.c_str(), buffer) == 1) {
        return true;
    }
    const std::string::size_type zone = text.find('%');
    if (zone != std::string::npos && zone + 1 == text.size()) {
        return false;
    }
    return inet_pton(AF_INET6, text.substr(0, zone).c_str(), buffer) == 1;
}

}  // namespace

std::vector<std::string> ParseNameServers(std::string_view text)
{
    static const std::string_view kKeyword = "nameserver";
    std::vector<std::string> servers;
    while (!text.empty()) {
        const std::string_view::size_type end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);

        std::string_view::size_type pos = 0;
        while (pos < line.size() && IsBlank(line[pos])) {
            ++pos;
        }
        line.remove_prefix(pos);
        if (line.substr(0, kKeyword.size()) != kKeyword || line.size() == kKeyword.size() ||
            !IsBlank(line[kKeyword.size()])) {
            continue;   // comments, "search", "options", "nameserverX"
        }
        line.remove_prefix(kKeyword.size());
        pos = 0;
        while (pos < line.size() && IsBlank(line[pos])) {
            ++pos;
        }
        std::string_view::size_type stop = pos;
        while (stop < line.size() && !IsBlank(line[stop]) && line[stop] != '#' &&
               line[stop] != ';') {
            ++stop;
        }
        const std::string address(line.substr(pos, stop - pos));
        if (!address.empty() && IsNumericAddress(address) &&
            std::find(servers.begin(), servers.end(), address) == servers.end()) {
            servers.push_back(address);
        }
    }
    return servers;
}

bool ReadResolvText(const std::string& path, std::string* pText)
{
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        return false;
    }
    std::string text(kMaxResolvBytes, '\0');
    file.read(&text[0], static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    *pText = std::move(text);
    return true;
}

std::vector<std::string> NameServersFor(const std::string& strInterface, const ResolvFiles& files)
{
    std::string text;
    // pppd writes the servers the peer gave it (usepeerdns) into its own file;
    // /etc/resolv.conf may still name the servers of another link.
    if (strInterface.compare(0, 3, "ppp") == 0 && ReadResolvText(files.pppFile, &text)) {
        std::vector<std::string> servers = ParseNameServers(text);
        if (!servers.empty()) {
            return servers;
        }
    }
    text.clear();
    if (!ReadResolvText(files.systemFile, &text)) {
        return std::vector<std::string>();
    }
    return ParseNameServers(text);
}

}  // namespace osdialup
