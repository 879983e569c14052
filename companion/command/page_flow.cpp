#include "command/page_flow.h"

#include <string>
#include <string_view>
#include <vector>

namespace companion {
namespace {

// A part of an account: what goes on, what is as it should be, what is lost on the way.
struct FlowPart
{
    std::size_t count;
    std::string_view text;
    std::string_view kind; ///< "kept", "other" or "loss": a style
};

// An account.
struct FlowStep
{
    std::string title;
    std::size_t total;
    std::vector<FlowPart> parts;

    bool agrees() const
    {
        std::size_t sum = 0;
        for (const FlowPart& part : parts) {
            sum += part.count;
        }
        return sum == total;
    }
};

FlowStep linesStep(const FileAccount& lines)
{
    return {lines.lines == 1 ? "line" : "lines",
            lines.lines,
            {{lines.marks, "made a mark", "kept"},
             {lines.parts, "gave a mark one of its values", "kept"},
             {lines.head, "head", "other"},
             {lines.ends, "end a block", "other"},
             {lines.blank, "blank or comment", "other"},
             {lines.passed, "skipped", "loss"},
             {lines.lost, "lost", "loss"},
             {lines.refused, "refused", "loss"}}};
}

FlowStep marksStep(const FileAccount& lines)
{
    return {lines.marksRead == 1 ? "mark read" : "marks read",
            lines.marksRead,
            {{lines.marks, "with a line of their own", "kept"}, {lines.repeated, "given again", "kept"}}};
}

FlowStep tasksStep(const MarkAccount& marks, std::size_t tasks)
{
    return {tasks == 1 ? "marks read by the task" : "marks read by the tasks",
            marks.read,
            {{marks.planned, "to be written", "kept"},
             {marks.excluded, "excluded by the task", "other"},
             {marks.narrowed, "of objects that are not wanted", "other"},
             {marks.cut, "cut where tracks are divided", "loss"},
             {marks.unnamed, "in files without a name", "loss"}}};
}

FlowStep plannedStep(const MarkAccount& marks)
{
    return {"marks to be written",
            marks.planned,
            {{marks.written, "in files at the end", "kept"},
             {marks.overwritten, "in files that later ones replace", "loss"},
             {marks.unwritten, "where no file is made", "loss"}}};
}

// The files of tasks that were run, and those of the others.
FlowStep foundStep(const PageContents& contents)
{
    std::size_t found = 0;
    std::size_t missing = 0;
    std::size_t tooMany = 0;
    std::size_t waiting = 0;
    for (const PageTask& task : contents.tasks) {
        for (const PageOutput& output : task.outputs) {
            found += std::min(output.found, output.planned);
            tooMany += output.found - std::min(output.found, output.planned);
            (task.wasRun() ? missing : waiting) += output.planned - std::min(output.found, output.planned);
        }
    }
    return {"marks expected in the files",
            contents.marks.written + tooMany,
            {{found, "counted in them", "kept"},
             {waiting, "of tasks that were not run", "other"},
             {missing, "missing", "loss"},
             {tooMany, "more than expected", "loss"}}};
}

// A bar of the parts, as long as the account is whole.
void addBar(Html& page, const FlowStep& step)
{
    constexpr std::size_t length = 1000;
    const Html::Element bar = page.in("svg", {{"viewBox", "0 0 " + std::to_string(length) + " 10"},
                                              {"preserveAspectRatio", "none"},
                                              {"aria-hidden", "true"}});
    std::size_t before = 0;
    for (const FlowPart& part : step.parts) {
        if (part.count > 0 && step.total > 0) {
            const std::size_t from = before * length / step.total;
            before += part.count;
            const std::size_t to = before * length / step.total;
            page.add("rect",
                     {{"class", std::string(part.kind)},
                      {"x", std::to_string(from)},
                      {"width", std::to_string(std::max(to - from, std::size_t{1}))},
                      {"height", "10"}},
                     "");
        }
    }
}

void addStep(Html& page, const FlowStep& step)
{
    const Html::Element item = page.in("li");
    {
        const Html::Element line = page.in("p");
        {
            const Html::Element title = page.in("span");
            page.add("b", {}, counted(step.total));
            page.text(' ' + step.title);
        }
        page.add("span", {{"class", step.agrees() ? "good" : "error"}},
                 step.agrees() ? "the sum agrees" : "the sum does not agree");
    }
    addBar(page, step);
    const Html::Element parts = page.in("ul", {{"class", "parts"}});
    for (const FlowPart& part : step.parts) {
        if (part.count > 0) {
            const Html::Element each = page.in("li");
            page.add("i", {{"class", std::string(part.kind)}}, "");
            page.add("b", {}, counted(part.count));
            page.text(' ' + std::string(part.text));
        }
    }
}

} // namespace

void addFlow(Html& page, const PageContents& contents)
{
    const Html::Element flow = page.in("ol", {{"class", "flow"}});
    addStep(page, linesStep(contents.lines));
    addStep(page, marksStep(contents.lines));
    if (!contents.tasks.empty()) {
        addStep(page, tasksStep(contents.marks, contents.tasks.size()));
        addStep(page, plannedStep(contents.marks));
        addStep(page, foundStep(contents));
    }
}

} // namespace companion
