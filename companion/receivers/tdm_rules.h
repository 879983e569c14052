// TDM rules: what readers of the CCSDS Tracking Data Message refuse.

#pragma once

#include "receivers/track_rules.h"

#include <memory>
#include <string_view>

namespace companion {

/// Whether a word is one of the message's reference frames for right ascension and declination.
bool isTdmFrame(std::string_view word);

/// Whether a word is a reference frame of the schemas of the XML form, which have fewer of them.
bool isTdmSchemaFrame(std::string_view word);

/// The rules for tracks that are to be written as a message: its text form, or with xml its XML form.
std::unique_ptr<TrackRules> tdmTrackRules(bool xml);

} // namespace companion
