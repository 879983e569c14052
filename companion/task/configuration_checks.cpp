#include "task/configuration_checks.h"

#include "base/tokens.h"
#include "config/configuration_keys.h"
#include "config/user_configuration.h"
#include "config/xml_document.h"
#include "out/text.h"
#include "task/task_checks.h"
#include "works.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>

using namespace tavelinUtils;

namespace companion {
namespace {

namespace fs = std::filesystem;

// The search.

// The root folder and those in it are too high up: a search below them may go through the whole machine.
bool mayBeSearched(const std::string& folder)
{
    constexpr std::ptrdiff_t fewestParts = 2;
    std::error_code failure;
    const fs::path whole = fs::weakly_canonical(fs::absolute(folder, failure), failure);
    const fs::path parts = (whole.has_filename() ? whole : whole.parent_path()).relative_path();
    return !failure && std::distance(parts.begin(), parts.end()) >= fewestParts;
}

struct CloseFolder
{
    void operator()(DIR* folder) const
    {
        closedir(folder);
    }
};

bool tellsKindsOfEntries(const std::string& folder)
{
    const std::unique_ptr<DIR, CloseFolder> stream(opendir(folder.c_str()));
    const dirent* entry = stream == nullptr ? nullptr : readdir(stream.get());
    while (entry != nullptr && entry->d_type != DT_UNKNOWN) {
        entry = readdir(stream.get());
    }
    return entry == nullptr;
}

// Lists with empty items.

bool hasEmptyItem(TiXmlElement* parent, const std::string& list, const std::string& item)
{
    const TiXmlElement* const holder = childOf(parent, list);
    const TiXmlElement* each = holder == nullptr ? nullptr : holder->FirstChildElement(item.c_str());
    while (each != nullptr && each->FirstChild() != nullptr) {
        each = each->NextSiblingElement(item.c_str());
    }
    return each != nullptr;
}

TiXmlElement* sectionOf(TiXmlElement* root, const std::string& path)
{
    forEachToken(path, '/', [&root](std::string_view name) { root = childOf(root, std::string(name)); });
    return root;
}

// The first list that the reader of configurations would not get past; empty for none.
std::string emptyListIn(TiXmlElement* root)
{
    static const std::vector<ConfigurationKey> keys = configurationKeys();
    for (const ConfigurationKey& key : keys) {
        if (key.value == ConfigurationValue::list &&
            hasEmptyItem(sectionOf(root, key.section), key.key, key.item)) {
            return key.key;
        }
    }
    TiXmlElement* const filters = childOf(childOf(root, "HeaderSettings"), "filterKeys");
    TiXmlElement* each = filters == nullptr ? nullptr : filters->FirstChildElement();
    for (; each != nullptr; each = each->NextSiblingElement()) {
        for (const std::string& letter : configurationFilterLetters()) {
            if (hasEmptyItem(each, letter, "string")) {
                return letter;
            }
        }
    }
    return "";
}

// Loading.

void load(SeriesConfiguration& configuration)
{
    const std::string& path = configuration.files.front();
    TtavelinXmlDocument document(path);
    std::error_code failure;
    if (!fs::is_regular_file(path, failure)) {
        configuration.problem = fs::exists(path, failure) ? "is no file" : "is a link to nothing";
        return;
    }
    if (!document.LoadFile()) {
        configuration.problem =
            document.readFailed() ? "cannot be read: the run ends without a result" : "cannot be loaded";
        return;
    }
    TiXmlElement* const root = document.FirstChildElement();
    configuration.emptyList = emptyListIn(root);
    if (!configuration.emptyList.empty()) {
        return;
    }
    LoadUserConfXML(path, configuration.settings, false); // it has just been loaded
    bool hasService = false;
    const std::string service = GetTXT(root, "Service", hasService);
    if (hasService && StrToService(service) == StrToService("")) {
        configuration.unknownService = service;
    }
    if (!hasService && childOf(root, "lightCurves") == nullptr && childOf(root, "ReportSettings") == nullptr)
    {
        configuration.problem = "has neither Service nor lightCurves nor ReportSettings";
    }
}

// The search puts a slash behind the one at the end of the folder.
std::string withSingleSlashes(std::string path)
{
    const auto areSlashes = [](char a, char b) { return a == '/' && b == '/'; };
    path.erase(std::unique(path.begin(), path.end(), areSlashes), path.end());
    return path;
}

SeriesConfiguration searched(const std::string& folder)
{
    SeriesConfiguration configuration;
    configuration.folder = folder;
    configuration.isSearched = mayBeSearched(folder);
    if (!configuration.isSearched) {
        return configuration;
    }
    configuration.tellsKinds = tellsKindsOfEntries(folder);
    for (const std::string& path : configurationsBelow(folder)) {
        configuration.files.push_back(withSingleSlashes(path));
    }
    if (!configuration.files.empty()) {
        load(configuration);
    }
    return configuration;
}

// What a file is that is no configuration, by its name; empty for one that may be.
std::string otherThanConfiguration(const std::string& path)
{
    const std::string name = fs::path(path).filename().string();
    const std::string stem = fs::path(path).stem().string();
    if (name.starts_with(".#") || name.starts_with(".~lock.")) {
        return "an editor's lock";
    }
    struct stat state = {};
    if (lstat(path.c_str(), &state) == 0 && S_ISLNK(state.st_mode) && stat(path.c_str(), &state) != 0) {
        return "a broken link";
    }
    constexpr std::string_view fronts[] = {"~", "#", "._", "Copy of "};
    constexpr std::string_view ends[] = {"~",       ".bak",    ".old",  ".orig",  ".save",
                                         "_backup", "-backup", " copy", " (copy)"};
    const bool isBackup =
        std::any_of(std::begin(fronts), std::end(fronts),
                    [&](auto text) { return name.starts_with(text); }) ||
        std::any_of(std::begin(ends), std::end(ends), [&](auto text) { return stem.ends_with(text); });
    return isBackup ? "a backup" : "";
}

bool looksLikeStation(const std::string& text)
{
    return text.size() == 3 && std::all_of(text.begin(), text.end(), [](char c) {
               return std::isalnum(static_cast<unsigned char>(c)) != 0;
           });
}

// The findings of the series of a report.
class Report
{
public:
    Report(const TaskDocument& ofTask, const TConvMea& theTask) : document(ofTask), task(theTask)
    {
    }

    void lookAt(std::size_t number, const SeriesConfiguration& configuration)
    {
        current = number;
        lookAtSearch(configuration);
        if (!configuration.files.empty()) {
            lookAtFiles(configuration);
        }
        lookAtStamps(configuration.settings);
    }

    // Files of one object or of all series have one header.
    void lookAtStations()
    {
        const bool areJoined = task.toSeparateFile == "eachobject" || task.toSeparateFile == "allobjects";
        if (task.outputformat == "mpc" && areJoined && stations.size() > 1) {
            all.push_back(
                finding("V255", {{"stations", counted(stations.size(), "station")}}).in(document.path));
        }
    }

    std::vector<Finding> all{};

private:
    // Once for all series that have it.
    void add(Finding found)
    {
        const auto same = std::find_if(all.begin(), all.end(), [&found](const Finding& each) {
            return each.code == found.code && each.text == found.text;
        });
        if (same != all.end()) {
            ++same->count;
            return;
        }
        all.push_back(atKeyOfSeria(document, std::move(found), current, "path"));
    }

    void lookAtSearch(const SeriesConfiguration& configuration)
    {
        const std::string folder = printable(configuration.folder);
        if (!configuration.isSearched) {
            add(finding("V217", {{"folder", folder}}));
        } else if (configuration.files.empty()) {
            add(finding("V216", {{"folder", folder}}));
        }
        if (!configuration.tellsKinds) {
            add(finding("V222", {{"folder", folder}}));
        }
    }

    void lookAtFiles(const SeriesConfiguration& configuration)
    {
        const std::string path = printable(configuration.files.front());
        const bool isAlone = configuration.files.size() == 1;
        if (!isAlone) {
            add(finding("V218", {{"configurations", counted(configuration.files.size(), "configuration")},
                                 {"folder", printable(configuration.folder)},
                                 {"path", path}}));
        }
        const std::string what = otherThanConfiguration(configuration.files.front());
        // One whose name looks like that of a backup may still be the one that is meant.
        const bool isMeant = what == "a backup" && isAlone && configuration.problem.empty();
        if (!configuration.emptyList.empty()) {
            add(finding("V221", {{"list", configuration.emptyList}, {"path", path}}));
        } else if (!what.empty() && !isMeant) {
            add(finding("V219", {{"path", path}, {"what", what}}));
        } else if (!configuration.problem.empty()) {
            add(finding("V220", {{"path", path}, {"problem", configuration.problem}}));
        }
        if (!configuration.unknownService.empty()) {
            add(finding("V223", {{"word", printable(configuration.unknownService)}, {"path", path}}));
        }
    }

    void lookAtStamps(const TPorogs& settings)
    {
        const std::string& station = settings.mpc.MPCHeader.COD;
        const std::string& observer = settings.curves.AAVSOCode;
        stations.insert(station);
        if (task.outputformat == "mpc" && (!looksLikeStation(station) || station == TMPCReportHeader{}.COD)) {
            const std::string problem =
                looksLikeStation(station) ? "is the default" : "is not three letters or digits";
            add(finding("V224", {{"text", printable(station)}, {"problem", problem}}));
        }
        if (task.outputformat == "aavso" && observer == TCurves{}.AAVSOCode) {
            add(finding("V225", {{"text", observer}}));
        }
    }

    const TaskDocument& document;
    const TConvMea& task;
    std::size_t current = 0; // series
    std::set<std::string> stations{};
};

} // namespace

const SeriesConfiguration& SeriesSettings::of(const std::string& table)
{
    const std::string folder = seriesFolder(table);
    const auto known = found.find(folder);
    return known != found.end() ? known->second : found.emplace(folder, searched(folder)).first->second;
}

std::function<TPorogs(const std::string& table)> SeriesSettings::forWorks()
{
    return [this](const std::string& table) { return of(table).settings; };
}

std::vector<std::string> SeriesSettings::takenBy(const TConvMea& task)
{
    std::vector<std::string> taken;
    for (const TSeria2& seria : isReport(task) ? task.paths : std::vector<TSeria2>{}) {
        if (seria.path.empty() || of(seria.path).files.empty()) {
            continue;
        }
        const std::string& path = of(seria.path).files.front();
        if (std::find(taken.begin(), taken.end(), path) == taken.end()) {
            taken.push_back(path);
        }
    }
    return taken;
}

std::vector<Finding> SeriesSettings::findings(const TaskDocument& document, const TConvMea& task)
{
    Report report(document, task);
    if (!isReport(task) || !document.goesOn()) {
        return {};
    }
    for (std::size_t i = 0; i < task.paths.size(); ++i) {
        if (!task.paths[i].path.empty()) {
            report.lookAt(i, of(task.paths[i].path));
        }
    }
    report.lookAtStations();
    return std::move(report.all);
}

} // namespace companion
