// What a format keeps and what it is recognised by.

#include "command/explanation.h"
#include "out/text.h"
#include "reading/signatures.h"

#include <string_view>
#include <utility>

namespace companion {
namespace {

constexpr std::size_t column = 19;

std::string row(std::string_view name, std::string_view value)
{
    std::string line = "  " + std::string(name);
    line.resize(column, ' ');
    return wrapped(line, value, column);
}

} // namespace

Explanation explanationOf(const FormatFacts& facts)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"recognised by", facts.recognised},
        {"time", facts.time},
        {"right ascension", facts.rightAscension},
        {"declination", facts.declination},
        {"magnitude", facts.magnitude},
        {"names", facts.names},
        {"marks", facts.marks},
        {"page", facts.page},
    };
    Explanation explained;
    explained.text =
        std::string(facts.name) + ": " + formatTitle(facts.name) + "\n" + std::string(facts.what) + '\n';
    for (const auto& [name, value] : rows) {
        explained.text += row(name, value);
    }
    explained.json.set("kind", "format").set("name", facts.name).set("title", formatTitle(facts.name));
    explained.json.set("what", facts.what).set("recognised", facts.recognised);
    explained.json.set("digits", Json::object()
                                     .set("time", facts.time)
                                     .set("rightAscension", facts.rightAscension)
                                     .set("declination", facts.declination)
                                     .set("magnitude", facts.magnitude));
    explained.json.set("steps", Json::object()
                                    .set("time", facts.timeStep)
                                    .set("rightAscension", facts.rightAscensionStep)
                                    .set("declination", facts.declinationStep)
                                    .set("magnitude", facts.magnitudeStep));
    explained.json.set("names", facts.names).set("marks", facts.marks).set("page", facts.page);
    return explained;
}

} // namespace companion
