#include "measures.h"

#include "made_inputs.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace {

// What each mark of the longest track may take more than the others: the size of the large record.
constexpr double largeRecord = 709;

constexpr Asked startRatio{0.7, 0.6};
// Of a comparison by the command to the reading of both files, and its room for each of their marks.
constexpr Asked diffRatio{2.5, 2.5};
constexpr Asked diffBytes{300, 300};
constexpr Asked smallTaskRatio{1.5, 1.2, 1.8};

std::string milliseconds(double seconds)
{
    return withUnit(seconds * 1e3, 2, "ms");
}

std::string microseconds(double seconds)
{
    return withUnit(seconds * 1e6, 3, "us");
}

Round always(const Command& command)
{
    return [command](int /*number*/) { return std::vector<Command>{command}; };
}

// The command that does the yardstick's part of a work whose output is there.
Command yardstickOf(const Work& work, const fs::path& copy)
{
    std::uintmax_t bytes = 0;
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(work.output)) {
        bytes += entry.file_size();
        ++files;
    }
    // A tool that fails is fast.
    constexpr std::uintmax_t leastOfMark = 20;
    if (bytes < static_cast<std::uintmax_t>(work.marks) * leastOfMark) {
        throw std::runtime_error("the tool did not write its marks");
    }
    Command command{YARDSTICK, work.shape, std::to_string(work.marks), copy.string()};
    command.push_back(std::to_string(files));
    command.push_back(std::to_string(bytes));
    command.insert(command.end(), work.inputs.begin(), work.inputs.end());
    return command;
}

Figure memoryOf(const Bench& bench, const Work& work, double peak)
{
    const auto marks = static_cast<double>(work.marks);
    const double more = largeRecord * static_cast<double>(work.longestTrack) / marks;
    return {"bytes a mark",
            (peak - bench.startBytes) / marks,
            {work.bytesOfMark.atMost + more, work.bytesOfMark.wanted + more}};
}

// Small tasks, of which each round takes some that no round has taken, so that every output is a new file.
class SmallTasks
{
public:
    SmallTasks(fs::path folder, int ofRound) : place(std::move(folder)), tasksOfRound(ofRound)
    {
    }

    void make(int rounds) const
    {
        for (int i = 0; i < rounds * tasksOfRound; ++i) {
            makeInput(file(i, ".mea"), "mea", 30, 3);
            std::ofstream(file(i, ".xml"))
                << "<task><path_in>" << file(i, ".mea")
                << "</path_in><outputextension>.out</outputextension><inputformat>mea</inputformat>"
                   "<outputformat>mpc</outputformat><autoname>false</autoname></task>";
        }
    }

    std::vector<Command> runs(const std::string& tool, int round) const
    {
        std::vector<Command> commands;
        for (int i = round * tasksOfRound; i < (round + 1) * tasksOfRound; ++i) {
            commands.push_back({tool, file(i, ".xml")});
        }
        return commands;
    }

    // After the runs of the round.
    std::vector<Command> starts(int round) const
    {
        std::vector<Command> commands;
        for (int i = round * tasksOfRound; i < (round + 1) * tasksOfRound; ++i) {
            commands.push_back({STATIC_PROGRAM, file(i, ".copy"),
                                std::to_string(fs::file_size(file(i, ".out"))), file(i, ".mea"),
                                file(i, ".xml")});
        }
        return commands;
    }

private:
    std::string file(int number, const char* extension) const
    {
        return (place / std::to_string(number)).string() + extension;
    }

    fs::path place;
    int tasksOfRound;
};

} // namespace

Bench::Bench(const std::string& path)
    : tool(path), inputs(folder.path() / "inputs"), nothing((folder.path() / "nothing.xml").string())
{
    std::ofstream(nothing) << "<task/>";
    startBytes = run({{tool, nothing}}).bytes;
}

Row compared(Bench& bench, const std::string& name, const Work& work, int rounds)
{
    const Command tool{bench.tool, work.task};
    run({tool});
    const fs::path copies = work.output.parent_path() / "copies";
    fs::create_directories(copies);
    const Command yardstick = yardstickOf(work, copies / "copy");
    run({yardstick}); // so that it too writes over files that are there
    const auto pair = runInTurn(always(tool), always(yardstick), rounds);
    fs::remove_all(copies);
    fs::remove_all(work.output);
    const auto marks = static_cast<double>(work.marks);
    Row row{name, microseconds(pair.first.seconds / marks), microseconds(pair.second.seconds / marks), {}};
    row.figures.push_back({"time to yardstick's", pair.ratio, work.ratio});
    row.figures.push_back(memoryOf(bench, work, pair.first.bytes));
    if (work.peak) {
        row.figures.push_back({"peak in GB", pair.first.bytes * 1e-9, *work.peak});
        bench.inputs.removeAll(); // they are as large as that
    }
    return row;
}

Row grown(const Bench& bench, const std::string& name, const Work& small, const Work& large, double factor,
          Asked asked, int rounds)
{
    const Command smallRun{bench.tool, small.task};
    const Command largeRun{bench.tool, large.task};
    run({smallRun, largeRun});
    const auto pair = runInTurn(always(largeRun), always(smallRun), rounds);
    fs::remove_all(small.output);
    fs::remove_all(large.output);
    return {name,
            milliseconds(pair.first.seconds),
            "",
            {{"exponent", std::log(pair.ratio) / std::log(factor), asked}}};
}

Row comparedStart(const Bench& bench, const std::string& name, int rounds)
{
    const auto pair = runInTurn(always({bench.tool, bench.nothing}), always({EMPTY_PROGRAM}), rounds);
    return {name,
            milliseconds(pair.first.seconds),
            milliseconds(pair.second.seconds),
            {{"time to empty program's", pair.ratio, startRatio}}};
}

Row comparedDiff(Bench& bench, const std::string& name, const std::string& command,
                 const std::string& reading, long marks, int rounds)
{
    const std::string input = bench.inputs.folder("diff " + std::to_string(marks),
                                                  [marks](const fs::path& folder) {
                                                      makeInput(folder / "in.mea", "mea", marks, 1000);
                                                  }) /
                              "in.mea";
    const Command diff{"/bin/sh", "-c", "exec \"$0\" diff -s \"$1\" \"$1\" >/dev/null", command, input};
    const auto pair = runInTurn(always(diff), always({reading, input, input}), rounds);
    const auto all = static_cast<double>(2 * marks);
    return {name,
            microseconds(pair.first.seconds / all),
            microseconds(pair.second.seconds / all),
            {{"time to the reading's", pair.ratio, diffRatio},
             {"bytes of a mark", pair.first.bytes / all, diffBytes}}};
}

Row comparedSmallTasks(Bench& bench, const std::string& name, int tasks, int rounds)
{
    const int ofRound = (tasks + rounds - 1) / rounds;
    bench.inputs.removeAll();
    const fs::path place = bench.inputs.folder(
        "small", [=](const fs::path& folder) { SmallTasks(folder, ofRound).make(rounds); });
    const SmallTasks small(place, ofRound);
    const auto pair = runInTurn([&](int round) { return small.runs(bench.tool, round); },
                                [&](int round) { return small.starts(round); }, rounds);
    bench.inputs.removeAll();
    return {name,
            milliseconds(pair.first.seconds / ofRound),
            milliseconds(pair.second.seconds / ofRound),
            {{"time to static program's", pair.ratio, smallTaskRatio}}};
}
