#include "running/counting.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/characters.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace companion {
namespace {

// Whether the last but one of the items between a line's blanks is "001".
bool hasNumberBeforeLast(std::string_view line)
{
    const std::size_t blank = line.rfind(' ');
    return blank != std::string_view::npos && blank + 1 < line.size() &&
           line.substr(0, blank).ends_with(" 001");
}

// A site line, then a line per mark. The site may have several lines; no mark's line ends as its last one.
class MeaCount
{
public:
    void add(std::string_view line)
    {
        if (line.ends_with(" 2000.0 UTC")) {
            marks = 0;
        } else if (hasNumberBeforeLast(line)) {
            ++marks;
        }
    }

    HeldMarks end() const
    {
        return {marks, {}, true};
    }

private:
    std::size_t marks = 0;
};

// Blocks of a head, marks, "END" and an empty line. The first line of a block is of its head, whatever it
// looks like, and the marks are the lines next to its end.
class TelegramCount
{
public:
    void add(std::string_view line)
    {
        if (mayEnd && line.empty()) {
            held.marks += marks;
            ++*held.blocks;
            marks = 0;
            isFirst = true;
        } else {
            marks = mayEnd ? 0 : marks; // that END was one of the head
            takeLine(line);
            isFirst = false;
        }
        mayEnd = !isFirst && line == "END";
    }

    HeldMarks end() const
    {
        return {held.marks + marks, held.blocks, isFirst};
    }

private:
    void takeLine(std::string_view line)
    {
        if (!isFirst && isMark(line)) {
            ++marks;
        } else if (line != "END") {
            marks = 0;
        }
    }

    // Five fields with a blank between them, the last one from "001" on.
    static bool isMark(std::string_view line)
    {
        const std::size_t last = line.rfind(' ');
        return last != std::string_view::npos && line.substr(last + 1).starts_with("001") &&
               std::count(line.begin(), line.end(), ' ') == 4;
    }

    HeldMarks held{0, 0, true};
    std::size_t marks = 0; // next to each other, up to the present line
    bool isFirst = true;
    bool mayEnd = false;
};

// Segments of metadata and data. Data hold nothing but three lines per mark, and after them another segment
// begins: what looks like data and goes on in another way is a text of the metadata.
class TdmCount
{
public:
    void add(std::string_view line)
    {
        if (state == State::data) {
            takeData(line);
            return;
        }
        if (state == State::closed && line == "META_START") {
            settle();
        }
        state = line == "DATA_START" ? State::data : State::head;
        marks = 0;
        part = 0;
    }

    HeldMarks end()
    {
        const bool isWhole = state != State::data;
        if (state != State::head) {
            settle();
        }
        return {held.marks, held.blocks, isWhole};
    }

private:
    enum class State
    {
        head,
        data,
        closed
    };

    void takeData(std::string_view line)
    {
        constexpr std::string_view parts[] = {"ANGLE_1 = ", "ANGLE_2 = ", "MAG = "};
        if (part == 0 && line == "DATA_STOP") {
            state = State::closed;
        } else if (!line.starts_with(parts[part])) {
            state = State::head;
        } else if (++part == std::size(parts)) {
            part = 0;
            ++marks;
        }
    }

    void settle()
    {
        held.marks += marks;
        ++*held.blocks;
    }

    HeldMarks held{0, 0, true};
    std::size_t marks = 0; // of the segment
    std::size_t part = 0;  // of the mark
    State state = State::head;
};

// The same as XML, where only the lines of data hold a magnitude.
class TdmXmlCount
{
public:
    void add(std::string_view line)
    {
        if (line == "            <data>") {
            inData = true;
            ++*held.blocks;
        } else if (line == "            </data>") {
            inData = false;
        } else if (inData && line.starts_with("                    <MAG>")) {
            ++held.marks;
        }
        held.isWhole = line == "</tdm>";
    }

    HeldMarks end() const
    {
        return held;
    }

private:
    HeldMarks held{0, 0, false};
    bool inData = false;
};

// A front, then blocks of a number, an empty line, two titles with the object between them, and marks. The
// telescope's name in the front may have several lines; the line after it is in the front alone.
class SsmasCount
{
public:
    void add(std::string_view line)
    {
        const bool isObject = before == Line::numbersTitle;
        const bool isTitle = before == Line::object && line == columnTitles;
        before = isObject ? Line::object : line == "#SSMAS   #INTER" ? Line::numbersTitle : Line::other;
        if (isObject) {
            return;
        }
        if (line == "conversion") {
            held = {0, 0, true};
        } else if (isTitle) {
            ++*held.blocks;
        } else if (*held.blocks > 0 && line.find("  ") != line.npos && hasNumberBeforeLast(line)) {
            ++held.marks;
        }
    }

    HeldMarks end() const
    {
        return {held.marks, held.blocks, before == Line::other};
    }

private:
    enum class Line
    {
        numbersTitle,
        object,
        other
    };

    static constexpr std::string_view columnTitles =
        "   Data        UT           CU           DE      RMS  m";

    HeldMarks held{0, 0, true};
    Line before = Line::other;
};

// Header lines, then a line per mark, which the note "C" and the date behind the name tell from a header
// line, and the blanks between declination and magnitude. The station at its end may have several lines.
class MpcCount
{
public:
    void add(std::string_view line)
    {
        constexpr std::string_view note = "  C";
        constexpr std::size_t nameWidth = 12;
        for (std::size_t at = line.find(note, nameWidth); at != line.npos; at = line.find(note, at + 1)) {
            if (isMeasurement(line.substr(at + note.size()))) {
                ++marks;
                return;
            }
        }
    }

    HeldMarks end() const
    {
        return {marks, {}, true};
    }

private:
    // Whether a text begins with a date and has the ten blanks before the magnitude.
    static bool isMeasurement(std::string_view text)
    {
        constexpr std::string_view unset = "          ";
        text.remove_prefix(text.starts_with('-') ? 1 : 0);
        for (const char end : {' ', ' '}) {
            const std::size_t digits = countDigits(text);
            if (digits == 0 || text.substr(digits).find(end) != 0) {
                return false;
            }
            text.remove_prefix(digits + 1);
        }
        return countDigits(text) > 0 && text.find(unset) != text.npos;
    }

    static std::size_t countDigits(std::string_view text)
    {
        return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
    }

    std::size_t marks = 0;
};

// A line of titles, then a line per mark, each of its seven fields with a tab behind it.
class LightCurveCount
{
public:
    void add(std::string_view line)
    {
        constexpr auto fields = 7;
        if (isHeaded && line.ends_with('\t') && std::count(line.begin(), line.end(), '\t') >= fields) {
            ++marks;
        }
        isHeaded = true;
    }

    HeldMarks end() const
    {
        return {marks, {}, isHeaded};
    }

private:
    std::size_t marks = 0;
    bool isHeaded = false;
};

// A head that ends with the titles of the columns, then a line per mark. The observer's code in the head may
// have several lines; no mark's line ends as the titles do.
class AavsoCount
{
public:
    void add(std::string_view line)
    {
        constexpr auto commas = 14;
        if (line.starts_with("#NAME,DATE,") && line.ends_with(",NOTES")) {
            marks = 0;
        } else if (line.ends_with(",na") && std::count(line.begin(), line.end(), ',') >= commas) {
            ++marks;
        }
    }

    HeldMarks end() const
    {
        return {marks, {}, true};
    }

private:
    std::size_t marks = 0;
};

// Takes the lines of a file's bytes. A last line without a line feed is part of one.
template <class Form>
class Lines
{
public:
    void add(std::string_view bytes)
    {
        for (std::size_t end = bytes.find('\n'); end != bytes.npos; end = bytes.find('\n')) {
            form.add(bytes.substr(0, end));
            bytes.remove_prefix(end + 1);
        }
        endsWithin = !bytes.empty();
    }

    HeldMarks end()
    {
        HeldMarks held = form.end();
        held.isWhole = held.isWhole && !endsWithin;
        return held;
    }

private:
    Form form;
    bool endsWithin = false;
};

template <class Form>
HeldMarks ofBytes(std::string_view bytes)
{
    Lines<Form> lines;
    lines.add(bytes);
    return lines.end();
}

template <class Form>
std::optional<HeldMarks> ofFile(std::FILE* file)
{
    Lines<Form> lines;
    tavelinUtils::LinePieces pieces(file);
    while (pieces.next()) {
        lines.add(pieces.lines());
    }
    return pieces.failed() ? std::nullopt : std::optional(lines.end());
}

struct CountedForm
{
    std::string_view word;
    std::optional<HeldMarks> (*ofFile)(std::FILE* file);
    HeldMarks (*ofBytes)(std::string_view bytes);
};

template <class Form>
constexpr CountedForm counted(std::string_view word)
{
    return {word, ofFile<Form>, ofBytes<Form>};
}

constexpr CountedForm forms[] = {
    counted<MeaCount>("mea"),        counted<TelegramCount>("telegram"), counted<TdmCount>("tdm"),
    counted<SsmasCount>("ssmas"),    counted<MpcCount>("mpc"),           counted<TdmXmlCount>("tdm.xml"),
    counted<LightCurveCount>("mag"), counted<AavsoCount>("aavso"),
};

const CountedForm* formOf(std::string_view word)
{
    const auto* const form = std::find_if(std::begin(forms), std::end(forms),
                                          [word](const CountedForm& each) { return each.word == word; });
    return form == std::end(forms) ? nullptr : form;
}

} // namespace

std::optional<HeldMarks> heldMarks(const std::string& path, std::string_view word)
{
    const CountedForm* const form = formOf(word);
    const tavelinUtils::OpenFile file = tavelinUtils::openForReading(path);
    return form == nullptr || file == nullptr ? std::nullopt : form->ofFile(file.get());
}

std::string heldText(const HeldMarks& held)
{
    return counted(held.marks, "mark") + (held.isWhole ? "" : " and breaks off");
}

std::optional<HeldMarks> heldMarksOf(std::string_view bytes, std::string_view word)
{
    const CountedForm* const form = formOf(word);
    return form == nullptr ? std::nullopt : std::optional(form->ofBytes(bytes));
}

} // namespace companion
