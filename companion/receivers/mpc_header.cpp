#include "receivers/mpc_header.h"

#include "base/tokens.h"
#include "out/characters.h"
#include "receivers/catalogue_names.h"
#include "receivers/copy_tally.h"
#include "receivers/mpc_rules.h"

#include <algorithm>
#include <regex>

namespace companion {
namespace {

constexpr std::size_t longestLine = 80;

void addLine(std::string& out, const char* word, const std::string& text)
{
    if (!text.empty()) {
        out += std::string(word) + ' ' + text + '\n';
    }
}

// Names, in as many lines as they need; none is broken.
void addNames(std::string& out, const char* word, const std::string& list)
{
    const std::size_t room = longestLine - 4;
    std::string line;
    for (const std::string& name : namesOf(list)) {
        if (!line.empty() && line.size() + 2 + name.size() > room) {
            addLine(out, word, line);
            line.clear();
        }
        line += (line.empty() ? "" : ", ") + name;
    }
    addLine(out, word, line);
}

// The address has a line of its own, in brackets, unless the contact holds one.
void addContact(std::string& out, const Observatory& observatory)
{
    addLine(out, "CON", observatory.contact);
    const bool hasAddress = observatory.contact.find('[') != std::string::npos;
    if (!observatory.contact.empty() && !hasAddress && !observatory.email.empty()) {
        addLine(out, "CON", '[' + observatory.email + ']');
    }
}

Finding headerFault(const std::string& what)
{
    return finding("V320", {{"what", what}});
}

void addNameFaults(std::vector<Finding>& faults, const std::string& list)
{
    for (const std::string& name : namesOf(list)) {
        if (!isPersonName(name)) {
            faults.push_back(headerFault("the name \"" + name + "\" is not written as \"J. R. Tolkien\""));
        }
    }
}

void addTextFaults(std::vector<Finding>& faults, const std::string& header)
{
    tavelinUtils::forEachToken(header, '\n', [&faults](std::string_view line) {
        const std::string word(line.substr(0, 3));
        if (line.size() > longestLine) {
            faults.push_back(headerFault("its line " + word + " has " + std::to_string(line.size()) +
                                         " columns, at most 80"));
        }
        const bool isPlain =
            std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
        if (!isPlain) {
            faults.push_back(headerFault("its line " + word + " has characters that are not ASCII"));
        }
    });
}

} // namespace

std::vector<std::string> namesOf(std::string_view list)
{
    std::vector<std::string> names;
    tavelinUtils::forEachToken(list, ',', [&names](std::string_view each) {
        if (const std::string_view name = trimmed(each); !name.empty()) {
            names.emplace_back(name);
        }
    });
    return names;
}

std::string telescopeLine(const Observatory& observatory)
{
    if (!observatory.telescope.empty()) {
        return observatory.telescope;
    }
    if (observatory.aperture.empty() || observatory.design.empty()) {
        return {};
    }
    std::string line = observatory.aperture + "-m ";
    line += observatory.fRatio.empty() ? "" : "f/" + observatory.fRatio + ' ';
    line += observatory.design;
    return line + (observatory.detector == "CCD" ? " + CCD" : ""); // other detectors have no word there
}

void readTelescopeLine(Observatory& observatory)
{
    static const std::regex form(R"((\d+(?:\.\d+)?)-m(?:/[\d.]+-m)? (?:f/(\d+(?:\.\d+)?) )?([A-Za-z][^+,]*?))"
                                 R"((?: \+ .*?(CCD))?(?: \+ .*)?(?:, .*)?)");
    std::smatch parts;
    constexpr std::size_t longest = 200; // more than any line that the receiver takes
    if (observatory.telescope.size() > longest || !std::regex_match(observatory.telescope, parts, form)) {
        return;
    }
    std::string* const texts[] = {&observatory.aperture, &observatory.fRatio, &observatory.design,
                                  &observatory.detector};
    for (std::size_t part = 0; part < std::size(texts); ++part) {
        if (texts[part]->empty()) {
            *texts[part] = parts[part + 1];
        }
    }
}

std::string mpcHeader(const Observatory& observatory, const std::string& acknowledgement)
{
    std::string out;
    addLine(out, "COD", observatory.station);
    addContact(out, observatory);
    addNames(out, "OBS", observatory.observers);
    addNames(out, "MEA", observatory.measurers.empty() ? observatory.observers : observatory.measurers);
    addLine(out, "TEL", telescopeLine(observatory));
    addLine(out, "NET", catalogueForNet(observatory.astrometricCatalogue));
    tavelinUtils::forEachToken(observatory.comment, '\n',
                               [&out](std::string_view line) { addLine(out, "COM", std::string(line)); });
    addLine(out, "ACK", observatory.acknowledgement.empty() ? acknowledgement : observatory.acknowledgement);
    addLine(out, "AC2", observatory.email);
    return out;
}

std::vector<Finding> mpcHeaderFaults(const Observatory& observatory, bool isFirst)
{
    std::vector<Finding> faults;
    if (namesOf(observatory.observers).empty()) {
        faults.push_back(notKnown("the name of the observers", "observers of --profile"));
    }
    if (!isFirst && telescopeLine(observatory).empty()) {
        faults.push_back(notKnown("the telescope of a further station", "telescope of --profile"));
    }
    if (!isFirst && observatory.astrometricCatalogue.empty()) {
        faults.push_back(
            notKnown("the star catalogue of a further station", "astrometricCatalogue of --profile"));
    }
    addNameFaults(faults, observatory.observers);
    addNameFaults(faults, observatory.measurers);
    addTextFaults(faults, mpcHeader(observatory, ""));
    return faults;
}

} // namespace companion
