#include "command/finding_codes.h"

#include "base/tokens.h"
#include "findings/finding_table.h"
#include "out/text.h"

#include <ostream>
#include <string>
#include <vector>

namespace companion {
namespace {

WrongUsage unknownCode(std::string_view word)
{
    std::vector<std::string> known;
    for (const FindingRow& row : findingTable()) {
        known.push_back(row.code.text());
    }
    return unknownWord("finding", std::string(word), known);
}

} // namespace

std::set<FindingCode> findingCodes(const Arguments& arguments, std::string_view option)
{
    std::set<FindingCode> codes;
    for (const std::string& value : arguments.values(option)) {
        tavelinUtils::forEachToken(value, ',', [&codes](std::string_view word) {
            const auto code = FindingCode::of(word);
            if (!code || findingRow(*code) == nullptr) {
                throw unknownCode(word);
            }
            codes.insert(*code);
        });
    }
    return codes;
}

std::size_t mostPlaces(const Arguments& arguments)
{
    constexpr std::size_t usual = 100;
    constexpr std::size_t mostDigits = 9;
    if (!arguments.has("max")) {
        return usual;
    }
    const std::string text = arguments.value("max");
    if (text.empty() || text.size() > mostDigits || text.find_first_not_of("0123456789") != text.npos) {
        throw wrongCall("--max", '"' + text + "\" is no number");
    }
    return std::stoul(text);
}

void showMore(std::ostream& out, const std::string& file, std::size_t count, FindingCode code)
{
    out << printable(file) << ": " << counted(count) << " more of " << code.text() << '\n';
}

} // namespace companion
