#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "out/text.h"
#include "reading/line_menders.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

namespace companion {
namespace {

constexpr std::size_t withoutDecimals = 6; // HHMMSS
constexpr std::size_t wordsOfLongestMark = 7;

constexpr std::string_view signPut = "a plus sign in front of declinations";
constexpr std::string_view tenPut = "seconds rounded up to 10";
constexpr std::string_view blanksPut = "one blank between words";
constexpr std::string_view magnitudePut = "tenths of magnitudes";

bool isSigned(std::string_view text)
{
    return text.starts_with('+') || text.starts_with('-');
}

std::vector<std::string_view> wordsOf(std::string_view line)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    std::vector<std::string_view> words;
    words.reserve(wordsOfLongestMark);
    const char* at = std::find_if_not(line.begin(), line.end(), isBlank);
    while (at != line.end()) {
        const char* const end = std::find_if(at, line.end(), isBlank);
        words.emplace_back(at, static_cast<std::size_t>(end - at));
        at = std::find_if_not(end, line.end(), isBlank);
    }
    return words;
}

// Where the numbers of a mark are among its words, and with how many decimals the tool writes them. A time
// without decimals here is one whose seconds are cut and never rounded up.
struct PackedForm
{
    std::size_t words;
    std::size_t time;
    std::size_t RA;
    std::size_t DE;
    std::size_t decimalsOfTime;
    std::size_t decimals;
};
constexpr PackedForm meaForm{7, 2, 3, 4, 0, 4};
constexpr PackedForm telegramForm{5, 1, 2, 3, 2, 2};

// A writer whose seconds come to 10 by rounding puts the zero of shorter ones in front of them: 01000 for
// 10.00. One that has a decimal more writes the same text for a second.
bool looksLikeTen(std::string_view digits, std::size_t decimals)
{
    const std::size_t size = 3 + decimals;
    return decimals > 0 && digits.size() == withoutDecimals + decimals + 1 &&
           digits.substr(digits.size() - size, 2) == "01" &&
           digits.substr(digits.size() - size + 2).find_first_not_of('0') == std::string_view::npos;
}

// Why a text without a sign is no declination; empty where it is one.
std::string faultOf(std::string_view digits, const PackedForm& form)
{
    constexpr int pole = 90;
    const std::size_t wanted = withoutDecimals + form.decimals;
    if (!areDigits(digits) || digits.size() != wanted) {
        return "has no sign, and is not of " + std::to_string(wanted) + " digits";
    }
    return tavelinUtils::toInt(digits.substr(0, 2)) > pole ? "is outside -90 to 90" : "";
}

// Whether the numbers of a file have the decimals of the tool's own: the first one tells that looks like
// nothing else.
class OwnDecimals
{
public:
    OwnDecimals(const PackedForm& packedForm, std::string_view text)
    {
        const std::array<std::pair<std::size_t, std::size_t>, 3> fields{
            {{packedForm.time, packedForm.decimalsOfTime},
             {packedForm.RA, packedForm.decimals},
             {packedForm.DE, packedForm.decimals}}};
        tavelinUtils::forEachLine(text, [&](std::string_view line) {
            const bool isOpen = std::find(known.begin(), known.end(), Known::not_yet) != known.end();
            if (!isOpen) {
                return;
            }
            const std::vector<std::string_view> words = wordsOf(line);
            if (words.size() != packedForm.words || !isTold(words[packedForm.DE], packedForm)) {
                return; // one that may be left out must not tell
            }
            for (std::size_t i = 0; i < fields.size(); ++i) {
                look(known[i], withoutSign(words[fields[i].first]), fields[i].second);
            }
        });
    }

    bool ofTime() const
    {
        return known[0] == Known::own;
    }
    bool ofRA() const
    {
        return known[1] == Known::own;
    }
    bool ofDE() const
    {
        return known[2] == Known::own;
    }

private:
    enum class Known
    {
        not_yet,
        own,
        other
    };

    static bool isTold(std::string_view declination, const PackedForm& packedForm)
    {
        return isSigned(declination) || faultOf(declination, packedForm).empty();
    }

    static void look(Known& field, std::string_view digits, std::size_t decimals)
    {
        if (field == Known::not_yet && areDigits(digits) && !looksLikeTen(digits, decimals)) {
            field = digits.size() == withoutDecimals + decimals ? Known::own : Known::other;
        }
    }

    std::array<Known, 3> known{};
};

// Another text for a part of a line.
struct Edit
{
    std::string_view part;
    std::string text;
};

void appendEdited(std::string_view line, std::span<const Edit> edits, std::string& out)
{
    std::size_t done = 0;
    for (const Edit& edit : edits) {
        const auto at = static_cast<std::size_t>(edit.part.data() - line.data());
        out += line.substr(done, at - done);
        out += edit.text;
        done = at + edit.part.size();
    }
    out += line.substr(done);
}

// Mends the words of marks.
class PackedMender
{
public:
    PackedMender(const PackedForm& packedForm, std::string_view text) : form(packedForm), own(form, text)
    {
    }

    // False for a mark whose declination is nothing that anybody can tell.
    bool mendMark(std::span<const std::string_view> words, std::vector<Edit>& edits, MendNotes& notes) const
    {
        mendTen(words[form.time], form.decimalsOfTime, own.ofTime(), edits, notes);
        mendTen(words[form.RA], form.decimals, own.ofRA(), edits, notes);
        return mendDE(words[form.DE], edits, notes);
    }

private:
    static std::string withTen(std::string_view text, std::size_t decimals)
    {
        std::string mended(text);
        return mended.erase(mended.size() - 3 - decimals, 1);
    }

    static void mendTen(std::string_view word, std::size_t decimals, bool isOwn, std::vector<Edit>& edits,
                        MendNotes& notes)
    {
        const std::string_view digits = withoutSign(word);
        if (isOwn && areDigits(digits) && looksLikeTen(digits, decimals)) {
            edits.push_back({word, withTen(word, decimals)});
            notes.mended(tenPut, word);
        }
    }

    bool mendDE(std::string_view word, std::vector<Edit>& edits, MendNotes& notes) const
    {
        if (isSigned(word)) {
            mendTen(word, form.decimals, own.ofDE(), edits, notes);
            return true;
        }
        const bool isTen = own.ofDE() && areDigits(word) && looksLikeTen(word, form.decimals);
        const std::string digits = isTen ? withTen(word, form.decimals) : std::string(word);
        if (const std::string fault = faultOf(digits, form); !fault.empty()) {
            notes.refused(finding("V121", {{"value", '"' + std::string(word) + '"'}, {"problem", fault}}),
                          word);
            return false;
        }
        edits.push_back({word, '+' + digits});
        notes.mended(signPut, word);
        if (isTen) {
            notes.mended(tenPut, word);
        }
        return true;
    }

    const PackedForm& form;
    OwnDecimals own;
};

class MeaMender final : public LineMender
{
public:
    explicit MeaMender(std::string_view text) : packed(meaForm, text)
    {
    }

    bool mend(std::string_view line, std::string& out, MendNotes& notes) override
    {
        const std::vector<std::string_view> words = wordsOf(line);
        std::vector<Edit> edits;
        if (notes.number() > 1 && words.size() == meaForm.words) {
            mendTabs(line, edits, notes);
            if (!packed.mendMark(words, edits, notes)) {
                return false;
            }
            std::sort(edits.begin(), edits.end(),
                      [](const Edit& a, const Edit& b) { return a.part.data() < b.part.data(); });
        }
        appendEdited(line, edits, out);
        return true;
    }

private:
    static void mendTabs(std::string_view line, std::vector<Edit>& edits, MendNotes& notes)
    {
        for (std::size_t at = line.find('\t'); at != line.npos; at = line.find('\t', at + 1)) {
            if (edits.empty()) {
                notes.mended(blanksPut, line);
            }
            edits.push_back({line.substr(at, 1), " "});
        }
    }

    PackedMender packed;
};

// The third to fifth character of a magnitude's field are read, as tenths.
std::string magnitudeAsRead(std::string_view field)
{
    constexpr std::size_t front = 3;
    const std::string_view tenths = field.substr(std::min(front, field.size()));
    const bool isBelowZero = tenths.starts_with("0-") && areDigits(tenths.substr(2));
    if (isBelowZero && tenths.size() <= 2 + 2) {
        const std::string pad = tenths.size() == 3 ? "0" : "";
        return std::string(field.substr(0, front)) + '-' + pad + std::string(tenths.substr(2));
    }
    if (tenths.size() == 4 && tenths.starts_with("01") && areDigits(tenths)) {
        return std::string(field.substr(0, front)).append(tenths.substr(1));
    }
    return std::string(field);
}

class TelegramMender final : public LineMender
{
public:
    explicit TelegramMender(std::string_view text) : packed(telegramForm, text)
    {
    }

    bool mend(std::string_view line, std::string& out, MendNotes& notes) override
    {
        std::vector<std::string_view> words = wordsOf(line);
        const std::string spaced = joined(words, " ");
        const bool isHeadOrMark = words.size() == 3 || words.size() == telegramForm.words;
        const bool isEnd = words.size() == 1 && words.front() == "END";
        if ((isHeadOrMark || isEnd) && spaced != line) {
            notes.mended(blanksPut, line);
        } else if (spaced != line) {
            out += line;
            return true;
        }
        std::vector<Edit> edits;
        if (words.size() == telegramForm.words && !mendMark(words, edits, notes)) {
            return false;
        }
        append(words, edits, out);
        return true;
    }

private:
    bool mendMark(std::span<const std::string_view> words, std::vector<Edit>& edits, MendNotes& notes) const
    {
        const std::string_view magnitude = words.back();
        if (const std::string asRead = magnitudeAsRead(magnitude); asRead != magnitude) {
            edits.push_back({magnitude, asRead});
            notes.mended(magnitudePut, magnitude);
        }
        return packed.mendMark(words, edits, notes);
    }

    static void append(const std::vector<std::string_view>& words, const std::vector<Edit>& edits,
                       std::string& out)
    {
        const char* separator = "";
        for (const std::string_view word : words) {
            const auto edit = std::find_if(edits.begin(), edits.end(), [word](const Edit& each) {
                return each.part.data() == word.data();
            });
            out.append(separator).append(edit == edits.end() ? word : std::string_view(edit->text));
            separator = " ";
        }
    }

    PackedMender packed;
};

} // namespace

std::unique_ptr<LineMender> meaMender(std::string_view text)
{
    return std::make_unique<MeaMender>(text);
}

std::unique_ptr<LineMender> telegramMender(std::string_view text)
{
    return std::make_unique<TelegramMender>(text);
}

} // namespace companion
