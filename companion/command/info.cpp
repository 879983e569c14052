#include "command/measurement_files.h"
#include "command/subcommands.h"
#include "out/json.h"
#include "out/text.h"
#include "reading/account_text.h"
#include "reading/file_info.h"
#include "reading/input_files.h"
#include "reading/signatures.h"

#include <algorithm>
#include <optional>
#include <ostream>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"as", 0, "FORMAT", "the format of the files, instead of the one that their content shows"},
    {"tracks", 0, nullptr, "a line for each track"},
    {"table", 0, nullptr, "a line for each file"},
    {"get", 0, "KEY", "only the value of this key, a line for each file"},
    {"strict", 0, nullptr, "skipped lines count as errors for the exit status"},
};

// A key: its name, its value as JSON and as text.
struct InfoKey
{
    const char* name;
    Json (*json)(const FileInfo& info);
    std::string (*text)(const FileInfo& info);
    const char* label; ///< before the text; a null pointer for keys that the text of a file leaves out
};

Json listOf(const std::set<std::string>& texts)
{
    Json list = Json::list();
    for (const std::string& each : texts) {
        list.push(each);
    }
    return list;
}

Json orNull(const std::string& text)
{
    return text.empty() ? Json() : Json(text);
}

Json passedJson(const FileInfo& info)
{
    Json list = Json::list();
    for (const PassedLines& each : info.passed) {
        list.push(Json::object().set("code", each.code).set("count", each.count).set("line", each.firstLine));
    }
    return list;
}

std::string passedText(const FileInfo& info)
{
    std::string text;
    for (const PassedLines& each : info.passed) {
        text += (text.empty() ? "" : ", ") + each.code + ": " + counted(each.count, "line") + " from line " +
                counted(each.firstLine) + " on";
    }
    return text;
}

Json magnitudesJson(const FileInfo& info)
{
    return info.hasMagnitudes ? Json::list().push(info.brightest).push(info.faintest) : Json();
}

std::string magnitudesText(const FileInfo& info)
{
    return info.hasMagnitudes ? magnitudeText(info.brightest) + " to " + magnitudeText(info.faintest) : "";
}

// "131: 1 head, 130 marks, 0 skipped".
std::string fatesText(const FileInfo& info)
{
    const std::string text = accountText(info.account);
    return counted(info.account.lines) + text.substr(text.find(':'));
}

// In the order of the document. The text of a file shows those with a label that have a value.
const InfoKey keys[] = {
    {"format", [](const FileInfo& info) { return orNull(info.format); },
     [](const FileInfo& info) { return info.format; }, nullptr},
    {"confidence", [](const FileInfo& info) { return Json(info.confidence); },
     [](const FileInfo& info) { return std::to_string(info.confidence); }, nullptr},
    {"site", [](const FileInfo& info) { return orNull(info.site); },
     [](const FileInfo& info) { return info.site; }, "site"},
    {"originator", [](const FileInfo& info) { return orNull(info.originator); },
     [](const FileInfo& info) { return info.originator; }, "originator"},
    {"stations", [](const FileInfo& info) { return listOf(info.stations); },
     [](const FileInfo& info) { return joined(info.stations, ", "); }, "stations"},
    {"tracks", [](const FileInfo& info) { return Json(info.account.tracks); },
     [](const FileInfo& info) { return counted(info.account.tracks); }, "tracks"},
    {"marks", [](const FileInfo& info) { return Json(info.account.marksRead); },
     [](const FileInfo& info) { return counted(info.account.marksRead); }, "marks"},
    {"first", [](const FileInfo& info) { return orNull(info.first); },
     [](const FileInfo& info) { return info.first; }, nullptr},
    {"last", [](const FileInfo& info) { return orNull(info.last); },
     [](const FileInfo& info) { return info.last; }, nullptr},
    {"magnitudes", magnitudesJson, magnitudesText, "magnitude"},
    {"filters", [](const FileInfo& info) { return listOf(info.filters); },
     [](const FileInfo& info) { return joined(info.filters, ", "); }, "filters"},
    {"frames", [](const FileInfo& info) { return listOf(info.frames); },
     [](const FileInfo& info) { return joined(info.frames, ", "); }, "frames"},
    {"lines", [](const FileInfo& info) { return accountJson(info.account); },
     [](const FileInfo& info) { return fatesText(info); }, nullptr},
    {"passed", passedJson, passedText, "skipped"},
    {"bytes", [](const FileInfo& info) { return Json(info.bytes); },
     [](const FileInfo& info) { return std::to_string(info.bytes); }, nullptr},
    {"encoding", [](const FileInfo& info) { return Json(info.form.encoding); },
     [](const FileInfo& info) { return info.form.encoding; }, nullptr},
    {"line_ends", [](const FileInfo& info) { return Json(info.form.lineEnds); },
     [](const FileInfo& info) { return info.form.lineEnds; }, nullptr},
    {"sorted", [](const FileInfo& info) { return Json(info.isSorted); },
     [](const FileInfo& info) { return std::string(info.isSorted ? "true" : "false"); }, nullptr},
};

const InfoKey& keyNamed(const std::string& name)
{
    std::vector<std::string> names;
    for (const InfoKey& key : keys) {
        if (key.name == name) {
            return key;
        }
        names.emplace_back(key.name);
    }
    const std::string near = nearestWord(name, names);
    const std::string question = near.empty() ? "" : "; did you mean \"" + near + "\"?";
    throw WrongUsage{finding("V002", {{"kind", "key"}, {"word", name}, {"question", question}})};
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string paddedLeft(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

constexpr std::size_t labelWidth = 12;

void showLabelled(std::ostream& out, const std::string& label, const std::string& text)
{
    if (!text.empty()) {
        out << "  " << padded(label, labelWidth) << printable(text) << '\n';
    }
}

void showWhole(std::ostream& out, const FileInfo& info, bool isVerbose)
{
    out << printable(info.path) << ": " << formatTitle(info.format) << '\n';
    const bool hasMarks = info.account.marksRead > 0;
    for (const InfoKey& key : keys) {
        const std::string name = key.name;
        const bool isCount = name == "tracks" || name == "marks";
        if (key.label != nullptr && (!isCount || hasMarks || hasTracks(info.format))) {
            showLabelled(out, key.label, key.text(info));
        }
        if (name == "marks" && !info.first.empty()) {
            showLabelled(out, "time", info.first + " to " + info.last);
        }
    }
    showLabelled(out, "lines", fatesText(info));
    if (isVerbose || info.form.encoding != "ASCII" || info.form.lineEnds != "LF") {
        showLabelled(out, "bytes",
                     counted(info.bytes) + ", " + info.form.encoding + ", line ends " + info.form.lineEnds);
    }
}

constexpr std::size_t timeWidth = 23;

void showTracks(std::ostream& out, const FileInfo& info)
{
    std::size_t width = std::string_view("object").size();
    for (const TrackInfo& track : info.tracks) {
        width = std::max(width, printable(track.object).size());
    }
    out << "  " << padded("object", width) << "    marks  " << padded("first", timeWidth) << "  "
        << padded("last", timeWidth) << "  mean mag  arcsec/min\n";
    for (const TrackInfo& track : info.tracks) {
        out << "  " << padded(printable(track.object), width) << paddedLeft(counted(track.marks), 9) << "  "
            << padded(track.first, timeWidth) << "  " << padded(track.last, timeWidth)
            << paddedLeft(track.hasMagnitude ? magnitudeText(track.magnitude) : "", 10)
            << paddedLeft(track.hasMotion ? motionText(track.motion) : "", 12) << '\n';
    }
}

Json trackJson(const TrackInfo& track)
{
    Json object = Json::object();
    setBytes(object, "object", track.object);
    return object.set("marks", track.marks)
        .set("first", orNull(track.first))
        .set("last", orNull(track.last))
        .set("magnitude", track.hasMagnitude ? Json(track.magnitude) : Json())
        .set("motion", track.hasMotion ? Json(track.motion) : Json());
}

// The path of a file. Its bytes, where it is not UTF-8, stand in an object of their own: "bytes" is the size
// of the file.
void setPath(Json& file, const std::string& path)
{
    file.set("file", path);
    if (!isUtf8(path)) {
        file.set("path", Json::object().set("bytes", hexadecimal(path)));
    }
}

// Shows files one after the other.
class Presentation
{
public:
    Presentation(const Arguments& arguments, const Console& theConsole)
        : console(theConsole), withTracks(arguments.has("tracks")), asTable(arguments.has("table"))
    {
        if (arguments.has("get")) {
            key = &keyNamed(arguments.value("get"));
        }
        if (console.look.json) {
            document.emplace(console.out, "tavelin.info/1");
            document->openList("files");
        } else if (asTable && key == nullptr) {
            console.out << "format         tracks      marks  " << padded("first", timeWidth) << "  "
                        << padded("last", timeWidth) << "  file\n";
        }
    }

    void add(const FileInfo& info)
    {
        if (document) {
            document->element(json(info));
        } else if (key != nullptr) {
            console.out << printable(key->text(info)) << '\n';
        } else if (asTable) {
            console.out << padded(info.format, 13) << paddedLeft(counted(info.account.tracks), 8)
                        << paddedLeft(counted(info.account.marksRead), 11) << "  "
                        << padded(info.first, timeWidth) << "  " << padded(info.last, timeWidth) << "  "
                        << printable(info.path) << '\n';
        } else {
            showWhole(console.out, info, console.look.verbose);
            if (withTracks) {
                showTracks(console.out, info);
            }
        }
    }

    void addUncertain(const Finding& found)
    {
        if (document) {
            Json file = Json::object();
            setPath(file, found.file);
            document->element(file.set("format", Json()).set("problem", found.text));
        } else {
            showFinding(console, found);
        }
    }

    int finish(int status)
    {
        if (document) {
            document->closeList();
            document->set("exit", status);
            document->finish();
        }
        return status;
    }

    bool wantsTracks() const
    {
        return withTracks;
    }

private:
    Json json(const FileInfo& info) const
    {
        Json file = Json::object();
        setPath(file, info.path);
        for (const InfoKey& each : keys) {
            if (key == nullptr || key == &each) {
                file.set(each.name, each.json(info));
            }
        }
        if (withTracks) {
            Json list = Json::list();
            for (const TrackInfo& track : info.tracks) {
                list.push(trackJson(track));
            }
            file.set("track_list", list);
        }
        return file;
    }

    const Console& console;
    bool withTracks;
    bool asTable;
    const InfoKey* key = nullptr;
    std::optional<JsonDocument> document{};
};

// Shows a file that is read from a path; gives the exit status.
int showOne(const std::string& name, const std::string& path, const Arguments& arguments, Presentation& shown)
{
    Recognition recognition{givenFormat(arguments), 100, "", 0};
    if (recognition.format.empty()) {
        recognition = recognisedFile(path);
    }
    if (!recognition.isSure()) {
        shown.addUncertain(uncertainFormat(name, recognition));
        return 1;
    }
    FileInfo info = fileInfo(path, recognition.format, recognition.points, shown.wantsTracks());
    info.path = name;
    shown.add(info);
    const std::size_t skipped = info.account.passed + info.account.lost + info.account.refused;
    return arguments.has("strict") && skipped > 0 ? 1 : 0;
}

int info(const Arguments& arguments, const Console& console)
{
    givenFormat(arguments); // a wrong word is told before anything else
    Presentation shown(arguments, console);
    InputFiles files;
    int status = 0;
    for (const std::string& name : arguments.operands()) {
        try {
            status = std::max(status, showOne(name, files.pathOf(name), arguments, shown));
        } catch (const WrongUsage& usage) {
            status = 2;
            console.err << "tavelin: " << printable(usage.why.text) << " [" << usage.why.code.text() << "]\n";
        }
    }
    return shown.finish(status);
}

} // namespace

const Subcommand infoCommand{"info",
                             "FILE...",
                             "what is in a measurement file",
                             {"tavelin info night.mea", "tavelin info --get marks *.tdm"},
                             options,
                             info};

} // namespace companion
