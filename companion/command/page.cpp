#include "command/measurement_files.h"
#include "command/page_contents.h"
#include "command/page_html.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "out/progress.h"
#include "out/safe_file.h"
#include "reading/account_text.h"
#include "reading/input_files.h"

#include <filesystem>
#include <ostream>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"output", 'o', "FILE", "the page; - for the standard output"},
    {"as", 0, "FORMAT", "the format of the files, instead of the one that their content shows"},
    {"object", 0, "NAME",
     "pictures of this object; may be given again. Default: of the 200 with the most marks"},
    {"force", 'f', nullptr, "replace a page that exists"},
};

std::string outputOf(const Arguments& arguments, const Console& console)
{
    std::string path = arguments.value("output");
    if (path.empty()) {
        throw wrongCall("--output", "is missing: the file that becomes the page");
    }
    if (path == standardInput && console.look.json) {
        throw wrongCall("--output", "with --json the page needs a file of its own");
    }
    return path;
}

bool isFolder(const std::string& name)
{
    std::error_code ignored;
    return name != standardInput && std::filesystem::is_directory(name, ignored);
}

void gather(const Arguments& arguments, const Console& console, PageGatherer& gatherer)
{
    const std::string format = givenFormat(arguments);
    InputFiles files;
    Progress progress(console, "file", arguments.operands().size());
    std::size_t done = 0;
    for (const std::string& name : arguments.operands()) {
        if (isFolder(name)) {
            progress.wipe(); // the tasks of a batch have one of their own
            gatherer.addBatch(name);
        } else {
            gatherer.add(name, files.pathOf(name), format);
        }
        progress.at(++done);
    }
}

void write(const std::string& path, const std::string& document, bool force,
           const std::vector<std::string>& inputs)
{
    SafeFile file(path, force, inputs);
    file.write(document);
    file.commit();
}

std::string summary(const PageContents& contents)
{
    std::string text = counted(contents.files.size(), "file");
    if (!contents.tasks.empty()) {
        text += ", " + counted(contents.tasks.size(), "task");
        text += contents.states.empty() ? "" : " (" + batchCountsText(contents.states) + ')';
    }
    return text + ", " + counted(contents.objects.size(), "object") + ", " +
           counted(contents.lines.marksRead, "mark") + "; pictures of " +
           counted(contents.pictured(), "object") + "; " + briefTotals(contents.totals);
}

void showJson(std::ostream& out, const std::string& path, const std::string& document,
              const PageContents& contents, int status)
{
    JsonDocument json(out, "tavelin.page/1");
    json.set("page", path);
    if (!isUtf8(path)) {
        json.set("path", Json::object().set("bytes", hexadecimal(path)));
    }
    json.set("size", document.size());
    json.set("files", contents.files.size());
    json.set("tasks", contents.tasks.size());
    json.set("batches", contents.batches);
    if (contents.batches > 0) {
        Json states = Json::object();
        setBatchCounts(states, contents.states);
        json.set("states", states);
    }
    json.set("objects", contents.objects.size());
    json.set("pictured", contents.pictured());
    json.set("tracks", contents.lines.tracks);
    json.set("marks", contents.lines.marksRead);
    json.set("totals", totalsJson(contents.totals));
    json.set("exit", status);
    json.finish();
}

// Tells of a page that was written.
void show(const std::string& path, const std::string& document, const PageContents& contents,
          const Console& console, int status)
{
    if (console.look.json) {
        showJson(console.out, path, document, contents, status);
    } else {
        console.out << printable(path) << ": " << summary(contents) << '\n';
    }
}

int page(const Arguments& arguments, const Console& console)
{
    const std::string path = outputOf(arguments, console);
    PageGatherer gatherer(console);
    gather(arguments, console, gatherer);
    const PageContents contents = gatherer.finish(arguments.values("object"));
    const std::string document = pageDocument(contents);
    const int status = exitStatus(contents.totals);
    if (path == standardInput) {
        console.out << document;
    } else {
        write(path, document, arguments.has("force"), gatherer.sources());
        show(path, document, contents, console, status);
    }
    return status;
}

} // namespace

const Subcommand pageCommand{"page",
                             "INPUT...",
                             "files, tasks and the folder of a batch as one page for a browser",
                             {"tavelin page night.mea -o night.html", "tavelin page work -o archive.html"},
                             options,
                             page};

} // namespace companion
