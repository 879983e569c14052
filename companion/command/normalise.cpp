#include "reading/normal_form.h"

#include "command/measurement_files.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "reading/account_text.h"
#include "reading/input_files.h"
#include "reading/signatures.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"output", 'o', "FILE", "where the copy goes; - is the standard output"},
    {"from", 0, "FORMAT", "the format of the file, instead of the one that its content shows"},
    {"time-system", 0, "UTC|TAI|GPS|TT", "the clock of a message that states none, or one of its own"},
    {"accept-frame", 0, nullptr, "take angles of any reference frame as they are"},
    {"apply-corrections", 0, nullptr, "add corrections that a message gives and has not applied"},
    {"magnitude", 0, "VALUE", "the magnitude of each mark of a message that has none"},
    {"force", 'f', nullptr, "replace a copy that exists"},
};

TrueSettings settingsOf(const Arguments& arguments)
{
    TrueSettings settings;
    settings.timeSystem = arguments.value("time-system");
    settings.acceptFrame = arguments.has("accept-frame");
    settings.applyCorrections = arguments.has("apply-corrections");
    if (arguments.has("magnitude")) {
        const std::string text = arguments.value("magnitude");
        double value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
            throw wrongCall("--magnitude", '"' + text + "\" is no number");
        }
        settings.magnitude = value;
    }
    return settings;
}

// A call: one file, and where its copy goes.
struct Call
{
    explicit Call(const Arguments& arguments)
        : input(arguments.operands().front()), output(arguments.value("output")),
          force(arguments.has("force"))
    {
        if (arguments.operands().size() > 1) {
            throw wrongCall("FILE", "only one is taken");
        }
        if (output.empty()) {
            throw wrongCall("--output", "is missing: the name of the copy");
        }
    }

    bool toStandardOutput() const
    {
        return output == standardOutput;
    }

    static constexpr const char* standardOutput = "-";
    std::string input;
    std::string output;
    bool force;
};

// The outcome of a call, as people and programs read it.
class Report
{
public:
    Report(const Call& ofCall, const Console& theConsole) : call(ofCall), console(theConsole)
    {
    }

    void add(Finding each)
    {
        const Finding found = std::move(each).in(call.input);
        totals.add(found);
        if (console.look.json) {
            list.push(findingJson(found));
        } else {
            showFinding(stream(), found);
        }
    }

    int finish(const std::string& format, const NormalForm& form, bool isWritten)
    {
        const int status = isWritten ? exitStatus(totals) : 1;
        console.look.json ? asJson(format, form, isWritten, status) : asText(form, isWritten);
        return status;
    }

private:
    // The copy has the standard output where it goes there.
    Console stream() const
    {
        return {call.toStandardOutput() ? console.err : console.out, console.err, console.look};
    }

    void asText(const NormalForm& form, bool isWritten) const
    {
        const char* const end = !isWritten ? "; nothing is written" : form.isChanged ? "" : "; unchanged";
        stream().out << printable(call.input) << ": " << counted(form.marks + form.leftOut, "mark") << " in, "
                     << counted(form.marks) << " out, " << counted(form.leftOut) << " left out; "
                     << briefTotals(totals) << end << '\n';
    }

    static Json pathJson(const std::string& path)
    {
        Json json = Json::object();
        setBytes(json, "file", path);
        return json;
    }

    void asJson(const std::string& format, const NormalForm& form, bool isWritten, int status) const
    {
        JsonDocument document(console.out, "tavelin.normalise/1");
        document.set("input", pathJson(call.input));
        document.set("output",
                     pathJson(call.output).set("written", isWritten).set("changed", form.isChanged));
        document.set("format", format.empty() ? Json() : Json(format));
        document.set("marks", Json::object()
                                  .set("in", form.marks + form.leftOut)
                                  .set("out", form.marks)
                                  .set("leftOut", form.leftOut));
        document.set("findings", list);
        document.set("totals", totalsJson(totals));
        document.set("exit", status);
        document.finish();
    }

    const Call& call;
    const Console& console;
    FindingTotals totals{};
    Json list = Json::list();
};

std::string formatOf(const Arguments& arguments, const std::string& name, const std::string& path,
                     Report& report)
{
    std::string format = givenFormat(arguments, "from");
    if (format.empty()) {
        const Recognition recognition = recognisedFile(path);
        if (!recognition.isSure()) {
            report.add(uncertainFormat(name, recognition));
            return "";
        }
        format = recognition.format;
    }
    if (!hasNormalForm(format)) {
        throw wrongCall("FILE",
                        name + " is no file of measurements, but of the format " + formatTitle(format));
    }
    return format;
}

// Where the copy goes.
class CopyOutput
{
public:
    CopyOutput(const Call& call, const Console& theConsole) : console(theConsole)
    {
        if (!call.toStandardOutput()) {
            file.emplace(call.output, call.force, std::vector<std::string>{call.input});
        }
    }

    void write(const std::string& text)
    {
        if (!file) {
            console.out << text;
            return;
        }
        file->write(text);
        file->commit();
    }

private:
    const Console& console;
    std::optional<SafeFile> file{};
};

// Reads and writes a file of a known format.
int makeCopy(const std::string& path, const std::string& format, const TrueSettings& settings,
             CopyOutput& output, Report& report)
{
    NormalForm form = normalFormOf(path, format, settings);
    for (Finding& each : form.findings) {
        report.add(std::move(each));
    }
    const bool isWritten = !form.isRefused && (form.marks > 0 || form.leftOut == 0);
    if (isWritten) {
        output.write(form.text);
    }
    return report.finish(format, form, isWritten);
}

int normalise(const Arguments& arguments, const Console& console)
{
    const Call call(arguments);
    const TrueSettings settings = settingsOf(arguments);
    if (call.toStandardOutput() && console.look.json) {
        throw wrongCall("--json", "the copy has the standard output");
    }
    InputFiles files;
    const std::string path = files.pathOf(call.input);
    Report report(call, console);
    const std::string format = formatOf(arguments, call.input, path, report);
    if (format.empty()) {
        return report.finish(format, {}, false);
    }
    CopyOutput output(call, console); // before the reading: one that cannot be made is told at once
    return makeCopy(path, format, settings, output, report);
}

} // namespace

const Subcommand normaliseCommand{
    "normalise",
    "FILE",
    "a file of another maker in the form that the tool reads right",
    {"tavelin normalise message.kvn -o night.tdm", "tavelin normalise night.mea -o signed.mea"},
    options,
    normalise};

} // namespace companion
