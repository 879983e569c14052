#include "formats/element_sets.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "files/text_files.h"

#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view noName = "0";
constexpr std::size_t usualSetLength = 170;

} // namespace

std::vector<TTLEstr> l3LEstr(std::string path)
{
    std::vector<TTLEstr> sets;
    FileBytes file;
    if (!readBytes(path, file)) {
        return sets;
    }
    TTLEstr set; // never cleared: a set has what it lacks from the one before
    forEachLine(file.view(), [&](std::string_view line) {
        switch (line.empty() ? ' ' : line.front()) {
        case '0': set.Line0 = line; break;
        case '1': set.Line1 = line; break;
        case '2':
            set.Line2 = line;
            sets.push_back(set);
            break;
        default: break;
        }
    });
    return sets;
}

void s3LEstr(std::string path, const std::vector<TTLEstr>& sets)
{
    std::string text;
    text.reserve(sets.size() * usualSetLength);
    for (const TTLEstr& set : sets) {
        text += set.Line0.empty() ? noName : set.Line0;
        text += '\n';
        text += set.Line1;
        text += '\n';
        text += set.Line2;
        text += '\n';
    }
    writeText(path, text);
}

} // namespace tavelinUtils
