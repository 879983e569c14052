#include "command/made_task.h"
#include "command/measurement_files.h"
#include "command/run_options.h"
#include "command/subcommands.h"
#include "files/essentials.h"
#include "format_words.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "reading/input_files.h"
#include "task/format_suffixes.h"
#include "task/key_table.h"
#include "task/path_checks.h"
#include "task/task_checks.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr OptionRow options[] = {
    {"from", 0, "FORMAT", "the format of IN: mea, telegram, tdm or ssmas; default: by its content"},
    {"to", 0, "mea|telegram|tdm|ssmas|mpc|tdm.xml|mag|aavso", "the format of OUT; default: by its suffix"},
    {"telescope", 0, "NAME", "the telescope of all tracks; default: what IN says"},
    {"originator", 0, "NAME", "the originator of all tracks; default: what IN says"},
    {"frame", 0, "WORD", "the reference frame of all tracks; default ICRF"},
    {"autoname", 0, nullptr, "OUT is a folder; the file in it is named after telescope, object and time"},
    {"keep-task", 0, "FILE", "save the task that does the same"},
    {"force", 'f', nullptr, "replace files that exist"},
    {"allow", 0, "CODES", "run in spite of findings of these codes, with commas between"},
    timeLimitRow,
    memoryLimitRow,
    verifyRow,
    toolRow,
};

WrongUsage unknownFormat(const std::string& direction, const std::string& word, const std::string& question)
{
    return {finding("V040", {{"direction", direction}, {"word", word}, {"question", question}})};
}

// What a conversion reads, and what it makes.
struct Conversion
{
    std::string input;    // as the call names it
    std::string readable; // the path from which it can be read here
    std::string from;
    std::string output;
    std::string to;
    bool namesItself = false; // the output is a folder

    bool isPiped() const
    {
        return readable != input;
    }

    bool isPrinted() const
    {
        return output == standardOutput;
    }

    static constexpr const char* standardOutput = "-";
};

// Whether the lines of a format have the telescope of their tracks, and their originator.
bool showsOriginator(const std::string& word)
{
    return word == "tdm" || word == "tdm.xml" || word == "telegram";
}

bool showsTelescope(const Conversion& conversion)
{
    const std::string& word = conversion.to;
    return showsOriginator(word) || word == "mea" || word == "ssmas" || conversion.namesItself;
}

void mustBeReadable(const std::string& word)
{
    const std::vector<std::string> words = outputWords();
    if (std::find(words.begin(), words.end(), word) == words.end()) {
        const std::string hint = word == "table" ? "; tavelin report takes track tables" : "";
        throw unknownFormat("input", formatTitle(word), hint);
    }
    const std::vector<std::string> readable = inputWords();
    if (std::find(readable.begin(), readable.end(), word) == readable.end()) {
        throw WrongUsage{writtenOnly(word)};
    }
}

std::string inputFormat(const Arguments& arguments, const std::string& readable, const std::string& name)
{
    std::string word = arguments.value("from");
    const Recognition recognition = recognisedFile(readable); // also to find out that there is a file
    if (word.empty()) {
        if (!recognition.isSure()) {
            throw WrongUsage{uncertainFormat(name, recognition)};
        }
        word = recognition.format;
    } else if (!isFormatName(word)) {
        throw unknownWord("format", word, inputWords());
    }
    mustBeReadable(word);
    return word;
}

std::string outputFormat(const Arguments& arguments, const std::string& path)
{
    if (arguments.has("to")) {
        return arguments.value("to");
    }
    const FormatSuffix* const row = arguments.has("autoname") ? nullptr : formatSuffixOf(path);
    if (row == nullptr) {
        const std::string suffix = fs::path(path).extension();
        throw unknownFormat("output", suffix, "; give it by --to, or by one of " + knownSuffixes());
    }
    return std::string(row->word);
}

std::string folderOf(const std::string& path)
{
    const std::string folder = fs::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

Conversion conversionOf(const Arguments& arguments, InputFiles& files)
{
    const std::vector<std::string>& operands = arguments.operands();
    if (operands.size() != 2) {
        throw wrongCall("convert", "takes two operands, IN and OUT");
    }
    Conversion conversion{operands[0], files.pathOf(operands[0]), {}, operands[1], {}};
    conversion.namesItself = arguments.has("autoname");
    if (conversion.namesItself) {
        conversion.output = folderWithoutSlash(conversion.output);
    }
    std::error_code ignored;
    if (fs::is_directory(conversion.output, ignored) != conversion.namesItself) {
        throw wrongValue("autoname", conversion.namesItself
                                         ? conversion.output + " is no folder"
                                         : "needed where OUT is a folder, as " + conversion.output + " is");
    }
    if (conversion.isPrinted() && arguments.has("json")) {
        throw wrongCall("convert", "the output and --json cannot both go to the standard output");
    }
    conversion.to = outputFormat(arguments, conversion.output);
    conversion.from = inputFormat(arguments, conversion.readable, conversion.input);
    return conversion;
}

// What a file says about its tracks.
class Stamps
{
public:
    explicit Stamps(const Conversion& theConversion) : conversion(theConversion)
    {
        const FormatWord* const row = formatWord(formatOpticMea_to_int(conversion.from));
        try {
            const NextTrack next = row->read(conversion.readable, "");
            for (tavelinUtils::TrackVtorichka track; next(track);) {
                ++count;
                add(telescope, track.telescope);
                add(originator, track.originator);
            }
        } catch (const std::exception&) {
            // A file that cannot be read says nothing. The check tells why.
        }
    }

    // The value of an option, else what the file says. Throws WrongUsage where it says two things and the
    // output would show one of them.
    std::string telescopeBy(const Arguments& arguments) const
    {
        return chosen(arguments, "telescope", telescope, showsTelescope(conversion));
    }

    std::string originatorBy(const Arguments& arguments) const
    {
        return chosen(arguments, "originator", originator, showsOriginator(conversion.to));
    }

private:
    struct Said
    {
        std::string first{};
        std::string other{}; // the first that differs
        std::size_t otherTrack = 0;
    };

    void add(Said& said, const std::string& word) const
    {
        if (count == 1) {
            said.first = word;
        } else if (said.otherTrack == 0 && word != said.first) {
            said.other = word;
            said.otherTrack = count;
        }
    }

    static std::string chosen(const Arguments& arguments, const char* option, const Said& said, bool isShown)
    {
        if (arguments.has(option)) {
            return arguments.value(option);
        }
        if (isShown && said.otherTrack != 0) {
            throw WrongUsage{finding("V421", {{"field", option},
                                              {"first", said.first},
                                              {"source", "track 1"},
                                              {"second", said.other},
                                              {"other", "track " + counted(said.otherTrack)},
                                              {"option", "--" + std::string(option)}})};
        }
        return said.first;
    }

    const Conversion& conversion;
    std::size_t count = 0;
    Said telescope{};
    Said originator{};
};

// The suffix of the file that is made, with its point.
std::string suffixOf(const Conversion& conversion)
{
    if (const FormatSuffix* const row = formatSuffixOf(conversion.output); row && !conversion.namesItself) {
        return std::string(row->suffix);
    }
    return usualSuffix(conversion.to);
}

NewTask taskOf(const Arguments& arguments, const Conversion& conversion)
{
    const Stamps stamps(conversion);
    NewTask task;
    task.set("path_in", conversion.input);
    task.set("out_dir", ".");
    task.set("outputextension", suffixOf(conversion));
    task.set("inputformat", conversion.from);
    task.set("outputformat", conversion.to);
    task.set("originator", stamps.originatorBy(arguments));
    task.set("REFERENCE_FRAME", arguments.value("frame", "ICRF"));
    task.set("PARTICIPANT_1", stamps.telescopeBy(arguments));
    task.set("autoname", conversion.namesItself ? "true" : "false");
    return task;
}

// The same task with the output in its place. A task names its output after its input, so that not each name
// can be asked of it.
NewTask taskToKeep(NewTask task, const Conversion& conversion)
{
    if (conversion.isPiped() || conversion.isPrinted()) {
        throw wrongValue("keep-task", "a task cannot name the standard input or output");
    }
    if (conversion.namesItself) {
        task.set("out_dir", conversion.output);
        task.set("path_res", conversion.output + "/result.xml");
        return task;
    }
    const std::string stem = tavelinUtils::ExtractOnlyFileName(conversion.input);
    const std::string name = fs::path(conversion.output).filename();
    if (!name.starts_with(stem)) {
        throw wrongValue("keep-task",
                         "a task names its output after its input, so OUT must begin with \"" + stem + '"');
    }
    const std::string folder = folderOf(conversion.output);
    const FormatSuffix* const row = formatSuffixOf(name);
    const std::string shortName = row == nullptr ? name : name.substr(0, name.size() - row->suffix.size());
    task.set("out_dir", folder);
    task.set("outputextension", name.substr(stem.size()));
    task.set("path_res", folder + '/' + shortName + ".result.xml");
    return task;
}

MadeTask madeTask(const Arguments& arguments, const Conversion& conversion)
{
    MadeTask made;
    made.task = taskOf(arguments, conversion);
    made.name = conversion.output;
    if (conversion.namesItself) {
        made.folder = conversion.output;
    } else {
        made.folder = conversion.isPrinted() ? "" : folderOf(conversion.output);
        made.file = conversion.output;
    }
    if (conversion.isPiped()) {
        made.copied = conversion.readable;
    } else {
        made.inputs.push_back(conversion.input);
    }
    made.replaces = arguments.has("force");
    if (!conversion.namesItself && !conversion.isPrinted()) {
        mustBeFree(conversion.output, made.replaces, made.inputs);
    }
    return made;
}

void keep(const Arguments& arguments, const Conversion& conversion, const MadeTask& made)
{
    const std::string path = arguments.value("keep-task");
    const NewTask task = taskToKeep(made.task, conversion);
    if (isSameFile(path, conversion.output)) {
        throw wrongValue("keep-task", path + " is OUT");
    }
    keepTask(task, path, made.replaces, made.inputs);
}

Json fileJson(const std::string& path, const std::string& format)
{
    Json object = Json::object();
    setBytes(object, "path", path);
    return object.set("format", format);
}

void showDocument(const Console& console, const Arguments& arguments, const Conversion& conversion,
                  const TaskOutcome& outcome, int status)
{
    JsonDocument document(console.out, "tavelin.convert/1");
    document.set("input", fileJson(conversion.input, conversion.from));
    document.set("output", fileJson(conversion.output, conversion.to));
    showMadeMembers(document, arguments.value("keep-task"), outcome, console.look.times);
    document.set("exit", status);
    document.finish();
}

int convert(const Arguments& arguments, const Console& console)
{
    const RunSettings settings = runSettings(arguments);
    InputFiles files;
    const Conversion conversion = conversionOf(arguments, files);
    const MadeTask made = madeTask(arguments, conversion);
    if (arguments.has("keep-task")) {
        keep(arguments, conversion, made);
    }
    const MadeOutcome result = runMade(made, settings, console);
    if (console.look.json) {
        showDocument(console, arguments, conversion, result.outcome, statusOf(result));
    } else {
        console.out << result.bytes;
        const Console messages{console.err, console.err, console.look};
        showMade(conversion.isPrinted() ? messages : console, result.outcome);
    }
    return endMade(result, console);
}

} // namespace

const Subcommand convertCommand{
    "convert",
    "IN OUT",
    "a measurement file in another format, without a task file",
    {"tavelin convert night.mea night.tdm", "tavelin convert --to mpc --autoname night.mea reports"},
    options,
    convert};

} // namespace companion
