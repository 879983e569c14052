#include "command/run_options.h"

#include "command/finding_codes.h"
#include "out/units.h"
#include "running/tool_path.h"

#include <charconv>

namespace companion {
namespace {

constexpr std::uint64_t leastMemory = 16 << 20; // a program that cannot be loaded ends in odd ways

std::chrono::milliseconds timeLimitOf(const Arguments& arguments)
{
    const std::string text = arguments.value("time-limit", "1h");
    const auto limit = durationOf(text);
    if (!limit) {
        throw wrongValue("time-limit", '"' + text + "\" is no duration such as 90s, 10m or 2h");
    }
    return *limit;
}

std::uint64_t memoryLimitOf(const Arguments& arguments)
{
    if (!arguments.has("memory-limit")) {
        return 0;
    }
    const std::string text = arguments.value("memory-limit");
    const auto limit = memoryOf(text);
    if (!limit || *limit < leastMemory) {
        throw wrongValue("memory-limit",
                         '"' + text + "\" is no amount of memory from 16M on, such as 500M or 2G");
    }
    return *limit;
}

Verification verificationOf(const Arguments& arguments)
{
    const std::string word = arguments.value("verify", "count");
    return word == "full" ? Verification::full : word == "none" ? Verification::none : Verification::count;
}

std::string toolOf(const Arguments& arguments)
{
    const std::string wanted = arguments.value("vomar");
    std::string path = toolPath(wanted);
    if (path.empty()) {
        const std::string where =
            wanted.empty() ? "beside this program or in the search path" : "that can be run at " + wanted;
        throw WrongUsage{finding("V402", {{"where", where}})};
    }
    return path;
}

} // namespace

RunSettings runSettings(const Arguments& arguments)
{
    RunSettings settings;
    settings.tool = toolOf(arguments);
    settings.timeLimit = timeLimitOf(arguments);
    settings.hasTimeLimit = arguments.has("time-limit");
    settings.memoryLimit = memoryLimitOf(arguments);
    settings.allowed = findingCodes(arguments, "allow");
    settings.verification = verificationOf(arguments);
    return settings;
}

std::size_t numberOf(const Arguments& arguments, const std::string& option, std::size_t otherwise)
{
    if (!arguments.has(option)) {
        return otherwise;
    }
    const std::string text = arguments.value(option);
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number > 10'000) {
        throw wrongValue(option, '"' + text + "\" is no number from 0 to 10,000");
    }
    return number;
}

WrongUsage wrongValue(const std::string& option, const std::string& problem)
{
    return wrongCall("--" + option, problem);
}

} // namespace companion
