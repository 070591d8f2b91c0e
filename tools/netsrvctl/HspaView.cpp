#include "HspaView.h"

#include "NamedNumber.h"
#include "Names.h"
#include "TextColumns.h"

namespace netsrvctl {

nlohmann::ordered_json HspaJson(const HspaReadings& readings)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    AddReading(&json, "hsdpa", readings.hsdpa, HspaSwitchName);
    AddReading(&json, "hsupa", readings.hsupa, HspaSwitchName);
    return json;
}

std::string HspaText(const HspaReadings& readings, bool bShowMissing)
{
    return ReadingLine("HSDPA", NamedReading(readings.hsdpa, HspaSwitchName), bShowMissing) +
           ReadingLine("HSUPA", NamedReading(readings.hsupa, HspaSwitchName), bShowMissing);
}

}  // namespace netsrvctl
