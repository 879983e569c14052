#include "running/interrupts.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace companion {
namespace {

constexpr int notedSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGCHLD};

std::atomic<int> firstSignal = 0;
std::atomic<int> wakeEnd = -1; // where the handler writes

static_assert(std::atomic<int>::is_always_lock_free, "a handler writes them");

extern "C" void noteSignal(int signal)
{
    const int error = errno;
    int none = 0;
    if (signal != SIGCHLD) {
        firstSignal.compare_exchange_strong(none, signal);
    }
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakeEnd, &byte, 1); // a full pipe wakes too
    errno = error;
}

} // namespace

struct Interrupts::State
{
    int ends[2] = {-1, -1};
    struct sigaction before[std::size(notedSignals)] = {};
};

Interrupts::Interrupts() : state(new State)
{
    if (pipe2(state->ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        delete state;
        throw std::runtime_error("no pipe");
    }
    firstSignal = 0;
    wakeEnd = state->ends[1];
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < std::size(notedSignals); ++i) {
        sigaction(notedSignals[i], nullptr, &state->before[i]);
        const bool isIgnored = state->before[i].sa_handler == SIG_IGN;
        if (!isIgnored || notedSignals[i] == SIGCHLD) {
            sigaction(notedSignals[i], &action, nullptr);
        }
    }
}

Interrupts::~Interrupts()
{
    for (std::size_t i = 0; i < std::size(notedSignals); ++i) {
        sigaction(notedSignals[i], &state->before[i], nullptr);
    }
    wakeEnd = -1;
    close(state->ends[0]);
    close(state->ends[1]);
    delete state;
}

int Interrupts::signal() const
{
    return firstSignal;
}

int Interrupts::descriptor() const
{
    return state->ends[0];
}

void Interrupts::clear() const
{
    char bytes[64];
    while (read(state->ends[0], bytes, sizeof bytes) > 0) {
    }
}

void endBySignal(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(128 + signal); // not reached for the signals that are noted
}

} // namespace companion
