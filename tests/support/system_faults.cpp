#include "support/system_faults.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

sock_filter load(std::size_t offset)
{
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
}

// The steps of a filter for one call: what does not match goes on behind them.
void append(std::vector<sock_filter>& filter, const SystemFault& fault)
{
    const std::uint32_t action = fault.error == 0
                                     ? SECCOMP_RET_KILL_PROCESS
                                     : SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(fault.error);
    const std::uint8_t rest = fault.flag == 0 ? 1 : 3;
    filter.push_back(load(offsetof(seccomp_data, nr)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(fault.call), 0, rest));
    if (fault.flag != 0) {
        filter.push_back(load(offsetof(seccomp_data, args[2])));
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, fault.flag, 0, 1));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, action));
}

} // namespace

void setFaults(const std::vector<SystemFault>& faults)
{
    std::vector<sock_filter> filter;
    for (const SystemFault& fault : faults) {
        append(filter, fault);
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        _exit(99);
    }
}

std::vector<SystemFault> faultsOfRename(int error)
{
    std::vector<SystemFault> faults;
#if defined(SYS_rename)
    faults.push_back({SYS_rename, error});
#endif
#if defined(SYS_renameat)
    faults.push_back({SYS_renameat, error});
#endif
    faults.push_back({SYS_renameat2, error});
    return faults;
}

std::vector<SystemFault> faultsOfAccess(int error)
{
    std::vector<SystemFault> faults{{SYS_faccessat, error}};
#if defined(SYS_access)
    faults.push_back({SYS_access, error});
#endif
#if defined(SYS_faccessat2)
    faults.push_back({SYS_faccessat2, error});
#endif
    return faults;
}

SystemFault noFilesWithoutNames()
{
    return {SYS_openat, EOPNOTSUPP, O_TMPFILE & ~O_DIRECTORY};
}

int startChild(const std::function<void()>& work)
{
    const pid_t process = fork();
    if (process != 0) {
        return process;
    }
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXFSZ}) {
        std::signal(signal, SIG_DFL);
    }
    try {
        work();
    } catch (...) {
        _exit(1);
    }
    _exit(0);
}

int waitForChild(int process)
{
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    return status;
}

int statusOfChild(const std::function<void()>& work)
{
    return waitForChild(startChild(work));
}
