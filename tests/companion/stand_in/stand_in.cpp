// A stand-in for the tool: it does what the tool does, and then something that the tool never does. The name
// of the task says what, up to its first "-" and without the number in front that a batch gives it:
// dies-1.xml, 000001_dies-1.xml.

#include "conversion.h"
#include "files/essentials.h"
#include "multi_report.h"
#include "results/result_files.h"
#include "task.h"
#include "works.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using namespace tavelinUtils;
namespace fs = std::filesystem;

struct Run
{
    TConvMea task{};
    TFuncRes result{};

    fs::path output() const
    {
        return result.Description.substr(0, result.Description.find(';'));
    }
};

TFuncRes worked(TConvMea& task)
{
    if (task.out_dir.empty() || !DirectoryExists(task.out_dir)) {
        task.out_dir = ExtractPath(task.path_in);
    }
    AddSlash(task.out_dir, "/");
    return task.inputformat == "vomar" ? CreateMultiReport(task) : converter(task);
}

void append(const fs::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary | std::ios::app) << text;
}

[[noreturn]] void waitForEver()
{
    for (;;) {
        pause();
    }
}

[[noreturn]] void takeAllMemory()
{
    for (std::vector<std::string> taken;;) {
        taken.emplace_back(std::size_t{64} << 20, 'x');
    }
}

void repeatLastLine(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    append(path, bytes.substr(bytes.rfind('\n', bytes.size() - 2) + 1));
}

// Changes a digit near the end of the file, where the value of the last mark is.
void changeDigit(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const std::size_t place = bytes.find_last_of("0123456789");
    bytes[place] = bytes[place] == '5' ? '6' : '5';
    std::ofstream(path, std::ios::binary) << bytes;
}

void leaveGrandchild()
{
    if (fork() == 0) {
        std::signal(SIGTERM, SIG_IGN);
        waitForEver();
    }
}

// What is done instead of the work.
const std::map<std::string, std::function<void()>> insteadOfWork{
    {"exits",
     [] {
         std::puts("no more room");
         std::fflush(stdout);
         std::_Exit(3);
     }},
    {"dies", [] { throw std::runtime_error("broken"); }},
    {"crashes",
     [] {
         std::signal(SIGSEGV, SIG_DFL); // sanitizers would make an exit status of it
         std::raise(SIGSEGV);
     }},
    {"hangs", waitForEver},
    {"stubborn",
     [] {
         std::signal(SIGTERM, SIG_IGN);
         waitForEver();
     }},
    {"eats", takeAllMemory},
    {"slow", [] { usleep(1'500'000); }},
};

// What is done behind the work, before the result is saved.
const std::map<std::string, std::function<void(Run&)>> behindWork{
    {"half", [](Run& run) { fs::resize_file(run.output(), fs::file_size(run.output()) / 2); }},
    {"nothing", [](Run& run) { fs::remove(run.output()); }},
    {"elsewhere", [](Run& run) { fs::rename(run.output(), run.output().replace_filename("elsewhere.txt")); }},
    {"miscounts", [](Run& run) { repeatLastLine(run.output()); }},
    {"alters", [](Run& run) { changeDigit(run.output()); }},
    {"code",
     [](Run& run) {
         run.result = {7, "Error opening file", run.result.Description, {}};
     }},
    {"other", [](Run& run) { run.result.Description = "another.txt"; }},
    {"silent", [](Run& run) { run.task.path_res.clear(); }},
    {"touches", [](Run& run) { append(run.task.path_in, "12345   250223 1200000000\n"); }},
    {"configures",
     [](Run& run) { append(fs::path(seriesFolder(run.task.paths.at(0).path)) / "night1.conf", "\n"); }},
    {"lingers", [](Run&) { usleep(1'500'000); }},
    {"leaves", [](Run& run) { append(run.output().replace_filename("left.txt"), "left\n"); }},
    {"prints", [](Run&) { std::puts("a word of the runtime"); }},
    {"forks", [](Run&) { leaveGrandchild(); }},
};

std::string behaviourOf(const std::string& task)
{
    const std::string whole = fs::path(task).stem();
    const bool isNumbered = whole.size() > 7 && whole[6] == '_' && whole.find_first_not_of("0123456789") == 6;
    const std::string name = isNumbered ? whole.substr(7) : whole;
    return name.substr(0, name.find('-'));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::printf("%d arguments\n", argc - 1);
        return 9;
    }
    const std::string behaviour = behaviourOf(argv[1]);
    Run run;
    if (const auto work = insteadOfWork.find(behaviour); work != insteadOfWork.end()) {
        work->second();
    }
    if (behaviour == "old") {
        ltaskconv(argv[1], run.task);
        const std::string name = ExtractOnlyFileName(run.task.path_in) + run.task.outputextension;
        SaveLogCode(run.task.path_res, {0, "OK", run.task.out_dir + "/" + name, {}});
        return 0;
    }
    if (!ltaskconv(argv[1], run.task) || behaviour == "unloaded") {
        SaveLogCode(argv[0] + std::string(".log"), 7, "Error opening file", argv[1]);
        return 0;
    }
    run.result = worked(run.task);
    if (const auto work = behindWork.find(behaviour); work != behindWork.end()) {
        work->second(run);
    }
    SaveLogCode(run.task.path_res, run.result);
    return 0;
}
