// Child: the tool in processes of their own, several at once, under limits, with all that they print.

#pragma once

#include "running/interrupts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace companion {

/// What a child is started with.
struct ChildCall
{
    std::string program;                    ///< its full path
    std::string name;                       ///< what it is told that it is called
    std::string argument;                   ///< its last argument
    std::chrono::milliseconds timeLimit{0}; ///< none where it is 0
    std::uint64_t memoryLimit = 0;          ///< of its addresses, in bytes; none where it is 0
    std::string option{};                   ///< an argument before the last; none where it is empty
};

/// A limit that ended a child.
enum class ChildLimit
{
    none,
    time,
    memory
};

/// How a child ended.
struct EndedChild
{
    std::size_t number = 0; ///< that of its start
    std::string failure{};  ///< why it could not be started, in the system's words; else empty
    int status = -1;        ///< what it exited with; -1 where a signal ended it
    int signal = 0;         ///< the signal that ended it; else 0
    ChildLimit limit = ChildLimit::none;
    std::string said{};           ///< the front of what it printed, to both streams
    double began = 0;             ///< seconds since 1970
    double seconds = 0;           ///< that it took
    std::uint64_t peakMemory = 0; ///< bytes that were in memory at once
};

/// How much of what a child prints is kept.
inline constexpr std::size_t keptOutput = 16384;

/// Running children. Each is the leader of a process group of its own, and nothing of its group outlives it.
/// They leave no core files, read nothing, and end with this process.
class Children
{
public:
    /// How the end of a child is noticed.
    enum class Notice
    {
        descriptor, ///< by a process descriptor, where the system has them
        signal      ///< by SIGCHLD
    };

    /// An overdue child is told to end, and killed after the grace.
    explicit Children(const Interrupts& interrupts, Notice notice = Notice::descriptor,
                      std::chrono::milliseconds grace = std::chrono::seconds(5));
    ~Children();
    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;

    /// Starts a child. One that cannot be started counts as ended.
    void start(std::size_t number, const ChildCall& call);

    /// How many have been started and not been given back.
    std::size_t count() const;

    /// Waits until a child has ended, at most the time, and gives it back; nothing where the time is up, and
    /// where an interrupt has come before.
    std::optional<EndedChild> next(std::chrono::milliseconds atMost);

    /// Tells all children to end, kills those that have not ended after the grace, and waits for them.
    void stop();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The name of a signal: "SIGSEGV".
std::string signalName(int signal);

} // namespace companion
