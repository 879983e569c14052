// Measurement files: the operands of a subcommand that looks into files, and the format of each.

#pragma once

#include "command/subcommand.h"
#include "reading/signatures.h"

#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The format that an option names; empty where it was not given. Throws WrongUsage (V002) for a word that is
/// no format.
std::string givenFormat(const Arguments& arguments, std::string_view option = "as");

/// The word itself. Throws WrongUsage (V002) for one that is no format.
std::string knownFormat(std::string word);

/// The receiver that alone takes files of a format: "mpc", "ccsds", "aavso" or "ades"; empty where there is
/// none.
std::string ownReceiver(std::string_view format);

/// The finding (V302) of a file whose format is not certain.
Finding uncertainFormat(const std::string& path, const Recognition& recognition);

} // namespace companion
