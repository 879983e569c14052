// Whole runs of the tool: processor time, speed and peak memory, each held against a yardstick that is
// measured in turn with it, and how they grow. Prints one table.
//
//   whole_process [--quick]     a moment's run over small inputs, to see that it works

#include "made_inputs.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

struct Figures
{
    double seconds = 0; // processor time, user and system
    double bytes = 0;   // peak memory
};

// One run of a command as a process of its own.
Figures runOnce(const std::vector<std::string>& command)
{
    std::vector<char*> argv;
    for (const std::string& word : command) {
        argv.push_back(const_cast<char*>(word.c_str()));
    }
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        throw std::runtime_error("failed: " + command.front());
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) * 1024};
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Pair
{
    Figures run;
    Figures measure;
    double ratio = 0; // of processor time, pair by pair
};

// Runs two commands in turn and gives the medians.
Pair runInTurn(const std::vector<std::string>& run, const std::vector<std::string>& measure, int rounds)
{
    std::vector<double> runSeconds;
    std::vector<double> runBytes;
    std::vector<double> measureSeconds;
    std::vector<double> measureBytes;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const Figures ours = runOnce(run);
        const Figures theirs = runOnce(measure);
        runSeconds.push_back(ours.seconds);
        runBytes.push_back(ours.bytes);
        measureSeconds.push_back(theirs.seconds);
        measureBytes.push_back(theirs.bytes);
        ratios.push_back(ours.seconds / theirs.seconds);
    }
    return {{median(runSeconds), median(runBytes)},
            {median(measureSeconds), median(measureBytes)},
            median(ratios)};
}

class Folder
{
public:
    Folder()
    {
        std::string name = (fs::temp_directory_path() / "vomar_benchmark_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
    }
    ~Folder()
    {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(const std::string& name) const
    {
        return (folder / name).string();
    }

private:
    fs::path folder;
};

struct Work
{
    const char* input; // words of the formats
    const char* output;
    double ratioAsked;  // of processor time to the yardstick
    double memoryAsked; // bytes for each mark
};
constexpr Work works[] = {
    {"mea", "mpc", 2.5, 1000}, {"mea", "mea", 3.0, 1000},      {"mea", "tdm.xml", 3.0, 1100},
    {"mea", "mag", 3.0, 1000}, {"mea", "aavso", 3.0, 1000},    {"mea", "ssmas", 3.0, 1000},
    {"tdm", "tdm", 3.0, 1000}, {"telegram", "mea", 3.0, 1000}, {"ssmas", "telegram", 3.0, 1000},
};

std::string nameOf(const Work& work)
{
    return std::string(work.input) + " to " + work.output;
}

void writeTask(const std::string& path, const std::string& input, const Work& work)
{
    std::ofstream file(path);
    file << "<task><path_in>" << input << "</path_in><outputextension>.out</outputextension><inputformat>"
         << work.input << "</inputformat><outputformat>" << work.output
         << "</outputformat><autoname>false</autoname></task>";
}

struct Size
{
    long marks;
    long objects;
};

struct Row
{
    std::string name;
    Size size;
    Pair pair;
    double ratioAsked;
    double memoryAsked;
};

Row measured(const Folder& folder, const Work& work, Size size, int rounds)
{
    const std::string stem = folder / (std::to_string(size.marks) + "_" + std::to_string(size.objects));
    const std::string input = stem + "." + work.input;
    const std::string output = stem + ".out";
    const std::string task = folder / "task.xml";
    if (!fs::exists(input)) {
        makeInput(input, work.input, size.marks, size.objects);
    }
    writeTask(task, input, work);
    runOnce({VOMAR_TOOL, task});
    const std::string written = std::to_string(fs::file_size(output));
    const Pair pair =
        runInTurn({VOMAR_TOOL, task},
                  {YARDSTICK, std::to_string(size.marks), folder / "written", "1", written, input}, rounds);
    fs::remove(output);
    return {nameOf(work), size, pair, work.ratioAsked, work.memoryAsked};
}

// A report over the track tables of several series, each of which has a configuration of its own.
struct Report
{
    const char* name;
    const char* division; // toSeparateFile
    const char* output;   // word of the format
    long series;
    long tracks; // of each series
    long marks;  // of each track
    long names;
};

constexpr double reportRatioAsked = 3.0;
constexpr double reportMemoryAsked = 1400;

Row measured(const Folder& folder, const Report& report, int rounds)
{
    const fs::path place = folder / "report";
    fs::create_directories(place / "out");
    std::vector<std::string> tables;
    std::ofstream task(place / "task.xml");
    task << "<task><out_dir>" << (place / "out").string()
         << "</out_dir><outputextension>txt</outputextension>"
         << "<inputformat>vomar</inputformat><outputformat>" << report.output
         << "</outputformat><toSeparateFile>" << report.division << "</toSeparateFile><paths>";
    for (long number = 0; number < report.series; ++number) {
        const fs::path series = place / ("series" + std::to_string(number));
        fs::create_directories(series / "tavelin/dataVO");
        std::ofstream(series / "night.conf") << "<root><Service>asteroids</Service></root>";
        tables.push_back((series / "tavelin/dataVO/table.txt").string());
        makeTrackTable(tables.back(), number, report.tracks, report.marks, report.names);
        task << "<seria><path>" << tables.back() << "</path></seria>";
    }
    task << "</paths></task>";
    task.close();
    const std::string taskPath = (place / "task.xml").string();
    runOnce({VOMAR_TOOL, taskPath});
    std::uintmax_t written = 0;
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(place / "out")) {
        written += entry.file_size();
        ++files;
    }
    const long marks = report.series * report.tracks * report.marks;
    std::vector<std::string> yardstick{YARDSTICK, std::to_string(marks), (place / "written").string(),
                                       std::to_string(files), std::to_string(written)};
    yardstick.insert(yardstick.end(), tables.begin(), tables.end());
    const Pair pair = runInTurn({VOMAR_TOOL, taskPath}, yardstick, rounds);
    fs::remove_all(place);
    return {report.name, {marks, report.names}, pair, reportRatioAsked, reportMemoryAsked};
}

void print(const Row& row, double startSeconds, double startBytes)
{
    const auto marks = static_cast<double>(row.size.marks);
    const double seconds = std::max(row.pair.run.seconds - startSeconds, 1e-9);
    std::printf(
        "| %-17s | %9ld | %7ld | %8.1f | %11.3f | %11.0f | %7.1f | %10.0f | %5.0f | %5.2f | %5.1f |\n",
        row.name.c_str(), row.size.marks, row.size.objects, row.pair.run.seconds * 1e3, seconds / marks * 1e6,
        marks / row.pair.run.seconds, row.pair.run.bytes / 1e6, (row.pair.run.bytes - startBytes) / marks,
        row.memoryAsked, row.pair.ratio, row.ratioAsked);
    std::fflush(stdout);
}

constexpr Report quickReports[] = {{"report, mpc", "allobjects", "mpc", 2, 10, 20, 5}};
constexpr Report reports[] = {
    {"report, mpc", "allobjects", "mpc", 10, 500, 20, 5000},
    {"report, aavso", "allobjects", "aavso", 10, 500, 20, 5000},
    {"report, 500 series", "allobjects", "mpc", 500, 40, 20, 20000},
    {"eachobject 5,000", "eachobject", "mpc", 10, 500, 5, 1000},
    {"eachobject 20,000", "eachobject", "mpc", 10, 2000, 5, 1000},
    {"eachobject 50,000", "eachobject", "mpc", 10, 5000, 5, 1000},
    {"eachobject, 1M", "eachobject", "mpc", 10, 5000, 20, 1000},
};

// The exponent of growth between two rows of which the second is the larger.
double exponent(double smallWork, double largeWork, double smallSeconds, double largeSeconds)
{
    return std::log(largeSeconds / smallSeconds) / std::log(largeWork / smallWork);
}

double secondsOf(const std::vector<Row>& rows, Size size)
{
    for (const Row& row : rows) {
        if (row.size.marks == size.marks && row.size.objects == size.objects) {
            return row.pair.run.seconds;
        }
    }
    throw std::logic_error("a size that was not measured");
}

void measureAll(bool quick)
{
    const Folder folder;
    const std::string nothing = folder / "nothing.xml";
    std::ofstream(nothing) << "<task/>";
    const Pair start = runInTurn({VOMAR_TOOL, nothing}, {EMPTY_PROGRAM}, quick ? 3 : 301);

    // Every work at the two sizes that figures are asked for; the main work, the first, at all sizes.
    const std::vector<Size> one{{1000, 10}};
    const std::vector<Size> few{{100000, 1000}, {1000000, 50000}};
    const std::vector<Size> all{{1000, 10},      {10000, 1000}, {100000, 10},    {100000, 1000},
                                {100000, 50000}, {1000000, 10}, {1000000, 1000}, {1000000, 50000}};
    std::puts("| work              |     marks | objects |   cpu ms | us per mark | marks per s | peak MB | "
              "bytes/mark | asked "
              "| ratio | asked |\n"
              "|-------------------|----------:|--------:|---------:|------------:|------------:|--------:|--"
              "---------:|------:"
              "|------:|------:|");
    for (const Work& work : works) {
        const bool main = &work == works;
        std::vector<Row> rows;
        for (const Size size : quick ? one : main ? all : few) {
            const int rounds = quick ? 1 : size.marks > 100000 ? 7 : 21;
            rows.push_back(measured(folder, work, size, rounds));
            print(rows.back(), start.run.seconds, start.run.bytes);
        }
        if (main && !quick) {
            std::printf("| %s, growth over marks, 10,000 to 1,000,000 with 1,000 objects: exponent %.2f "
                        "(asked: 1.05)\n",
                        nameOf(work).c_str(),
                        exponent(1e4, 1e6, secondsOf(rows, {10000, 1000}), secondsOf(rows, {1000000, 1000})));
            std::printf(
                "| %s, growth over objects, 1,000 to 50,000 with 100,000 marks: exponent %.2f (asked: 0.3)\n",
                nameOf(work).c_str(),
                exponent(1e3, 5e4, secondsOf(rows, {100000, 1000}), secondsOf(rows, {100000, 50000})));
        }
    }
    std::vector<Row> reportRows;
    for (const Report& report : quick ? std::vector<Report>(std::begin(quickReports), std::end(quickReports))
                                      : std::vector<Report>(std::begin(reports), std::end(reports)))
    {
        reportRows.push_back(measured(folder, report, quick ? 1 : 7));
        print(reportRows.back(), start.run.seconds, start.run.bytes);
    }
    if (!quick) {
        std::printf(
            "| eachobject, growth over tracks, 5,000 to 50,000 with 1,000 names: exponent %.2f (asked: "
            "1.1)\n",
            exponent(5e3, 5e4, secondsOf(reportRows, {25000, 1000}), secondsOf(reportRows, {250000, 1000})));
    }
    std::printf(
        "| start: a task that asks for nothing %.2f ms, an empty program %.2f ms: ratio %.2f (asked: 1.2)\n",
        start.run.seconds * 1e3, start.measure.seconds * 1e3, start.ratio);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        measureAll(argc == 2 && std::string_view(argv[1]) == "--quick");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
