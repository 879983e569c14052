// Check truth: whether `tavelin check` tells of random tasks what the tool does with them.
//
//   check_truth --count 2000 --seed 1 --jobs 2     so many tasks, from this seed on
//   check_truth --case 4711                        one task again; its folder is kept

#include "companion/truth/task_trial.h"
#include "companion/truth/tool_run.h"
#include "support/places.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A check that takes so many seconds does not end.
constexpr unsigned endlessCheck = 20;

struct Options
{
    std::uint64_t count = 2000;
    std::uint64_t seed = 1;
    int jobs = 1;
    bool isCase = false;
};

// What the processes of a call share.
struct Shared
{
    std::atomic<std::uint64_t> next{0}; // the seed that is tried next
    std::atomic<std::uint64_t> failed{0};
    std::atomic<std::uint64_t> clean{0};
    std::atomic<std::uint64_t> reports{0};
    std::atomic<std::uint64_t> hung{0};
    std::atomic<std::uint64_t> died{0};
    std::atomic<std::uint64_t> notRun{0};
    std::atomic<std::uint64_t> marksRead{0};
    std::atomic<std::uint64_t> marksWritten{0};
    std::atomic<std::uint64_t> current[256]; // the seed of each process
};

int usage()
{
    std::fputs("usage: check_truth [--count N] [--seed S] [--jobs J] | --case SEED\n", stderr);
    return 2;
}

bool parse(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; i += 2) {
        const std::string name = argv[i];
        char* end = nullptr;
        const std::uint64_t number = i + 1 < argc ? std::strtoull(argv[i + 1], &end, 10) : 0;
        if (end == nullptr || *end != '\0' || end == argv[i + 1]) {
            return false;
        }
        if (name == "--count") {
            options.count = number;
        } else if (name == "--jobs" && number >= 1 && number <= 256) {
            options.jobs = static_cast<int>(number);
        } else if (name == "--seed" || name == "--case") {
            options.seed = number;
            options.isCase = name == "--case";
        } else {
            return false;
        }
    }
    return true;
}

// A new folder in memory where there is such a file system.
std::string newFolder()
{
    std::error_code ignored;
    const bool hasMemory =
        std::filesystem::is_directory("/dev/shm", ignored) && access("/dev/shm", W_OK) == 0;
    std::string name =
        (hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path().string()) + "/check_truth_XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        std::perror("check_truth: no folder");
        std::exit(2);
    }
    return name;
}

// One write for each line, so that those of several processes do not mix.
void print(const std::string& line)
{
    const std::string whole = line + "\n";
    if (write(STDOUT_FILENO, whole.data(), whole.size()) < 0) {
        std::exit(2);
    }
}

void tell(std::uint64_t seed, const TrialOutcome& outcome)
{
    for (const std::string& sentence : outcome.failures) {
        print("seed " + std::to_string(seed) + ": " + sentence);
    }
}

void add(Shared& shared, const TrialOutcome& outcome)
{
    shared.failed += outcome.failures.empty() ? 0 : 1;
    shared.clean += outcome.isClean ? 1 : 0;
    shared.reports += outcome.isReport ? 1 : 0;
    shared.hung += outcome.hung ? 1 : 0;
    shared.died += outcome.died ? 1 : 0;
    shared.notRun += outcome.wasRun ? 0 : 1;
    shared.marksRead += outcome.marksRead;
    shared.marksWritten += outcome.marksWritten;
}

TrialOutcome tried(std::uint64_t seed, const std::string& folder)
{
    try {
        return tryTask(seed, folder, builtTool());
    } catch (const std::exception& exception) {
        TrialOutcome outcome;
        outcome.failures.push_back(std::string("an exception: ") + exception.what());
        return outcome;
    }
}

// A process that takes seed after seed.
void work(Shared& shared, int process, std::uint64_t end, const std::string& root)
{
    prepareForRuns();
    for (std::uint64_t seed = shared.next++; seed < end; seed = shared.next++) {
        shared.current[process] = seed;
        const std::string folder = root + "/" + std::to_string(seed);
        std::filesystem::create_directory(folder);
        alarm(endlessCheck);
        const TrialOutcome outcome = tried(seed, folder);
        alarm(0);
        tell(seed, outcome);
        add(shared, outcome);
        std::filesystem::current_path(root);
        std::filesystem::remove_all(folder);
    }
}

pid_t started(Shared& shared, int process, std::uint64_t end, const std::string& root)
{
    const pid_t child = fork();
    if (child == 0) {
        work(shared, process, end, root);
        std::_Exit(0);
    }
    return child;
}

// Waits for all processes. One that a signal ended met a check that does not end, or dies; another goes on.
void waitForAll(Shared& shared, std::vector<pid_t> children, std::uint64_t end, const std::string& root)
{
    for (std::size_t left = children.size(); left > 0;) {
        int status = 0;
        const pid_t ended = wait(&status);
        if (ended < 0 && errno == EINTR) {
            continue;
        }
        --left;
        if (status == 0) {
            continue;
        }
        for (std::size_t i = 0; i < children.size(); ++i) {
            if (children[i] == ended) {
                ++shared.failed;
                print("seed " + std::to_string(shared.current[i]) + ": the check ended the process, signal " +
                      std::to_string(WIFSIGNALED(status) ? WTERMSIG(status) : 0));
                children[i] = started(shared, static_cast<int>(i), end, root);
                ++left;
                break;
            }
        }
    }
}

int tryAll(const Options& options)
{
    void* const memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        std::perror("check_truth");
        return 2;
    }
    Shared& shared = *new (memory) Shared;
    shared.next = options.seed;
    const std::uint64_t end = options.seed + options.count;
    const std::string root = newFolder();
    std::vector<pid_t> children;
    for (int process = 0; process < options.jobs; ++process) {
        children.push_back(started(shared, process, end, root));
    }
    waitForAll(shared, children, end, root);
    std::filesystem::remove_all(root);
    const auto text = [](const std::atomic<std::uint64_t>& number) { return std::to_string(number); };
    print(std::to_string(options.count) + " tasks, " + text(shared.reports) + " of them reports: " +
          text(shared.clean) + " without errors, " + text(shared.hung) + " that do not end, " +
          text(shared.died) + " that die, " + text(shared.notRun) + " not run; " + text(shared.marksWritten) +
          " of " + text(shared.marksRead) + " marks written; " + text(shared.failed) + " failed");
    return shared.failed == 0 ? 0 : 1;
}

int tryOne(std::uint64_t seed)
{
    prepareForRuns();
    const std::string root = newFolder();
    const TrialOutcome outcome = tried(seed, root);
    for (const std::string& line : outcome.findings) {
        print("  " + line);
    }
    tell(seed, outcome);
    print("kept: " + root + "/trial/case");
    return outcome.failures.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!parse(argc, argv, options)) {
        return usage();
    }
    return options.isCase ? tryOne(options.seed) : tryAll(options);
}
