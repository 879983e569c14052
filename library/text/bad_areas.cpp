#include "text/bad_areas.h"

#include "base/numbers.h"
#include "math/scalars.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <algorithm>
#include <optional>

namespace tavelinUtils {
namespace {

std::optional<TBadAreaFrame> areaOf(const std::string& text)
{
    const std::vector<std::string> corners = split(text, "-", true);
    if (corners.size() != 2) {
        return std::nullopt;
    }
    std::vector<std::string> numbers = split(corners[0], ";", true);
    const std::vector<std::string> second = split(corners[1], ";", true);
    if (numbers.size() != 2 || second.size() != 2) {
        return std::nullopt;
    }
    numbers.insert(numbers.end(), second.begin(), second.end());
    if (!std::all_of(numbers.begin(), numbers.end(), tavelinMath::IsNumber)) {
        return std::nullopt;
    }
    return TBadAreaFrame{toInt(numbers[0]), toInt(numbers[1]), toInt(numbers[2]), toInt(numbers[3])};
}

} // namespace

std::vector<TBadAreaFrame> ParsBadAreaFrame(std::string text, bool& ok)
{
    std::vector<TBadAreaFrame> areas;
    for (const std::string& closed : split(text, ")", false)) {
        for (const std::string& part : split(closed, "(", false)) {
            if (const auto area = areaOf(part)) {
                areas.push_back(*area);
            } else {
                ok = false;
            }
        }
    }
    return areas;
}

void CheckBadAreaFrame(std::string name, std::string text, TFuncRes& result)
{
    bool ok = true;
    ParsBadAreaFrame(text, ok);
    if (!ok) {
        result.Code = resultCode::settingOutOfRange;
        result.Comment = GetTextCode(resultCode::settingOutOfRange) + name;
    }
}

} // namespace tavelinUtils
