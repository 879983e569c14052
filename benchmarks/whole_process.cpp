// Whole runs of the tool: processor time and peak memory, each held against a yardstick that is run in turn
// with it, and how they grow. Prints one table, with what is asked of each figure, and ends with 1 where a
// figure is above that, or above what was reached before, by more than a quarter.
//
//   whole_process [--short] [--tool PATH] [--only TEXT]
//
//   --short       the works that matter most, at one size, in about a minute
//   --tool PATH   measures that executable instead of the one built here
//   --only TEXT   measures the works alone whose names hold the text

#include "measures.h"
#include "rows.h"
#include "works.h"

#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr Asked growthOverMarks{1.02, 1.02};
constexpr Asked growthOverObjects{0.2, 0.2};
constexpr Asked growthOverTracks{1.05, 1.05};

constexpr int usualRounds = 11;

// A row to come: how many rounds it takes, and how it is measured.
struct Planned
{
    std::string name;
    int rounds;
    std::function<Row(Bench& bench, int rounds)> measure;
};
using Plan = std::vector<Planned>;

template <class Description>
void plan(Plan& rows, const Description& description, int rounds = usualRounds)
{
    const std::string name = nameOf(description);
    rows.push_back({name, rounds, [name, description](Bench& bench, int count) {
                        return compared(bench, name, prepared(bench.inputs, description), count);
                    }});
}

template <class Description>
void planGrowth(Plan& rows, const std::string& name, const Description& small, const Description& large,
                double factor, Asked asked)
{
    rows.push_back({name, usualRounds, [=](Bench& bench, int count) {
                        const Work smallWork = prepared(bench.inputs, small);
                        const Work largeWork = prepared(bench.inputs, large);
                        return grown(bench, name, smallWork, largeWork, factor, asked, count);
                    }});
}

void planStarts(Plan& rows, int starts, int smallTasks)
{
    const std::string start = "start: a task that asks for nothing";
    rows.push_back(
        {start, starts, [start](Bench& bench, int count) { return comparedStart(bench, start, count); }});
    const std::string tasks = grouped(smallTasks) + " small tasks, of 30 marks each";
    rows.push_back({tasks, usualRounds, [tasks, smallTasks](Bench& bench, int count) {
                        return comparedSmallTasks(bench, tasks, smallTasks, count);
                    }});
}

// The words of input and output. The first is the main work, which is run at more sizes than the others.
constexpr struct
{
    const char* input;
    const char* output;
    bool inShortPlan;
} conversions[] = {
    {"mea", "mpc", true}, {"mea", "mea", false},     {"mea", "tdm.xml", true},
    {"mea", "mag", true}, {"mea", "aavso", false},   {"mea", "ssmas", false},
    {"tdm", "tdm", true}, {"telegram", "mea", true}, {"ssmas", "telegram", true},
};

void planConversions(Plan& rows, long marks, bool all)
{
    for (const auto& [input, output, inShortPlan] : conversions) {
        if (all || inShortPlan) {
            plan(rows, Conversion{input, output, marks, 1000});
        }
    }
}

void planMainWork(Plan& rows)
{
    const auto mainWork = [](long marks, long objects, bool mixed = false) {
        return Conversion{conversions[0].input, conversions[0].output, marks, objects, mixed};
    };
    for (const long marks : {100'000L, 1'000'000L}) {
        plan(rows, mainWork(marks, 10));
        plan(rows, mainWork(marks, 50'000));
        plan(rows, mainWork(marks, 1000, true));
    }
    plan(rows, mainWork(10'000'000, 10'000), 3);
    planGrowth(rows, "mea to mpc, growth over marks, 10,000 to 1,000,000", mainWork(10'000, 1000),
               mainWork(1'000'000, 1000), 100, growthOverMarks);
    planGrowth(rows, "mea to mpc, growth over objects, 1,000 to 50,000", mainWork(100'000, 1000),
               mainWork(100'000, 50'000), 50, growthOverObjects);
}

// Tracks are of 20 marks, but by gap of 200, so that less of the time goes to the making of files.
void planReports(Plan& rows)
{
    for (const long scale : {1L, 10L}) {
        const long tracks = 500 * scale;
        plan(rows, Report{"allobjects", "mpc", 10, tracks, 20, 10 * tracks});
        plan(rows, Report{"allobjects", "aavso", 10, tracks, 20, 10 * tracks});
        plan(rows, Report{"eachseria", "mpc", 10, tracks, 20, 10 * tracks});
        plan(rows, Report{"eachgroup", "mpc", 10, tracks / 10, 200, tracks});
        plan(rows, Report{"eachobject", "mpc", 10, 4 * tracks, 5, 1000});
        plan(rows, Report{"allobjects", "mpc", 10, 10 * tracks, 2, 100 * tracks});
    }
    plan(rows, Report{"allobjects", "mpc", 500, 40, 20, 20'000});
    planGrowth(rows, "eachobject mpc, growth over tracks, 5,000 to 50,000",
               Report{"eachobject", "mpc", 10, 500, 5, 1000}, Report{"eachobject", "mpc", 10, 5000, 5, 1000},
               10, growthOverTracks);
}

// Where the command is built.
void planDiff(Plan& rows, long marks)
{
#ifdef COMMAND_PROGRAM
    const std::string name = "diff of files of " + grouped(marks) + " marks";
    rows.push_back({name, usualRounds, [name, marks](Bench& bench, int count) {
                        return comparedDiff(bench, name, COMMAND_PROGRAM, READING_PROGRAM, marks, count);
                    }});
#else
    static_cast<void>(rows);
    static_cast<void>(marks);
#endif
}

Plan fullPlan()
{
    Plan rows;
    planStarts(rows, 301, 1000);
    planConversions(rows, 100'000, true);
    planConversions(rows, 1'000'000, true);
    planMainWork(rows);
    planDiff(rows, 1'000'000);
    planReports(rows);
    return rows;
}

Plan shortPlan()
{
    Plan rows;
    planStarts(rows, 101, 200);
    planConversions(rows, 100'000, false);
    planDiff(rows, 100'000);
    plan(rows, Conversion{"mea", "mpc", 100'000, 50'000});
    plan(rows, Conversion{"mea", "mpc", 100'000, 1000, true});
    plan(rows, Report{"allobjects", "mpc", 10, 500, 20, 5000});
    plan(rows, Report{"allobjects", "aavso", 10, 500, 20, 5000});
    plan(rows, Report{"eachobject", "mpc", 10, 2000, 5, 1000});
    return rows;
}

struct Options
{
    bool isShort = false;
    std::string tool = VOMAR_TOOL;
    std::string only;
};

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--short") {
            options.isShort = true;
        } else if (word == "--tool" && i + 1 < argc) {
            options.tool = argv[++i];
        } else if (word == "--only" && i + 1 < argc) {
            options.only = argv[++i];
        } else {
            return false;
        }
    }
    return true;
}

// A row that is far above what is asked is measured once more, in more rounds, unless that can change
// nothing.
Row measured(Bench& bench, const Planned& planned)
{
    const Row row = planned.measure(bench, planned.rounds);
    return row.farAbove() && !row.beyondDoubt() ? planned.measure(bench, 2 * planned.rounds + 1) : row;
}

// Measures and prints the rows. False where one is far above what is asked.
bool measureAll(const Options& options)
{
    Bench bench(options.tool);
    std::vector<std::string> tooHigh;
    printHead();
    for (const Planned& planned : options.isShort ? shortPlan() : fullPlan()) {
        if (planned.name.find(options.only) == std::string::npos) {
            continue;
        }
        const Row row = measured(bench, planned);
        print(row);
        if (row.farAbove()) {
            tooHigh.push_back(row.name);
        }
    }
    if (!tooHigh.empty()) {
        std::puts("\nAbove what is asked, or reached, by more than a quarter:");
    }
    for (const std::string& name : tooHigh) {
        std::printf("  %s\n", name.c_str());
    }
    return tooHigh.empty();
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::fprintf(stderr, "usage: %s [--short] [--tool PATH] [--only TEXT]\n", argv[0]);
        return 2;
    }
    try {
        return measureAll(options) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
