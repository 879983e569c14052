#include "receivers/track_rules.h"

#include "receivers/aavso_rules.h"
#include "receivers/mpc_rules.h"
#include "receivers/tdm_rules.h"

namespace companion {

std::unique_ptr<TrackRules> trackRulesOf(const std::string& word)
{
    if (word == "mpc") {
        return mpcTrackRules();
    }
    if (word == "tdm" || word == "tdm.xml") {
        return tdmTrackRules(word == "tdm.xml");
    }
    if (word == "aavso") {
        return aavsoTrackRules();
    }
    return nullptr; // the others are for our own tools
}

std::string receiverOf(const std::string& word)
{
    return word == "tdm" || word == "tdm.xml" ? "ccsds" : word == "mpc" || word == "aavso" ? word : "";
}

} // namespace companion
