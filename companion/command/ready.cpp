#include "command/finding_codes.h"
#include "command/ready_input.h"
#include "command/ready_marks.h"
#include "command/ready_names.h"
#include "command/ready_settings.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "reading/signatures.h"
#include "receivers/aavso_rules.h"

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
    {"max", 0, "N",
     "show at most so many places of each code; the others are counted. Default: all that is refused or "
     "named "
     "anew, 100 of the rest"},
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
        isCutByCall = arguments.has("max");
        if (receiver.format == std::string("aavso")) {
            expectAavso(arguments);
        }
    }

    const Receiver& receiver;
    std::string input{};
    std::string output;
    bool isDry;
    bool leavesOut;
    bool showsAddresses;
    std::size_t most = 0;     // places of each code
    bool isCutByCall = false; // also where they tell of what is refused

private:
    void expectAavso(const Arguments& arguments) const
    {
        const bool isNamedForUpload = output.empty() || output == standardInput || isAavsoFileName(output);
        if (!isNamedForUpload) {
            throw wrongCall("--output",
                            "\"" + output + "\" ends in none of .txt, .csv and .tsv, which the upload takes");
        }
        if (arguments.has("no-magnitudes")) {
            throw wrongCall("--no-magnitudes", "a report to the AAVSO is made of magnitudes");
        }
    }
};

// How it ended. What is in is out, refused or held back.
struct ReadyEnd
{
    std::string format{}; // of the input
    std::size_t marks = 0;
    std::size_t refused = 0;
    std::size_t heldBack = 0; // not written because of others, or of a fault of the whole
    bool isWritten = false;
    bool isRead = true;

    std::size_t out() const
    {
        return marks - refused - heldBack;
    }

    void holdBack()
    {
        heldBack = marks - refused;
    }
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
            if (isListed(each)) {
                kept.push_back(each);
            } else {
                ++cut[each.code];
            }
        }
    }

    // What was looked at.
    void tellRead(const ReadyInput& read, const SettledObservatories& settled) const
    {
        if (!console.look.verbose) {
            return;
        }
        std::ostream& err = console.err;
        err << "ready: read " << printable(call.input) << " as " << formatTitle(read.format) << ": "
            << counted(marksOf(read.copy), "mark") << ", " << counted(read.copy.tracks.size(), "track")
            << '\n';
        for (const std::string& file : read.copy.files) {
            if (file != call.input) {
                err << "ready: read " << printable(file) << '\n';
            }
        }
        for (std::size_t number = 0; number < read.copy.tracks.size(); ++number) {
            const CopyTrack& track = read.copy.tracks[number];
            const std::string& source = settled.sources[number];
            err << "ready: track " << printable(track.track.QRVName) << ": "
                << counted(track.marks.size(), "mark")
                << (source.empty() ? ", no station"
                                   : ", station " + printable(track.observatory->station) + " by " + source)
                << '\n';
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
    // All that is refused and each new name, unless the call says otherwise.
    bool isListed(const Finding& each)
    {
        const bool isWithinMost = ++counts[each.code] <= call.most;
        const bool isOfRecord = each.severity == Severity::error || each.code == FindingCode("V424");
        return isWithinMost || (isOfRecord && !call.isCutByCall);
    }

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
                                  .set("out", end.out())
                                  .set("refused", end.refused)
                                  .set("heldBack", end.heldBack));
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
        for (const auto& [code, count] : cut) {
            list.push(Json::object().set("code", code.text()).set("count", count));
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
        for (const auto& [code, count] : cut) {
            showMore(out, call.input, count, code);
        }
        for (const std::string& line : addressLines()) {
            out << line << '\n';
        }
        if (!call.input.empty()) {
            out << "ready: " << counted(end.marks, "mark") << " in, " << counted(end.out()) << " out, "
                << counted(end.refused) << " refused\n";
        }
    }

    const Console& console;
    const ReadyCall& call;
    std::ostream& out;
    std::vector<Finding> kept{};
    std::map<FindingCode, std::size_t> counts{};
    std::map<FindingCode, std::size_t> cut{}; // not listed
    FindingTotals totals{};
};

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
std::optional<Finding> obstacle(const ReadyCall& call, const Copy& copy, const ReadyEnd& end)
{
    if (end.refused > 0 && !call.leavesOut) {
        const std::string marks = counted(end.refused, "mark");
        return finding("V422", {{"marks", marks}}).in(call.input).times(end.refused);
    }
    if (auto fault = disagreement(copy.text, call.receiver.format, end.out())) {
        return std::move(*fault).in(call.input);
    }
    return std::nullopt;
}

// The files of the options are inputs too.
void addFilesOfOptions(const Arguments& arguments, CopyInput& input)
{
    for (const char* option : {"profile", "rename"}) {
        if (arguments.has(option)) {
            input.files.push_back(arguments.value(option));
        }
    }
}

// Makes the copy of what was read, and writes it where nothing is against it.
ReadyEnd makeCopy(const Arguments& arguments, const Console& console, const ReadyCall& call, ReadyInput& read,
                  Presentation& shown)
{
    CopyInput& input = read.copy;
    addFilesOfOptions(arguments, input);
    const NewNames names = renamed(arguments, input, shown);
    const SettledObservatories settled = settleObservatories(arguments, input, read.file);
    shown.tellRead(read, settled);
    shown.add(settled.contradictions);
    ReadyEnd end{read.format, marksOf(input)};
    if (!settled.contradictions.empty()) {
        end.refused = settled.refused + input.leftOut;
        end.holdBack();
        return end;
    }
    const Copy copy = call.receiver.copy(input.tracks, copySettings(arguments, read.file));
    end.refused = copy.refused + input.leftOut;
    shown.add(copy.reasons);
    shown.add(copy.mended);
    if (const auto found = obstacle(call, copy, end)) {
        shown.add({*found});
        end.holdBack();
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
    ReadyInput read = readyInput(arguments, call.input, files);
    shown.add(read.copy.findings);
    ReadyEnd end{read.format};
    end.isRead = read.isRead;
    return shown.finish(read.goesOn ? makeCopy(arguments, console, call, read, shown) : end);
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
