#include "running/child.h"

#include "running/uninterrupted.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iterator>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace companion {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// A descriptor that closes itself.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : value(descriptor)
    {
    }
    Descriptor(Descriptor&& other) noexcept : value(std::exchange(other.value, -1))
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(value, other.value);
        return *this;
    }
    ~Descriptor()
    {
        if (value >= 0) {
            close(value);
        }
    }
    int get() const
    {
        return value;
    }
    explicit operator bool() const
    {
        return value >= 0;
    }

private:
    int value = -1;
};

struct Pipe
{
    Descriptor out;
    Descriptor in;
};

std::optional<Pipe> newPipe()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

// A descriptor of a process that can be read from once it has ended; none where the system has no such.
Descriptor processDescriptor(pid_t process)
{
#ifdef SYS_pidfd_open
    return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
#else
    static_cast<void>(process);
    return {};
#endif
}

struct RunningChild
{
    pid_t process = -1;
    Descriptor descriptor{};
    Descriptor output{};
    Descriptor unreadable{}; // the output, once a read of it has failed
    Clock::time_point start{};
    std::optional<Clock::time_point> termAt{};
    std::optional<Clock::time_point> killAt{};
    bool hasMemoryLimit = false;
    EndedChild end{};
};

// What happens between vfork and exec: only calls that a handler of signals may make, and nothing in the
// memory that is changed, since it is the caller's own.
class NewProcess
{
public:
    NewProcess(const ChildCall& call, int outputEnd, int failureEnd)
        : program(call.program.c_str()), memoryLimit(call.memoryLimit), output(outputEnd),
          failure(failureEnd), arguments{const_cast<char*>(call.name.c_str()), nullptr, nullptr, nullptr},
          parent(getpid())
    {
        const bool hasOption = !call.option.empty();
        arguments[1] = const_cast<char*>(hasOption ? call.option.c_str() : call.argument.c_str());
        arguments[2] = hasOption ? const_cast<char*>(call.argument.c_str()) : nullptr;
        sigemptyset(&noSignals);
    }

    [[noreturn]] void run() const
    {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const bool orphaned = getppid() != parent;
        if (!orphaned && limit(RLIMIT_CORE, 0) && (memoryLimit == 0 || limit(RLIMIT_AS, memoryLimit)) &&
            redirect()) {
            forgetSignals();
            execv(program, arguments);
        }
        const int error = errno;
        [[maybe_unused]] const auto written = write(failure, &error, sizeof error);
        _exit(127);
    }

private:
    static bool limit(decltype(RLIMIT_AS) resource, std::uint64_t value)
    {
        const rlimit both{value, value};
        return setrlimit(resource, &both) == 0;
    }

    bool redirect() const
    {
        const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
        const int sources[] = {nothing, output, output}; // of input, output and errors
        bool isDone = nothing >= 0;
        for (int stream = STDIN_FILENO; isDone && stream <= STDERR_FILENO; ++stream) {
            isDone = dup2(sources[stream], stream) >= 0;
        }
        return isDone;
    }

    // Handlers go with exec; what is ignored or blocked would stay.
    void forgetSignals() const
    {
        std::signal(SIGPIPE, SIG_DFL);
        sigprocmask(SIG_SETMASK, &noSignals, nullptr);
    }

    const char* program;
    std::uint64_t memoryLimit;
    int output;
    int failure;
    char* arguments[4];
    pid_t parent;
    sigset_t noSignals;
};

// The error of a process that could not be started; 0 once it runs.
int startError(Pipe failures, pid_t process)
{
    failures.in = Descriptor();
    int error = 0;
    const auto count = uninterrupted([&] { return read(failures.out.get(), &error, sizeof error); });
    if (count != sizeof error) {
        return 0;
    }
    uninterrupted([process] { return waitpid(process, nullptr, 0); });
    return error;
}

// Starts the process; gives the error where that fails.
int startProcess(const ChildCall& call, RunningChild& child)
{
    auto output = newPipe();
    auto failures = newPipe();
    if (!output || !failures) {
        return errno;
    }
    const NewProcess process(call, output->in.get(), failures->in.get());
    child.process = vfork(); // a copy of all pages would cost more than many a task
    if (child.process == 0) {
        process.run();
    }
    if (child.process < 0) {
        return errno;
    }
    setpgid(child.process, child.process); // as the child does: whoever is first
    fcntl(output->out.get(), F_SETFL, O_NONBLOCK);
    child.output = std::move(output->out);
    return startError(std::move(*failures), child.process);
}

void takeOutput(RunningChild& child)
{
    char bytes[4096];
    ssize_t count = 0;
    while (child.output && (count = read(child.output.get(), bytes, sizeof bytes)) > 0) {
        const std::size_t room = keptOutput - child.end.said.size();
        child.end.said.append(bytes, std::min(room, static_cast<std::size_t>(count)));
    }
    if (count == 0) {
        child.output = Descriptor();
    } else if (errno != EAGAIN && errno != EINTR) {
        child.unreadable = std::move(child.output); // open, so that what the child says ends it by no signal
    }
}

bool hasEnded(const RunningChild& child)
{
    siginfo_t info = {};
    return waitid(P_PID, static_cast<id_t>(child.process), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == child.process;
}

// Whether a child with a memory limit has ended for want of memory, by what it said.
bool lackedMemory(const RunningChild& child)
{
    if (!child.hasMemoryLimit || child.end.status == 0) {
        return false;
    }
    const auto says = [&child](const char* words) { return child.end.said.find(words) != std::string::npos; };
    return says("bad_alloc") || says("annot allocate memory") || says("failed to map segment");
}

double secondsOf(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

// Takes the end of a process that has ended. Until then its number is its own, also as that of its group.
void takeEnd(RunningChild& child)
{
    kill(-child.process, SIGKILL);
    takeOutput(child);
    int status = 0;
    rusage usage = {};
    uninterrupted([&] { return wait4(child.process, &status, 0, &usage); });
    child.end.seconds = secondsOf(Clock::now() - child.start);
    child.end.peakMemory = static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
    if (WIFSIGNALED(status)) {
        child.end.signal = WTERMSIG(status);
    } else {
        child.end.status = WEXITSTATUS(status);
    }
    if (child.end.limit == ChildLimit::none && lackedMemory(child)) {
        child.end.limit = ChildLimit::memory;
    }
}

} // namespace

struct Children::State
{
    State(const Interrupts& noted, Notice how, milliseconds graceTime)
        : interrupts(noted), notice(how), grace(graceTime)
    {
    }

    // Waits for an output, an end, a deadline or an interrupt, at most until the moment.
    void wait(Clock::time_point until)
    {
        std::vector<pollfd> watched{{interrupts.descriptor(), POLLIN, 0}};
        for (const RunningChild& child : running) {
            watched.push_back({child.output.get(), POLLIN, 0}); // poll passes over a descriptor of -1
            watched.push_back({child.descriptor.get(), POLLIN, 0});
            for (const auto& deadline : {child.termAt, child.killAt}) {
                until = std::min(until, deadline.value_or(until));
            }
        }
        const auto left = std::chrono::ceil<milliseconds>(until - Clock::now()).count();
        poll(watched.data(), watched.size(), static_cast<int>(std::clamp<long>(left, 0, 1'000'000)));
        interrupts.clear();
    }

    void meetDeadlines()
    {
        const Clock::time_point now = Clock::now();
        for (RunningChild& child : running) {
            if (child.termAt && now >= *child.termAt) {
                child.end.limit = ChildLimit::time;
                tellToEnd(child);
            } else if (child.killAt && now >= *child.killAt) {
                kill(-child.process, SIGKILL);
                child.killAt.reset();
            }
        }
    }

    void tellToEnd(RunningChild& child) const
    {
        kill(-child.process, SIGTERM);
        child.termAt.reset();
        child.killAt = Clock::now() + grace;
    }

    void gather()
    {
        for (RunningChild& child : running) {
            takeOutput(child);
        }
        const auto end = std::partition(running.begin(), running.end(),
                                        [](const RunningChild& child) { return !hasEnded(child); });
        for (auto child = end; child != running.end(); ++child) {
            takeEnd(*child);
            ended.push_back(std::move(child->end));
        }
        running.erase(end, running.end());
    }

    std::optional<EndedChild> takeEnded()
    {
        if (ended.empty()) {
            return std::nullopt;
        }
        EndedChild first = std::move(ended.front());
        ended.erase(ended.begin());
        return first;
    }

    const Interrupts& interrupts;
    Notice notice;
    milliseconds grace;
    std::vector<RunningChild> running{};
    std::vector<EndedChild> ended{};
};

Children::Children(const Interrupts& interrupts, Notice notice, milliseconds grace)
    : state(new State(interrupts, notice, grace))
{
}

Children::~Children()
{
    stop();
}

void Children::start(std::size_t number, const ChildCall& call)
{
    RunningChild child;
    child.end.number = number;
    child.end.began =
        std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    child.hasMemoryLimit = call.memoryLimit > 0;
    child.start = Clock::now();
    if (const int error = startProcess(call, child); error != 0) {
        child.end.failure = std::strerror(error);
        child.end.limit = error == ENOMEM && child.hasMemoryLimit ? ChildLimit::memory : ChildLimit::none;
        state->ended.push_back(std::move(child.end));
        return;
    }
    if (state->notice == Notice::descriptor) {
        child.descriptor = processDescriptor(child.process);
    }
    if (call.timeLimit.count() > 0) {
        child.termAt = child.start + call.timeLimit;
    }
    state->running.push_back(std::move(child));
}

std::size_t Children::count() const
{
    return state->running.size() + state->ended.size();
}

std::optional<EndedChild> Children::next(milliseconds atMost)
{
    const Clock::time_point until = Clock::now() + atMost;
    state->gather();
    while (state->ended.empty() && !state->running.empty() && state->interrupts.signal() == 0 &&
           Clock::now() < until)
    {
        state->wait(until);
        state->meetDeadlines();
        state->gather();
    }
    return state->takeEnded();
}

void Children::stop()
{
    for (const RunningChild& child : state->running) {
        kill(-child.process, SIGTERM);
    }
    for (RunningChild& child : state->running) {
        child.termAt.reset();
        child.killAt = Clock::now() + state->grace;
    }
    while (!state->running.empty()) {
        state->wait(Clock::now() + state->grace);
        state->meetDeadlines();
        state->gather();
    }
}

std::string signalName(int signal)
{
    struct Name
    {
        int signal;
        const char* name;
    };
    constexpr Name names[] = {{SIGHUP, "SIGHUP"},   {SIGINT, "SIGINT"},   {SIGQUIT, "SIGQUIT"},
                              {SIGILL, "SIGILL"},   {SIGTRAP, "SIGTRAP"}, {SIGABRT, "SIGABRT"},
                              {SIGBUS, "SIGBUS"},   {SIGFPE, "SIGFPE"},   {SIGKILL, "SIGKILL"},
                              {SIGUSR1, "SIGUSR1"}, {SIGSEGV, "SIGSEGV"}, {SIGUSR2, "SIGUSR2"},
                              {SIGPIPE, "SIGPIPE"}, {SIGALRM, "SIGALRM"}, {SIGTERM, "SIGTERM"},
                              {SIGXCPU, "SIGXCPU"}, {SIGXFSZ, "SIGXFSZ"}, {SIGSYS, "SIGSYS"}};
    const auto* const found = std::find_if(std::begin(names), std::end(names),
                                           [signal](const Name& each) { return each.signal == signal; });
    return found == std::end(names) ? "SIG" + std::to_string(signal) : found->name;
}

} // namespace companion
