#include "config/parameter_comments.h"

#include "base/tokens.h"

#include <array>
#include <string_view>
#include <utility>

namespace tavelinUtils {

void ParsComment(std::string line, std::string& source, std::string& note, std::string& sequenceid)
{
    std::array<std::string_view, 2> parts; // key and text
    cutParts(line, '>', parts);
    for (const auto& [key, target] :
         {std::pair{"#Source", &source}, std::pair{"#Note", &note}, std::pair{"#Sequenceid", &sequenceid}})
    {
        if (parts[0] == key) {
            *target = parts[1];
        }
    }
}

} // namespace tavelinUtils
