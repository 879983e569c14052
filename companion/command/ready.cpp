#include "base/tokens.h"
#include "command/finding_codes.h"
#include "command/measurement_files.h"
#include "command/ready_names.h"
#include "command/ready_settings.h"
#include "command/subcommands.h"
#include "out/characters.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "reading/input_files.h"
#include "receivers/aavso_rules.h"
#include "running/counting.h"
#include "task/checked_task.h"

#include <algorithm>
#include <map>
#include <optional>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"for", 0, "mpc|ccsds|ccsds.xml|aavso|ades|ades.psv", "the receiver, and the form of the copy"},
    {"output", 'o', "FILE", "the copy; - for standard output, findings then go to standard error"},
    {"force", 'f', nullptr, "replace a file that exists"},
    {"as", 0, "FORMAT", "the format of the input, instead of the one that its content shows"},
    {"profile", 0, "FILE", "what the observatory says in each report, as JSON"},
    {"station", 0, "CODE", "the station, whatever input and profile say"},
    {"observer", 0, "CODE", "the code of the observer at the AAVSO"},
    {"band", 0, "LETTER", "the band of magnitudes whose band is not known"},
    {"magnitude", 0, "ensemble|apparent|instrumental", "the magnitude of a report to the AAVSO"},
    {"no-magnitudes", 0, nullptr, "leave magnitudes and bands out"},
    {"zero-is-a-magnitude", 0, nullptr, "a magnitude of 0 is measured, and not unknown"},
    {"numbers", 0, nullptr, "names of five digits are numbers of minor planets"},
    {"allow-artificial", 0, nullptr, "the receiver takes artificial satellites by arrangement"},
    {"rename", 0, "FILE", "other names: a line for each, old and new"},
    {"new-names", 0, "BASE", "name unidentified objects BASE and a number; the list goes to FILE.names"},
    {"time-decimals", 0, "5|6", "decimals of the day in 80 columns; default 5"},
    {"ra-decimals", 0, "2|3", "decimals of right ascension in 80 columns; default: those of the input"},
    {"dec-decimals", 0, "1|2", "decimals of declination in 80 columns; default: those of the input"},
    {"creation-date", 0, "TIME", "of a message; default: SOURCE_DATE_EPOCH, or now"},
    {"leave-out", 0, nullptr, "write the copy without the marks that are refused"},
    {"dry-run", 0, nullptr, "write nothing"},
    {"how-to-send", 0, nullptr, "also show how the receiver takes files; nothing is sent"},
    mostPlacesRow,
};

// What the options say about input and output.
struct ReadyCall
{
    explicit ReadyCall(const Arguments& arguments)
        : receiver(receiverNamed(arguments.value("for"))), output(arguments.value("output")),
          isDry(arguments.has("dry-run")), leavesOut(arguments.has("leave-out")),
          showsAddresses(arguments.has("how-to-send"))
    {
        if (arguments.operands().size() > 1) {
            throw wrongCall("ready", "takes one input, not \"" + arguments.operands()[1] + "\" too");
        }
        if (!arguments.operands().empty()) {
            input = arguments.operands().front();
        } else if (!showsAddresses) {
            throw wrongCall("ready", "INPUT is missing");
        }
        if (output.empty() && !isDry && !input.empty()) {
            throw wrongCall("--output", "is missing: the name of the copy");
        }
        most = mostPlaces(arguments);
        const bool isNamedForUpload = output.empty() || output == standardInput || isAavsoFileName(output);
        if (receiver.format == std::string("aavso") && !isNamedForUpload) {
            throw wrongCall("--output",
                            "\"" + output + "\" ends in none of .txt, .csv and .tsv, which the upload takes");
        }
    }

    const Receiver& receiver;
    std::string input{};
    std::string output;
    bool isDry;
    bool leavesOut;
    bool showsAddresses;
    std::size_t most = 0; // places of each code
};

// How it ended.
struct ReadyEnd
{
    std::string format{}; ///< of the input
    std::size_t marks = 0;
    std::size_t refused = 0; ///< with those that are not written because others are refused
    bool isWritten = false;
    bool isRead = true;
};

// Shows what is found, and the totals.
class Presentation
{
public:
    Presentation(const Console& theConsole, const ReadyCall& theCall)
        : console(theConsole), call(theCall),
          out(theCall.output == standardInput && !theCall.isDry ? theConsole.err : theConsole.out)
    {
        if (console.look.json && &out == &console.err) {
            throw wrongCall("--json", "the copy itself goes to standard output");
        }
    }

    // Shown at the end: a copy that cannot be written has a message alone.
    void add(const std::vector<Finding>& findings)
    {
        for (const Finding& each : findings) {
            totals.add(each);
            if (++counts[each.code] <= call.most) {
                kept.push_back(each);
            }
        }
    }

    int finish(const ReadyEnd& end)
    {
        const int status = end.isRead ? exitStatus(totals) : 2;
        if (console.look.json) {
            showJson(end, status);
            return status;
        }
        for (Finding& each : kept) {
            if (each.line > 0) {
                each.places.clear(); // the line tells where it is
            }
            showFinding({out, console.err, console.look}, each);
        }
        showRest(end);
        return status;
    }

private:
    void showJson(const ReadyEnd& end, int status) const
    {
        JsonDocument document(out, "tavelin.ready/1");
        document.openList("findings");
        for (const Finding& each : kept) {
            document.element(findingJson(each));
        }
        document.closeList();
        document.set("more", more());
        document.set("input", textOrNull(call.input));
        document.set("format", textOrNull(end.format));
        document.set("receiver", call.receiver.word);
        document.set("output", textOrNull(end.isWritten ? call.output : ""));
        document.set("marks", Json::object()
                                  .set("in", end.marks)
                                  .set("out", end.marks - end.refused)
                                  .set("refused", end.refused));
        document.set("howToSend", addresses());
        document.set("totals", totalsJson(totals));
        document.set("exit", status);
        document.finish();
    }

    static Json textOrNull(const std::string& text)
    {
        return text.empty() ? Json() : Json(text);
    }

    Json more() const
    {
        Json list = Json::list();
        for (const auto& [code, count] : counts) {
            if (count > call.most) {
                list.push(Json::object().set("code", code.text()).set("count", count - call.most));
            }
        }
        return list;
    }

    Json addresses() const
    {
        Json list = Json::list();
        for (const std::string& line : addressLines()) {
            list.push(line);
        }
        return list;
    }

    std::vector<std::string> addressLines() const
    {
        std::vector<std::string> lines;
        for (const char* row : call.receiver.howToSend) {
            std::string line = row;
            const std::size_t place = line.find("FILE");
            if (!call.output.empty() && call.output != standardInput) {
                line.replace(place, 4, call.output);
            }
            if (call.showsAddresses) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    void showRest(const ReadyEnd& end) const
    {
        for (const auto& [code, count] : counts) {
            if (count > call.most) {
                out << printable(call.input) << ": " << counted(count - call.most) << " more of "
                    << code.text() << '\n';
            }
        }
        for (const std::string& line : addressLines()) {
            out << line << '\n';
        }
        if (!call.input.empty()) {
            out << "ready: " << counted(end.marks, "mark") << " in, " << counted(end.marks - end.refused)
                << " out, " << counted(end.refused) << " refused\n";
        }
    }

    const Console& console;
    const ReadyCall& call;
    std::ostream& out;
    std::vector<Finding> kept{};
    std::map<FindingCode, std::size_t> counts{};
    FindingTotals totals{};
};

// The input's tracks; what cannot be read is told.
struct ReadInputTracks
{
    std::string format{};
    CopyInput input{};
    bool goesOn = true;
    bool isRead = true;
};

ReadInputTracks taskTracks(const std::string& path, Presentation& shown)
{
    ReadInputTracks read;
    read.format = "task";
    CheckSettings settings;
    settings.quick = true;
    TaskChecker checker(settings);
    const CheckedTask checked = checker.check(path);
    if (checked.isLoaded) {
        read.input = copyTracksOfTask(checked);
        return read;
    }
    shown.add(checked.findings);
    read.goesOn = false;
    read.isRead = false;
    return read;
}

ReadInputTracks tracksOf(const Arguments& arguments, const std::string& name, InputFiles& files,
                         Presentation& shown)
{
    ReadInputTracks read;
    read.format = givenFormat(arguments);
    const std::string path = files.pathOf(name);
    if (read.format.empty()) {
        const Recognition recognition = recognisedFile(path);
        if (!recognition.isSure()) {
            shown.add({uncertainFormat(name, recognition)});
            read.goesOn = false;
            return read;
        }
        read.format = recognition.format;
    }
    if (read.format == "task") {
        return taskTracks(path, shown);
    }
    read.input = copyTracksOfFile(path, read.format, name);
    return read;
}

std::size_t marksOf(const CopyInput& input)
{
    std::size_t marks = input.leftOut;
    for (const CopyTrack& track : input.tracks) {
        marks += track.marks.size();
    }
    return marks;
}

// Observations in 80 columns: the date is in columns 16 to 25, and a point follows it.
std::size_t observationsIn(const std::string& text)
{
    constexpr std::size_t length = 80;
    constexpr std::size_t date = 15;
    constexpr std::string_view form = "dddd dd dd.";
    std::size_t count = 0;
    tavelinUtils::forEachToken(text, '\n', [&](std::string_view line) {
        bool isObservation = line.size() == length;
        for (std::size_t i = 0; isObservation && i < form.size(); ++i) {
            const char c = line[date + i];
            isObservation = form[i] == 'd' ? isDigit(c) : c == form[i];
        }
        count += isObservation ? 1U : 0U;
    });
    return count;
}

std::size_t timesIn(const std::string& text, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

// How many marks a copy holds, by its text.
std::size_t marksIn(const std::string& text, const std::string& format)
{
    if (format == "tdm" || format == "tdm.xml") {
        return timesIn(text, format == "tdm" ? "\nANGLE_1 = " : "<ANGLE_1>");
    }
    if (format == "ades.xml" || format == "ades.psv") {
        return timesIn(text, format == "ades.xml" ? "<optical>" : "Z|");
    }
    return format == "mpc" ? observationsIn(text) : heldMarksOf(text, format)->marks;
}

std::string linesOf(const NewNames& names)
{
    std::string text;
    for (const auto& [old, now] : names) {
        text.append(old).append("\t").append(now).append("\n");
    }
    return text;
}

// Renames as the options say; gives the list of made names.
NewNames renamed(const Arguments& arguments, CopyInput& input, Presentation& shown)
{
    const std::string& name = arguments.operands().front();
    if (arguments.has("rename")) {
        shown.add(rename(input, namesOfFile(arguments.value("rename")), name));
    }
    if (!arguments.has("new-names")) {
        return {};
    }
    NewNames names = newNames(input, arguments.value("new-names"));
    shown.add(rename(input, names, name));
    return names;
}

// What is written: the copy of an input, and the list of made names.
struct MadeCopy
{
    const CopyInput& input;
    const Copy& copy;
    const NewNames& names;
};

// Both files, or none.
void write(const Arguments& arguments, const Console& console, const ReadyCall& call, const MadeCopy& made)
{
    if (call.output == standardInput) {
        console.out << made.copy.text;
        return;
    }
    const bool isForced = arguments.has("force");
    SafeFile file(call.output, isForced, made.input.files);
    file.write(made.copy.text);
    if (!made.names.empty()) {
        SafeFile list(call.output + ".names", isForced, made.input.files);
        list.write(linesOf(made.names));
        list.commit();
    }
    file.commit();
}

// What is against writing a copy; nothing where it may be written.
std::optional<Finding> obstacle(const ReadyCall& call, const Copy& copy, ReadyEnd& end)
{
    if (end.refused > 0 && !call.leavesOut) {
        const std::string marks = counted(end.refused, "mark");
        return finding("V422", {{"marks", marks}}).in(call.input).times(end.refused);
    }
    if (marksIn(copy.text, call.receiver.format) != end.marks - end.refused) {
        end.refused = end.marks;
        return finding("V490", {{"sum", "the marks of the input and of the copy"}}).in(call.input);
    }
    return std::nullopt;
}

// Makes the copy of what was read, and writes it where nothing is against it.
ReadyEnd makeCopy(const Arguments& arguments, const Console& console, const ReadyCall& call,
                  ReadInputTracks& read, Presentation& shown)
{
    CopyInput& input = read.input;
    shown.add(input.findings);
    const NewNames names = renamed(arguments, input, shown);
    const std::vector<Finding> contradictions = settleObservatories(arguments, input, call.input);
    shown.add(contradictions);
    const std::size_t marks = marksOf(input);
    ReadyEnd end{read.format, marks, marks, false, true};
    if (!contradictions.empty()) {
        return end;
    }
    const Copy copy = call.receiver.copy(input.tracks, copySettings(arguments, call.input));
    end.refused = copy.refused + input.leftOut;
    shown.add(copy.reasons);
    shown.add(copy.mended);
    if (const auto found = obstacle(call, copy, end)) {
        shown.add({*found});
        return end;
    }
    end.isWritten = !call.isDry && !copy.text.empty();
    if (end.isWritten) {
        write(arguments, console, call, {input, copy, names});
    }
    return end;
}

int ready(const Arguments& arguments, const Console& console)
{
    const ReadyCall call(arguments);
    Presentation shown(console, call);
    if (call.input.empty()) {
        return shown.finish({});
    }
    InputFiles files;
    ReadInputTracks read = tracksOf(arguments, call.input, files, shown);
    return shown.finish(read.goesOn ? makeCopy(arguments, console, call, read, shown)
                                    : ReadyEnd{read.format, 0, 0, false, read.isRead});
}

} // namespace

const Subcommand readyCommand{"ready",
                              "[INPUT]",
                              "a copy of a file, or of what a task would write, that a receiver takes",
                              {"tavelin ready night.mea --for mpc --profile k88.json -o night.txt",
                               "tavelin ready report.xml --for ades --profile k88.json -o night.xml"},
                              options,
                              ready};

} // namespace companion
