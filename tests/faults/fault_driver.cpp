// Runs a program and lets the n-th of its system calls of a kind fail, or kills the process that makes it.
// Calls are counted over the program and all processes that it starts, from the loading of the program on.
//
//   fault_driver REPORT KIND NUMBER once|on ERROR PROGRAM [ARGUMENT...]
//
// KIND is one of the words below. With the number 0 nothing fails. ERROR is a number of errno, or one of a
// signal with a minus before it. REPORT gets one line: the count of the calls, the exit status of the
// program, the signal that ended it or 0, then the signals that ended other processes. Status 77: the system
// lets no process be traced.
//
// The kernel's calls are caught, and not those of the C library, since the library's own are made inside of
// it, where a preloaded object does not reach: a stream reads and closes without calling any function that
// can be replaced. The registers are those of x86-64.

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int notTraced = 77;
constexpr int callStop = SIGTRAP | 0x80;

struct CallRow
{
    std::string_view kind;
    unsigned long call;
};

// "change" has what may change a file system: kills before each of these meet all that a kill can leave.
constexpr CallRow callRows[] = {
    {"open", SYS_open},       {"open", SYS_openat},      {"open", SYS_openat2},
    {"open", SYS_creat},      {"read", SYS_read},        {"read", SYS_pread64},
    {"read", SYS_readv},      {"write", SYS_write},      {"write", SYS_pwrite64},
    {"write", SYS_writev},    {"close", SYS_close},      {"stat", SYS_stat},
    {"stat", SYS_lstat},      {"stat", SYS_fstat},       {"stat", SYS_newfstatat},
    {"stat", SYS_statx},      {"readdir", SYS_getdents}, {"readdir", SYS_getdents64},
    {"map", SYS_mmap},        {"change", SYS_open},      {"change", SYS_openat},
    {"change", SYS_creat},    {"change", SYS_write},     {"change", SYS_close},
    {"change", SYS_rename},   {"change", SYS_renameat},  {"change", SYS_renameat2},
    {"change", SYS_link},     {"change", SYS_linkat},    {"change", SYS_unlink},
    {"change", SYS_unlinkat}, {"change", SYS_mkdir},     {"change", SYS_mkdirat},
    {"change", SYS_rmdir},    {"change", SYS_symlink},   {"change", SYS_ftruncate},
    {"change", SYS_fsync},    {"change", SYS_fchmod},
};

std::set<unsigned long> callsOf(std::string_view kind)
{
    std::set<unsigned long> calls;
    for (const CallRow& row : callRows) {
        if (row.kind == kind) {
            calls.insert(row.call);
        }
    }
    return calls;
}

struct Order
{
    bool isForEveryCall = false;
    std::set<unsigned long> calls{};
    long number = 0; // of the call that fails; 0: none
    bool goesOn = false;
    int error = 0; // below 0: a signal
};

class Tracer
{
public:
    explicit Tracer(Order theOrder) : order(std::move(theOrder))
    {
    }

    // Goes with the process and its descendants until none is left.
    void follow(pid_t program)
    {
        int status = 0;
        for (pid_t process = waitpid(-1, &status, __WALL); process > 0 || errno == EINTR;
             process = waitpid(-1, &status, __WALL))
        {
            if (process > 0 && WIFSTOPPED(status)) {
                goOn(process, status);
            } else if (process == program) {
                programEnd = status;
            } else if (process > 0 && WIFSIGNALED(status)) {
                otherSignals.push_back(WTERMSIG(status));
            }
        }
    }

    bool report(const char* path) const
    {
        std::FILE* const file = std::fopen(path, "w");
        if (file == nullptr) {
            return false;
        }
        std::fprintf(file, "%ld %d %d", count, WIFEXITED(programEnd) ? WEXITSTATUS(programEnd) : -1,
                     WIFSIGNALED(programEnd) ? WTERMSIG(programEnd) : 0);
        for (const int signal : otherSignals) {
            std::fprintf(file, " %d", signal);
        }
        std::fputs("\n", file);
        return std::fclose(file) == 0;
    }

private:
    void goOn(pid_t process, int status)
    {
        const int stop = WSTOPSIG(status);
        // What is no stop at a call is a signal to be handed on, an event of the tracing, or the stop of a
        // new process.
        const bool isSignal = stop != callStop && stop != SIGSTOP && stop != SIGTRAP && status >> 16 == 0;
        if (stop == callStop) {
            atCall(process);
        }
        ptrace(PTRACE_SYSCALL, process, nullptr, isSignal ? stop : 0);
    }

    void atCall(pid_t process)
    {
        __ptrace_syscall_info call = {};
        if (ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call) <= 0) {
            return;
        }
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY && isMeant(call.entry.nr) && isDue()) {
            enter(process, call.entry.nr);
        } else if (call.op == PTRACE_SYSCALL_INFO_EXIT && failing.erase(process) != 0) {
            setRegister(process, &user_regs_struct::rax, static_cast<unsigned long>(-order.error));
        }
    }

    bool isMeant(unsigned long call) const
    {
        return order.isForEveryCall || order.calls.contains(call);
    }

    bool isDue()
    {
        ++count;
        return order.number != 0 && (order.goesOn ? count >= order.number : count == order.number);
    }

    void enter(pid_t process, unsigned long call)
    {
        if (order.error < 0) {
            kill(process, -order.error);
            return;
        }
        failing.insert(process);
        // A descriptor is gone even where closing it fails.
        if (call != SYS_close) {
            setRegister(process, &user_regs_struct::orig_rax, static_cast<unsigned long>(-1));
        }
    }

    static void setRegister(pid_t process, unsigned long long user_regs_struct::*which, unsigned long value)
    {
        user_regs_struct registers = {};
        if (ptrace(PTRACE_GETREGS, process, nullptr, &registers) == 0) {
            registers.*which = value;
            ptrace(PTRACE_SETREGS, process, nullptr, &registers);
        }
    }

    Order order;
    long count = 0;
    int programEnd = 0;
    std::vector<int> otherSignals{};
    std::set<pid_t> failing{};
};

// Starts the program, stopped at its first instruction; -1 where it cannot be traced.
pid_t startTraced(char** arguments)
{
    const pid_t process = fork();
    if (process == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(notTraced);
        }
        execv(*arguments, arguments);
        _exit(127);
    }
    int status = 0;
    if (process < 0 || waitpid(process, &status, 0) != process || !WIFSTOPPED(status)) {
        return -1;
    }
    const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                         PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL;
    const bool isTraced = ptrace(PTRACE_SETOPTIONS, process, nullptr, options) == 0 &&
                          ptrace(PTRACE_SYSCALL, process, nullptr, nullptr) == 0;
    return isTraced ? process : -1;
}

Order orderOf(char** words)
{
    const std::string_view kind = words[0];
    return {kind == "every", callsOf(kind), std::atol(words[1]), std::string_view(words[2]) == "on",
            std::atoi(words[3])};
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 7) {
        std::fputs("usage: fault_driver REPORT KIND NUMBER once|on ERROR PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }
    Tracer tracer(orderOf(argv + 2));
    const pid_t program = startTraced(argv + 6);
    if (program < 0) {
        return notTraced;
    }
    tracer.follow(program);
    return tracer.report(argv[1]) ? 0 : 2;
}
