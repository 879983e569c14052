#include "reading/lint.h"

#include "command/finding_codes.h"
#include "command/measurement_files.h"
#include "command/shown_line.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "reading/account_text.h"
#include "reading/input_files.h"
#include "reading/schema_validation.h"
#include "reading/signatures.h"

#include <algorithm>
#include <map>
#include <optional>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"as", 0, "FORMAT", "the format of the files, instead of the one that their content shows"},
    {"for", 0, "mpc|ccsds|aavso|ades", "look at the rules of this receiver"},
    {"layer", 0, "reader|person|receiver", "look at this layer alone; may be given again for another"},
    {"schema", 0, "XSD", "validate XML files against this schema too"},
    mostPlacesRow,
};

// What the options say.
struct Wishes
{
    explicit Wishes(const Arguments& arguments)
        : format(givenFormat(arguments)), receiver(arguments.value("for")), layers(arguments.values("layer")),
          most(mostPlaces(arguments))
    {
    }

    LintSettings settingsFor(const std::string& fileFormat) const
    {
        LintSettings settings;
        settings.reader = looksAt("reader");
        settings.person = looksAt("person");
        if (looksAt("receiver")) {
            settings.receiver = receiver.empty() ? ownReceiver(fileFormat) : receiver;
        }
        return settings;
    }

    std::string format;
    std::string receiver;
    std::vector<std::string> layers;
    std::size_t most;

private:
    bool looksAt(const std::string& layer) const
    {
        return layers.empty() || std::find(layers.begin(), layers.end(), layer) != layers.end();
    }
};

// Shows the findings of files as they are found, and their totals.
class Presentation
{
public:
    Presentation(const Console& theConsole, std::size_t mostOfACode) : console(theConsole), most(mostOfACode)
    {
        if (console.look.json) {
            document.emplace(console.out, "tavelin.lint/1");
            document->openList("findings");
        }
    }

    void add(const Finding& found)
    {
        totals.add(found);
        if (++counts[found.code] > most) {
            return;
        }
        if (document) {
            document->element(findingJson(found));
            return;
        }
        showFinding(console, found);
        const bool isShown = !console.look.quiet || found.severity == Severity::error;
        if (isShown && !found.places.empty()) {
            console.out << shownLine(found.places.front());
        }
    }

    void endFile(const std::string& path, const std::string& format, const FileAccount& account)
    {
        Json more = Json::list();
        for (const auto& [code, count] : counts) {
            if (count > most) {
                more.push(Json::object().set("code", code.text()).set("count", count - most));
                if (!document) {
                    showMore(console.out, path, count - most, code);
                }
            }
        }
        if (document) {
            Json file = Json::object();
            setBytes(file, "file", path);
            file.set("format", format.empty() ? Json() : Json(format));
            file.set("lines", accountJson(account)).set("more", more).set("totals", totalsJson(totals));
            files.push_back(file);
        } else {
            console.out << printable(path) << ": " << (format.empty() ? "" : accountText(account) + "; ")
                        << briefTotals(totals) << '\n';
        }
        allTotals.add(totals);
        totals = {};
        counts.clear();
        ++fileCount;
    }

    int finish(bool isAllReadable)
    {
        const int status = isAllReadable ? exitStatus(allTotals) : 2;
        if (document) {
            document->closeList();
            document->openList("files");
            for (const Json& file : files) {
                document->element(file);
            }
            document->closeList();
            document->set("totals", totalsJson(allTotals));
            document->set("exit", status);
            document->finish();
        } else if (fileCount > 1) {
            console.out << counted(fileCount, "file") << ": " << briefTotals(allTotals) << '\n';
        }
        return status;
    }

private:
    const Console& console;
    std::size_t most;
    std::optional<JsonDocument> document{};
    std::vector<Json> files{};
    std::map<FindingCode, std::size_t> counts{}; // of the file
    FindingTotals totals{};                      // of the file
    FindingTotals allTotals{};
    std::size_t fileCount = 0;
};

// Looks at a file that is read from a path.
void lintOne(const std::string& name, const std::string& path, const Wishes& wishes, const XmlSchema* schema,
             Presentation& shown)
{
    std::string format = wishes.format;
    if (format.empty()) {
        const Recognition recognition = recognisedFile(path);
        if (!recognition.isSure()) {
            shown.add(uncertainFormat(name, recognition));
            shown.endFile(name, "", {});
            return;
        }
        format = recognition.format;
    }
    const auto found = [&shown, &name](Finding each) { shown.add(std::move(each).in(name)); };
    const FileAccount account = lintFile(path, format, wishes.settingsFor(format), found);
    if (schema != nullptr) {
        schema->validate(path, found);
    }
    shown.endFile(name, format, account);
}

int lint(const Arguments& arguments, const Console& console)
{
    const Wishes wishes(arguments);
    std::optional<XmlSchema> schema;
    if (arguments.has("schema")) {
        schema.emplace(arguments.value("schema"));
    }
    Presentation shown(console, wishes.most);
    bool isAllReadable = true;
    InputFiles files;
    for (const std::string& name : arguments.operands()) {
        try {
            lintOne(name, files.pathOf(name), wishes, schema ? &*schema : nullptr, shown);
        } catch (const WrongUsage& usage) {
            isAllReadable = false;
            console.err << "tavelin: " << printable(usage.why.text) << " [" << usage.why.code.text() << "]\n";
        }
    }
    return shown.finish(isAllReadable);
}

} // namespace

const Subcommand lintCommand{"lint",
                             "FILE...",
                             "each line that a reader skips or misreads, and what a receiver would refuse",
                             {"tavelin lint night.mea", "tavelin lint --for mpc report.txt"},
                             options,
                             lint};

} // namespace companion
