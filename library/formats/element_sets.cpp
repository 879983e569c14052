#include "formats/element_sets.h"

#include "base/lines.h"
#include "files/text_files.h"
#include "files/text_reading.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view noName = "0";
constexpr std::size_t usualSetLength = 170;

// Takes the lines of a file one after the other.
class ElementSetLines
{
public:
    void add(std::string_view line)
    {
        switch (line.empty() ? ' ' : line.front()) {
        case '0': set.Line0 = line; break;
        case '1': set.Line1 = line; break;
        case '2':
            set.Line2 = line;
            sets.push_back(set);
            break;
        default: break;
        }
    }

    std::vector<TTLEstr> takeSets()
    {
        return std::exchange(sets, {});
    }

private:
    TTLEstr set; // never cleared: a set has what it lacks from the one before
    std::vector<TTLEstr> sets;
};

} // namespace

std::vector<TTLEstr> l3LEstr(std::string path)
{
    ElementSetLines reader;
    const bool isRead = readTextLines(path, reader); // a missing file is not
    return isRead ? reader.takeSets() : std::vector<TTLEstr>{};
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
