#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "formats/mpc_report.h"
#include "out/characters.h"
#include "reading/line_menders.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

namespace companion {

using tavelinUtils::cutIfThere;
using tavelinUtils::Field;

namespace {

constexpr std::string_view magnitudePut = "magnitudes below 0";
constexpr std::string_view columnsPut = "fields in their columns, with the sign of a declination";
constexpr std::string_view signPut = "the sign of a declination in column 45, which is blank";

// A magnitude below 0 as the tool writes it, 0-1.2.
bool isBelowZero(std::string_view magnitude)
{
    return magnitude.size() > 2 && magnitude.starts_with("0-") && isDigit(magnitude[2]);
}

class SsmasMender final : public LineMender
{
public:
    explicit SsmasMender(MendUse wantedUse) : use(wantedUse)
    {
    }

    bool mend(std::string_view line, std::string& out, MendNotes& notes) override
    {
        std::array<std::string_view, 7> words;
        const std::size_t count = tavelinUtils::cutParts(line, ' ', words);
        if (count != words.size() || !words[2].empty()) {
            out += line;
            return true;
        }
        const auto startOf = [line](std::string_view word) {
            return static_cast<std::size_t>(word.data() - line.data());
        };
        const std::string_view declination = words[4];
        const std::string_view magnitude = words.back();
        out += line.substr(0, startOf(declination));
        out += use == MendUse::reading ? withColons(declination) : std::string(declination);
        const std::size_t next = startOf(declination) + declination.size();
        out += line.substr(next, startOf(magnitude) - next);
        if (isBelowZero(magnitude)) {
            notes.mended(magnitudePut, magnitude);
        }
        out += magnitude.substr(isBelowZero(magnitude) ? 1 : 0);
        return true;
    }

private:
    // Of four parts with points the reader takes three; of three with colons it takes the decimals too.
    static std::string withColons(std::string_view declination)
    {
        std::string text(declination);
        if (std::count(text.begin(), text.end(), '.') == 3) {
            text[text.find('.')] = ':';
            text[text.find('.')] = ':';
        }
        return text;
    }

    MendUse use;
};

constexpr std::size_t lineLength = 80;
constexpr Field frontField{1, 14};
constexpr Field note2{15, 1};
constexpr std::size_t dateColumn = 16;
constexpr Field declinationSign{45, 1};
constexpr Field declination{46, 10};

// The widths of what is behind the declination of an observation.
constexpr std::size_t unsetWidth = 9;
constexpr std::size_t magnitudeWidth = 5;
constexpr std::size_t bandWidth = 7;
constexpr std::size_t codeWidth = 3;

// Whether a text has the form: 0 for a digit, all others for themselves.
bool hasForm(std::string_view text, std::string_view form)
{
    return text.size() == form.size() &&
           std::equal(text.begin(), text.end(), form.begin(),
                      [](char c, char wanted) { return wanted == '0' ? isDigit(c) : c == wanted; });
}

// The parts of an observation as the tool writes it, whose fields move where one of them is wider or narrower
// than its columns.
struct OwnObservation
{
    std::string_view front; // name and notes
    std::string_view date;
    std::string_view RA;
    std::string_view DE; // with its sign, if it has one
    std::string_view magnitude;
    std::string_view band;
    std::string_view code;
};

// Reads one; false for a line of another form.
bool readOwn(std::string_view line, OwnObservation& own)
{
    constexpr std::string_view dateForm = "0000 00 00.00000 ";
    constexpr std::string_view raForm = "00 00 00.00 ";
    constexpr std::string_view deForm = "00 00 00.0 ";
    own.front = cutIfThere(line, {frontField.first, frontField.width + note2.width});
    if (!own.front.ends_with("  C")) {
        return false;
    }
    line.remove_prefix(own.front.size());
    const auto take = [&line](std::size_t size) {
        const std::string_view part = line.substr(0, size);
        line.remove_prefix(part.size());
        return part;
    };
    own.date = take(dateForm.size());
    own.RA = take(raForm.size());
    own.DE = take(deForm.size() + (line.starts_with('-') ? 1 : 0));
    const bool hasForms = hasForm(own.date, dateForm) && hasForm(own.RA, raForm) &&
                          hasForm(own.DE.substr(own.DE.starts_with('-') ? 1 : 0), deForm) &&
                          take(unsetWidth).find_first_not_of(' ') == std::string_view::npos;
    own.magnitude = take(line.find(' '));
    take(1);
    own.band = take(bandWidth);
    own.code = line;
    return hasForms && own.band.size() == bandWidth && own.code.size() == codeWidth &&
           own.magnitude.size() <= magnitudeWidth && own.magnitude.find('.') != std::string_view::npos;
}

std::string inColumns(const OwnObservation& own)
{
    const std::string pad = own.DE.starts_with('-') ? "" : "+";
    const bool isNegative = isBelowZero(own.magnitude);
    std::string magnitude = (isNegative ? " " : "") + std::string(own.magnitude.substr(isNegative ? 1 : 0));
    magnitude.resize(magnitudeWidth, ' ');
    std::string line(own.front);
    line.append(own.date).append(own.RA).append(pad).append(own.DE).append(unsetWidth, ' ');
    return line.append(magnitude).append(own.band).append(own.code);
}

// The column of an observation's date, which a wide name moves; 0 where there is none.
std::size_t dateColumnOf(std::string_view line)
{
    constexpr std::size_t shortest = 70;
    constexpr std::size_t farthest = 32;
    constexpr std::string_view form = "0000 00 00.";
    for (std::size_t column = 1; line.size() >= shortest && column <= farthest; ++column) {
        if (hasForm(line.substr(column - 1, form.size()), form)) {
            return column;
        }
    }
    return 0;
}

class MpcMender final : public LineMender
{
public:
    explicit MpcMender(MendUse wantedUse) : use(wantedUse)
    {
    }

    bool mend(std::string_view line, std::string& out, MendNotes& notes) override
    {
        const std::size_t date = dateColumnOf(line);
        const bool isObservation = line.size() == lineLength && date == dateColumn;
        if (isObservation && isOther(line)) {
            return mendOther(line, out, notes);
        }
        const bool isInColumns =
            line.size() == lineLength && (date == 0 || isObservation) && !hasDigitForSign(line);
        OwnObservation own;
        if (!isInColumns && readOwn(line, own)) {
            out += inColumns(own);
            notes.mended(columnsPut, line);
            return true;
        }
        if (isObservation && cutIfThere(line, declinationSign) == " ") {
            return mendSign(line, out, notes);
        }
        if (use == MendUse::reading && !isInColumns && date != 0) {
            refuse(line, notes);
            return false;
        }
        out += line;
        return true;
    }

private:
    static bool hasDigitForSign(std::string_view line)
    {
        return areDigits(cutIfThere(line, declinationSign));
    }

    // A second line of an observation, a radar echo and an observation that another one replaces are no
    // marks.
    static bool isOther(std::string_view line)
    {
        constexpr std::string_view otherNotes = "svrRXx";
        return otherNotes.find(tavelinUtils::cut(line, note2)) != std::string_view::npos;
    }

    bool mendOther(std::string_view line, std::string& out, MendNotes& notes) const
    {
        if (use == MendUse::reading) {
            notes.skipped("places of observers, radar echoes and replaced observations");
            return false;
        }
        out += line;
        return true;
    }

    // The declination of a line whose column 45 is blank: north where its digits are in their columns.
    static bool mendSign(std::string_view line, std::string& out, MendNotes& notes)
    {
        if (hasForm(cutIfThere(line, declination), "00 00 00.0")) {
            const std::size_t sign = declinationSign.first - 1;
            out.append(line.substr(0, sign)).append("+").append(line.substr(sign + 1));
            notes.mended(signPut, tavelinUtils::cut(line, declination));
            return true;
        }
        refuse(line, notes);
        return false;
    }

    static void refuse(std::string_view line, MendNotes& notes)
    {
        notes.refused(finding("V195", {{"n", std::to_string(line.size())}}), line);
    }

    MendUse use;
};

} // namespace

std::unique_ptr<LineMender> ssmasMender(MendUse use)
{
    return std::make_unique<SsmasMender>(use);
}

std::unique_ptr<LineMender> mpcMender(MendUse use)
{
    return std::make_unique<MpcMender>(use);
}

} // namespace companion
