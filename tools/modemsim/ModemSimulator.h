// A virtual mobile-broadband modem on a pseudo-terminal. The host opens the
// slave side like any serial port; the simulator answers AT commands from a
// profile and a mutable state, and sends unsolicited reports on a timeline.
//
// Profiles are JSON (README.md documents every field). Four ship inside the
// library: "lte" (the default), "wcdma", "tdscdma" and "cdma".
//
// Thread safety: the free functions are pure and reentrant. Every member of
// Simulator may be called from any thread; the simulator serves the port on a
// thread of its own, which Stop (and the destructor) joins.
#ifndef MODEMSIM_MODEMSIMULATOR_H
#define MODEMSIM_MODEMSIMULATOR_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ModemProfile.h"

namespace modemsim {

// Reads and checks a profile. On a fault *pError gets one line naming the
// source, the field and the problem, for example
//   "lte.json: network.operators[2].plmn: invalid value "4600": expected 5 or 6 digits"
// and *pOut is left alone.
bool ParseProfile(const std::string& jsonText, const std::string& sourceName, Profile* pOut,
                  std::string* pError);
bool LoadProfileFile(const std::string& path, Profile* pOut, std::string* pError);
// A built-in profile by name ("lte"), or else a profile file by path.
bool LoadProfile(const std::string& nameOrPath, Profile* pOut, std::string* pError);

const std::string& DefaultProfileText();
std::vector<std::string> BuiltInProfileNames();
bool BuiltInProfileText(const std::string& name, std::string* pText);

class Simulator {
public:
    explicit Simulator(const Profile& profile);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    // Opens a pseudo-terminal and serves it; with linkPath, makes linkPath a
    // symbolic link to the slave (an existing link is replaced, any other file
    // is refused). The state starts from the profile and the timeline from now.
    bool Start(std::string* pError, const std::string& linkPath = "");
    // The slave's path ("/dev/pts/7"); empty while stopped or vanished.
    std::string SlavePath() const;
    // Stops serving, closes the port and removes the link. Idempotent.
    void Stop();

    // While silent the modem reads commands and answers none (no echo either);
    // unsolicited reports still go out.
    void SetSilent(bool bSilent);
    // Emits a burst of junk lines now.
    void SendGarbage();
    // The port disappears: the master side closes (the host's reads fail) and
    // the link is removed, as a device node goes when a modem is unplugged.
    void VanishPort();
    // After a vanish: a fresh pseudo-terminal, the link pointed at it. True
    // (and nothing done) when the port is there.
    bool RestorePort(std::string* pError);
    // Sends one unsolicited line now, framed as the modem frames it.
    void InjectReport(const std::string& line);

    // Receives one line per exchange ("<- AT+GCAP", "-> +GCAP: ...") and per
    // timeline or fault event, on the simulator's thread. Set before Start.
    void SetTrace(std::function<void(const std::string&)> fnTrace);

private:
    struct Impl;
    std::unique_ptr<Impl> m_pImpl;
};

}  // namespace modemsim

#endif
