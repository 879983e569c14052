#include "running/gnuplot.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/text.h"
#include "running/private_folder.h"
#include "running/tool_path.h"

#include <chrono>
#include <optional>
#include <utility>

namespace companion {
namespace {

constexpr const char* programName = "gnuplot";

WrongUsage noPicture(const std::string& problem)
{
    return {finding("V470", {{"problem", problem}})};
}

// What came of a run; nothing where a signal came first.
std::optional<EndedChild> ran(const std::string& program, const std::string& script,
                              const Interrupts& interrupts)
{
    ChildCall call{program, programName, script};
    call.timeLimit = std::chrono::minutes(1);
    call.option = "--default-settings";
    Children children(interrupts);
    children.start(0, call);
    std::optional<EndedChild> ended = children.next(std::chrono::hours(1));
    if (!ended) {
        children.stop();
    }
    return ended;
}

// Draws in a folder that is gone at the end; gives nothing where a signal came first.
std::optional<std::string> drawn(const std::string& program, const std::string& suffix,
                                 const ScriptFor& scriptFor, const Interrupts& interrupts)
{
    const PrivateFolder folder;
    const std::string picture = folder.path() + "/picture" + suffix;
    const std::string script = folder.path() + "/script";
    if (!tavelinUtils::writeBytes(script, "wb", scriptFor(picture))) {
        throw noPicture("cannot be given its script: " + script + " cannot be written");
    }
    const std::optional<EndedChild> ended = ran(program, script, interrupts);
    if (!ended) {
        return std::nullopt;
    }
    tavelinUtils::FileBytes bytes;
    const bool isDrawn = tavelinUtils::readBytes(picture, bytes) && !bytes.view().empty();
    if (ended->status != 0 || !isDrawn) {
        throw noPicture(drawingProblem(*ended));
    }
    return std::string(bytes.view());
}

} // namespace

std::string drawingProblem(const EndedChild& ended)
{
    if (!ended.failure.empty()) {
        return "could not be started: " + ended.failure;
    }
    if (ended.limit == ChildLimit::time) {
        return "took longer than a minute";
    }
    return ended.said.empty() ? "has drawn nothing" : "said \"" + printable(ended.said) + '"';
}

std::string drawnPicture(const std::string& suffix, const ScriptFor& scriptFor)
{
    const std::string program = programInSearchPath(programName);
    if (program.empty()) {
        throw noPicture("was not found");
    }
    const Interrupts interrupts;
    std::optional<std::string> bytes = drawn(program, suffix, scriptFor, interrupts);
    if (!bytes) {
        endBySignal(interrupts.signal());
    }
    return std::move(*bytes);
}

} // namespace companion
