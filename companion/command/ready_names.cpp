#include "command/ready_names.h"

#include "base/lines.h"
#include "files/text_reading.h"
#include "out/characters.h"
#include "reading/text_front.h"
#include "receivers/designation_forms.h"
#include "receivers/designations.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t";

constexpr std::size_t longestName = 7;

class NameLines
{
public:
    explicit NameLines(std::string ofPath) : path(std::move(ofPath))
    {
    }

    void add(std::string_view line)
    {
        ++number;
        line = trimmed(tavelinUtils::withoutLineEnd(line), blanks);
        if (line.empty() || line[0] == '#') {
            return;
        }
        const std::size_t tab = line.find('\t');
        const std::size_t gap = tab == std::string_view::npos ? line.find(' ') : tab;
        const std::string old(trimmed(line.substr(0, gap), blanks));
        const std::string now(gap == std::string_view::npos ? "" : trimmed(line.substr(gap), blanks));
        const bool isTwice =
            std::any_of(names.begin(), names.end(), [&old](const auto& each) { return each.first == old; });
        if (now.empty() || isTwice) {
            throw wrongCall("--rename", path + " line " + std::to_string(number) +
                                            (isTwice ? " has a name for \"" + old + "\" again"
                                                     : " has no old and new name"));
        }
        names.emplace_back(old, now);
    }

    NewNames names{};

private:
    std::string path;
    std::size_t number = 0;
};

std::string inBase36(std::size_t number)
{
    std::string text;
    do {
        text.insert(0, 1, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[number % 36]);
        number /= 36;
    } while (number > 0);
    return text;
}

// Names of a base and a number, without those that an object has or that are designations.
class RunningNames
{
public:
    RunningNames(const CopyInput& input, const std::string& theBase) : base(theBase)
    {
        for (const CopyTrack& track : input.tracks) {
            taken.insert(track.track.QRVName);
        }
    }

    std::string next()
    {
        std::string name;
        do {
            name = base + inBase36(++number);
        } while (taken.contains(name) || designationOf(name));
        if (name.size() > longestName) {
            throw wrongCall("--new-names",
                            '"' + base + "\" leaves no room for the numbers of " + counted(number, "object"));
        }
        return name;
    }

private:
    std::string base;
    std::set<std::string> taken{};
    std::size_t number = 0;
};

bool needsName(const CopyInput& input, const CopyTrack& track)
{
    const std::string& name = track.track.QRVName;
    const bool isOdd = !designationOf(name) && !isTemporaryName(name) && !isLaunchDesignation(name);
    return input.unidentified.contains(name) || !isNameOfObject(name) || (isOdd && !track.isSatellite);
}

Finding unused(const std::string& name)
{
    const std::string what = "nothing for \"" + name + "\" of --rename, which no object is called";
    return finding("V423", {{"what", what}, {"marks", counted(0, "mark")}});
}

} // namespace

NewNames namesOfFile(const std::string& path)
{
    frontOfFile(path); // throws where it cannot be read
    NameLines lines(path);
    tavelinUtils::readTextLines(path, lines);
    return lines.names;
}

NewNames newNames(const CopyInput& input, const std::string& base)
{
    if (!isTemporaryName(base) || base.size() >= longestName) {
        throw wrongCall("--new-names", '"' + base + "\" is not 1 to 6 letters and digits, a letter first");
    }
    RunningNames running(input, base);
    NewNames names;
    std::set<std::string> named;
    for (const CopyTrack& track : input.tracks) {
        if (needsName(input, track) && named.insert(track.track.QRVName).second) {
            names.emplace_back(track.track.QRVName, running.next());
        }
    }
    return names;
}

std::vector<Finding> rename(CopyInput& input, const NewNames& names, const std::string& file)
{
    const std::map<std::string, std::string> now(names.begin(), names.end());
    std::set<std::string> renamed;
    for (CopyTrack& track : input.tracks) {
        const auto name = now.find(track.track.QRVName);
        if (name != now.end()) {
            renamed.insert(name->first);
            track.track.QRVName = name->second;
        }
    }
    std::vector<Finding> notes;
    for (const auto& [old, other] : names) {
        notes.push_back(
            (renamed.contains(old) ? finding("V424", {{"old", old}, {"new", other}}) : unused(old)).in(file));
    }
    return notes;
}

} // namespace companion
