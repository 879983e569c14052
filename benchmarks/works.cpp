#include "works.h"

#include "made_inputs.h"
#include "processes.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t keptInputs = 2;

constexpr Asked conversionRatio{2.5, 2.0};

// The ratios of conversions that stand above that.
constexpr double reachedWithFewObjects = 4.2;  // tracks of 10,000 marks and more do not stay in near memory
constexpr double reachedWithManyObjects = 5.2; // a track, whose head is large, for a few marks
constexpr double reachedMixed = 4.3;
constexpr struct
{
    std::string_view input;
    std::string_view output;
    double ratio;
} reachedByWords[] = {
    {"mea", "mpc", 3.1},   {"mea", "mea", 3.5}, {"mea", "mag", 3.2},      {"mea", "aavso", 3.0},
    {"mea", "ssmas", 3.6}, {"tdm", "tdm", 3.2}, {"telegram", "mea", 3.7}, {"ssmas", "telegram", 3.9},
};

constexpr Asked conversionBytes{100, 80};
constexpr Asked reportRatio{3.0, 2.0};
constexpr Asked objectReportRatio{3.5, 2.5};
constexpr Asked reportBytes{150, 100};

// Of this size only the main work is run: no list of marks may double on its way there.
constexpr long hugeFile = 10'000'000;
constexpr Asked hugePeak{1.1, 1.1};

double reachedBy(const Conversion& conversion)
{
    if (conversion.mixed) {
        return reachedMixed;
    }
    if (conversion.marks < 50 * conversion.objects) {
        return reachedWithManyObjects;
    }
    if (conversion.marks >= 10'000 * conversion.objects) {
        return reachedWithFewObjects;
    }
    for (const auto& row : reachedByWords) {
        if (row.input == conversion.input && row.output == conversion.output) {
            return row.ratio;
        }
    }
    return 0;
}

// Reports of tracks that have a few marks each stand above what is asked too.
double reachedBy(const Report& report)
{
    constexpr double reachedWithShortTracks = 4.4;
    return report.marks < 5 ? reachedWithShortTracks : 0;
}

Asked ratioAskedOf(const Report& report)
{
    const Asked& asked = report.division == "eachobject" ? objectReportRatio : reportRatio;
    return {asked.atMost, asked.wanted, reachedBy(report)};
}

// Makes an empty folder for output, beside the inputs.
fs::path emptyOutput(const fs::path& inputs)
{
    const fs::path folder = inputs / "out";
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

fs::path folderOfSeries(const fs::path& place, long number)
{
    return place / ("series" + std::to_string(number));
}

fs::path tableOf(const fs::path& place, long number)
{
    return folderOfSeries(place, number) / "tavelin/dataVO/table.txt";
}

void makeSeries(const fs::path& place, const Report& report)
{
    for (long number = 0; number < report.series; ++number) {
        const fs::path table = tableOf(place, number);
        fs::create_directories(table.parent_path());
        std::ofstream(folderOfSeries(place, number) / "night.conf")
            << "<root><Service>asteroids</Service></root>";
        makeTrackTable(table.string(), number, report.tracks, report.marks, report.names);
    }
}

} // namespace

MadeInputs::MadeInputs(fs::path folder) : place(std::move(folder))
{
}

fs::path MadeInputs::folder(const std::string& name, const std::function<void(const fs::path&)>& fill)
{
    const auto found = std::find(kept.begin(), kept.end(), name);
    if (found != kept.end()) {
        kept.splice(kept.begin(), kept, found);
        return place / name;
    }
    if (kept.size() == keptInputs) {
        fs::remove_all(place / kept.back());
        kept.pop_back();
    }
    kept.push_front(name);
    fs::create_directories(place / name);
    callApart([&] { fill(place / name); });
    return place / name;
}

void MadeInputs::removeAll()
{
    for (const std::string& name : kept) {
        fs::remove_all(place / name);
    }
    kept.clear();
}

std::string nameOf(const Conversion& conversion)
{
    return conversion.input + " to " + conversion.output + ", " + grouped(conversion.marks) + " marks of " +
           grouped(conversion.objects) + " objects" + (conversion.mixed ? ", mixed" : "");
}

Work prepared(MadeInputs& inputs, const Conversion& conversion)
{
    const auto& [input, output, marks, objects, mixed] = conversion;
    const std::string name =
        input + "_" + std::to_string(marks) + "_" + std::to_string(objects) + (mixed ? "_mixed" : "");
    const auto path = [&](const fs::path& place) { return (place / ("input." + conversion.input)).string(); };
    const fs::path place = inputs.folder(name, [&](const fs::path& folder) {
        makeInput(path(folder), conversion.input, conversion.marks, conversion.objects, conversion.mixed);
    });
    const fs::path out = emptyOutput(place);
    const fs::path task = place / "task.xml";
    std::ofstream(task) << "<task><path_in>" << path(place) << "</path_in><out_dir>" << out.string()
                        << "</out_dir><outputextension>.out</outputextension><inputformat>" << input
                        << "</inputformat><outputformat>" << output
                        << "</outputformat><autoname>false</autoname></task>";
    Work work{task.string(),
              out,
              {path(place)},
              input == "tdm" ? "3" : "1",
              marks,
              (marks + objects - 1) / objects,
              {conversionRatio.atMost, conversionRatio.wanted, reachedBy(conversion)},
              conversionBytes,
              {}};
    if (marks == hugeFile) {
        work.peak = hugePeak;
    }
    return work;
}

std::string nameOf(const Report& report)
{
    return report.division + " " + report.output + ", " + grouped(report.allMarks()) +
           " marks: " + grouped(report.series) + " tables, " + grouped(report.allTracks()) + " tracks, " +
           grouped(report.names) + " names";
}

Work prepared(MadeInputs& inputs, const Report& report)
{
    std::string name = "tables";
    for (const long number : {report.series, report.tracks, report.marks, report.names}) {
        name += "_" + std::to_string(number);
    }
    const fs::path place =
        inputs.folder(name, [&report](const fs::path& folder) { makeSeries(folder, report); });
    const fs::path out = emptyOutput(place);
    const fs::path task = place / "task.xml";
    std::ofstream text(task);
    text << "<task><out_dir>" << out.string()
         << "</out_dir><outputextension>txt</outputextension><inputformat>vomar</inputformat><outputformat>"
         << report.output << "</outputformat><toSeparateFile>" << report.division
         << "</toSeparateFile><paths>";
    std::vector<std::string> tables;
    for (long number = 0; number < report.series; ++number) {
        tables.push_back(tableOf(place, number).string());
        text << "<seria><path>" << tables.back() << "</path></seria>";
    }
    text << "</paths></task>";
    return {task.string(),        out,         tables, "table", report.allMarks(), report.marks,
            ratioAskedOf(report), reportBytes, {}};
}
