// Interrupts: while work is under way, signals that would end the program are noted, so that it can end its
// children and clear up first.

#pragma once

namespace companion {

/// Notes SIGINT, SIGTERM, SIGHUP and SIGPIPE as long as it lives. There is at most one at a time. A signal
/// that the program was started to ignore stays ignored.
class Interrupts
{
public:
    Interrupts();
    ~Interrupts();
    Interrupts(const Interrupts&) = delete;
    Interrupts& operator=(const Interrupts&) = delete;

    /// The first signal that came, 0 where none has.
    int signal() const;

    /// A descriptor that can be read from once a noted signal has come, or a child has ended.
    int descriptor() const;

    /// Takes what makes the descriptor readable.
    void clear() const;

private:
    struct State;
    State* state;
};

/// Ends the program by a signal, as if that had never been noted.
[[noreturn]] void endBySignal(int signal);

} // namespace companion
