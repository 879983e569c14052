// Watched lines: how a reader that takes lines tells their fates, at no cost where nobody asks.
//
// A class that takes the lines of a format is a template of one of these two, and tells what it decides where
// it decides it: there is one reader, not two that drift apart.

#pragma once

#include "../base/lines.h"
#include "../files/text_reading.h"
#include "line_watch.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// Nobody asks: all of it vanishes.
struct Unwatched
{
    template <class Take>
    static constexpr void take(Take takeLine)
    {
        takeLine();
    }
    static constexpr void head()
    {
    }
    static constexpr void mark()
    {
    }
    static constexpr void end()
    {
    }
    static constexpr void part(std::size_t /*place*/)
    {
    }
    static constexpr void markOfParts()
    {
    }
    static constexpr void loseParts(PassedReason /*reason*/)
    {
    }
    static constexpr void passed(std::string_view /*text*/, PassedReason /*reason*/)
    {
    }
    static constexpr void waits(LineFate /*fate*/)
    {
    }
    static constexpr void settleWaiting()
    {
    }
    static constexpr void loseWaiting(PassedReason /*reason*/)
    {
    }
};

/// Tells a watch.
class Watched
{
public:
    explicit Watched(LineWatch& lineWatch) : watch(&lineWatch)
    {
    }

    /// Takes the next line: the function tells its fate. What it throws for a text that is too short is told
    /// as a refusal, and the next line may follow.
    template <class Take>
    void take(Take takeLine)
    {
        ++line;
        try {
            takeLine();
        } catch (const std::out_of_range&) {
            tell(LineFate::refused, PassedReason::tooShort);
        }
    }

    void head()
    {
        tell(LineFate::head, PassedReason::none);
    }

    void mark()
    {
        tell(LineFate::mark, PassedReason::none);
    }

    void end()
    {
        tell(LineFate::end, PassedReason::none);
    }

    /// The line gives one of the values of the next mark, the first or the second.
    void part(std::size_t place)
    {
        losePart(place, PassedReason::replaced);
        parts[place] = line;
    }

    /// The line makes a mark of the parts that are there.
    void markOfParts()
    {
        for (std::size_t& place : parts) {
            if (place != 0) {
                watch->settled({place, LineFate::part, PassedReason::none});
                place = 0;
            }
        }
        mark();
    }

    /// No mark follows the parts that are there.
    void loseParts(PassedReason reason)
    {
        for (std::size_t place = 0; place < parts.size(); ++place) {
            losePart(place, reason);
        }
    }

    /// The line is passed over; one without a word is blank, whatever the reason.
    void passed(std::string_view text, PassedReason reason)
    {
        if (text.find_first_not_of(' ') == std::string_view::npos) {
            tell(LineFate::blank, PassedReason::none);
        } else {
            tell(LineFate::passed, reason);
        }
    }

    /// The line has this fate if what follows it does not lose it.
    void waits(LineFate fate)
    {
        waiting.push_back({line, fate, PassedReason::none});
    }

    /// The lines that wait have their fates.
    void settleWaiting()
    {
        for (const LineReport& report : waiting) {
            watch->settled(report);
        }
        waiting.clear();
    }

    /// The lines that wait are lost.
    void loseWaiting(PassedReason reason)
    {
        for (const LineReport& report : waiting) {
            watch->settled({report.line, LineFate::lost, reason});
        }
        waiting.clear();
    }

private:
    void tell(LineFate fate, PassedReason reason)
    {
        watch->settled({line, fate, reason});
    }

    void losePart(std::size_t place, PassedReason reason)
    {
        if (parts[place] != 0) {
            watch->settled({parts[place], LineFate::lost, reason});
            parts[place] = 0;
        }
    }

    LineWatch* watch;
    std::size_t line = 0;
    std::array<std::size_t, 2> parts{}; // the lines of the next mark; 0 where there is none
    std::vector<LineReport> waiting;
};

/// Gives a reader the lines of a list, and then their end.
template <class Reader>
void takeList(const std::vector<std::string>& lines, Reader reader)
{
    takeLines(lines, reader);
    reader.finish();
}

/// The same for a file. One that is missing, or cannot be read to its end, leaves nothing kept.
template <class Reader, class Kept>
void takeFile(const std::string& path, Reader reader, Kept& kept)
{
    if (readTextLines(path, reader)) {
        reader.finish();
    } else {
        kept = {};
    }
}

} // namespace tavelinUtils
