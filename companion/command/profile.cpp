#include "command/profile.h"

#include "command/subcommand.h"
#include "out/json.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <vector>

namespace companion {
namespace {

constexpr std::string_view schema = "tavelin.profile/1";
constexpr std::string_view bandsPath = "bands/";

struct ProfileKey
{
    const char* path;
    std::string Observatory::*text;
    bool isList = false; ///< several values have commas between them
};
constexpr ProfileKey keys[] = {
    {"station", &Observatory::station},
    {"contact", &Observatory::contact},
    {"email", &Observatory::email},
    {"observers", &Observatory::observers, true},
    {"measurers", &Observatory::measurers, true},
    {"submitter", &Observatory::submitter},
    {"telescope/design", &Observatory::design},
    {"telescope/aperture", &Observatory::aperture},
    {"telescope/fRatio", &Observatory::fRatio},
    {"telescope/detector", &Observatory::detector},
    {"mode", &Observatory::mode},
    {"astrometricCatalogue", &Observatory::astrometricCatalogue},
    {"photometricCatalogue", &Observatory::photometricCatalogue},
    {"aavsoCode", &Observatory::aavsoCode},
};

// What a profile does not tell.
constexpr std::string Observatory::*otherTexts[] = {&Observatory::telescope, &Observatory::acknowledgement,
                                                    &Observatory::comment, &Observatory::band};

std::string bytesOf(const std::string& path)
{
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (!file || !(bytes << file.rdbuf())) {
        throw WrongUsage{
            finding("V003", {{"file", path}, {"what", errno == 0 ? "is empty" : std::strerror(errno)}})};
    }
    return bytes.str();
}

WrongUsage noProfile(const std::string& path, const std::string& why)
{
    return wrongCall("--profile", path + ' ' + why);
}

// What is said takes one line of a report.
void expectOneLine(const std::string& path, const JsonLeaf& leaf)
{
    if (std::any_of(leaf.text.begin(), leaf.text.end(), [](char c) { return c >= 0 && c < ' '; })) {
        throw noProfile(path, "has a line feed or another control character in \"" + leaf.path + '"');
    }
}

void take(Observatory& observatory, const JsonLeaf& leaf)
{
    if (leaf.path.starts_with(bandsPath)) {
        observatory.bands[leaf.path.substr(bandsPath.size())] = leaf.text;
        return;
    }
    const auto* const key = std::find_if(std::begin(keys), std::end(keys),
                                         [&leaf](const ProfileKey& each) { return each.path == leaf.path; });
    if (key == std::end(keys)) {
        std::vector<std::string> known{"schema", "bands"};
        for (const ProfileKey& each : keys) {
            known.emplace_back(each.path);
        }
        throw unknownWord("key of a profile", leaf.path, known);
    }
    std::string& text = observatory.*(key->text);
    text = key->isList && !text.empty() ? text + ", " + leaf.text : leaf.text;
}

} // namespace

Observatory profileOf(const std::string& path)
{
    const JsonLeaves read = jsonLeaves(bytesOf(path));
    if (!read.fault.empty()) {
        throw noProfile(path, read.fault);
    }
    Observatory observatory;
    bool isProfile = false;
    for (const JsonLeaf& leaf : read.leaves) {
        if (leaf.path == "schema") {
            isProfile = leaf.text == schema;
        } else {
            expectOneLine(path, leaf);
            take(observatory, leaf);
        }
    }
    if (!isProfile) {
        throw noProfile(path, "has no \"schema\": \"" + std::string(schema) + '"');
    }
    return observatory;
}

void putBefore(Observatory& observatory, const Observatory& first)
{
    const bool hasParts = !(first.design + first.aperture + first.fRatio + first.detector).empty();
    if (hasParts) {
        observatory.telescope.clear();
    }
    const auto put = [&](std::string Observatory::*text) {
        if (!(first.*text).empty()) {
            observatory.*text = first.*text;
        }
    };
    for (const ProfileKey& key : keys) {
        put(key.text);
    }
    for (std::string Observatory::*text : otherTexts) {
        put(text);
    }
    for (const auto& [ours, theirs] : first.bands) {
        observatory.bands[ours] = theirs;
    }
}

} // namespace companion
