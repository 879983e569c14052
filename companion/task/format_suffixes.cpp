#include "task/format_suffixes.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

// The first row of a word is its usual suffix. None ends with another.
constexpr FormatSuffix rows[] = {
    {".mea", "mea"},   {".tel", "telegram"},    {".tdm", "tdm"},     {".kvn", "tdm"},
    {".ssm", "ssmas"}, {".ssmas", "ssmas"},     {".mpc.txt", "mpc"}, {".mpc", "mpc"},
    {".obs", "mpc"},   {".tdm.xml", "tdm.xml"}, {".mag", "mag"},     {".aavso.txt", "aavso"},
};

} // namespace

const FormatSuffix* formatSuffixOf(std::string_view path)
{
    const auto* const row = std::find_if(std::begin(rows), std::end(rows), [path](const FormatSuffix& each) {
        return path.ends_with(each.suffix);
    });
    return row == std::end(rows) ? nullptr : row;
}

std::string usualSuffix(std::string_view word)
{
    const auto* const row = std::find_if(std::begin(rows), std::end(rows),
                                         [word](const FormatSuffix& each) { return each.word == word; });
    return row == std::end(rows) ? "" : std::string(row->suffix);
}

std::string knownSuffixes()
{
    std::string text;
    for (const FormatSuffix& row : rows) {
        text += (text.empty() ? "" : " ") + std::string(row.suffix);
    }
    return text;
}

} // namespace companion
