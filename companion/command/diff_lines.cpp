#include "command/diff_lines.h"

#include "base/numbers.h"
#include "out/text.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace companion {
namespace {

constexpr std::size_t widestObject = 24;

// The finer of two steps; one that is not known is as fine as it likes.
double finer(double a, double b)
{
    return a > 0 && b > 0 ? std::min(a, b) : std::max(a, b);
}

// How many decimals show a tolerance, or where there is none the digits of the finer format.
int decimalsOf(double tolerance, double step)
{
    constexpr int most = 9;
    constexpr int usual = 6;
    const double shown = tolerance > 0 ? tolerance : step;
    if (!(shown > 0)) {
        return usual;
    }
    return std::clamp(static_cast<int>(std::ceil(-std::log10(shown) - 1e-9)), 0, most);
}

// A number that differs is never shown as 0.
std::string numberText(double value, int decimals, bool isBeyond)
{
    std::string text = tavelinUtils::Str9(value, decimals);
    if (text.find_first_of("123456789in") != text.npos) { // "inf" and "nan" too
        return text;
    }
    return isBeyond ? tavelinUtils::FloatToStr(value) : "";
}

std::string withSign(const std::string& text)
{
    return text.empty() || text[0] == '-' ? text : '+' + text;
}

std::string magnitudeOrNone(double magnitude, int decimals)
{
    return magnitude == 0.0 ? "none" : tavelinUtils::Str9(magnitude, decimals);
}

std::string wordOrNone(const std::string& word)
{
    return word.empty() ? "none" : printable(word);
}

Json wordJson(const std::string& word)
{
    return word.empty() ? Json() : Json(word);
}

Json bothJson(const std::string& a, const std::string& b)
{
    return Json::list().push(wordJson(a)).push(wordJson(b));
}

char signOf(const ComparedPair& pair)
{
    if (pair.b == nullptr) {
        return '-';
    }
    return pair.a == nullptr ? '+' : pair.isEqual() ? ' ' : '*';
}

const char* stateOf(const ComparedPair& pair)
{
    switch (signOf(pair)) {
    case '-': return "only in a";
    case '+': return "only in b";
    case '*': return "differs";
    default: return "equal";
    }
}

std::string timeOf(const ComparedMark& mark)
{
    const std::string text = momentText(mark.moment());
    return text.empty() ? "?" : text;
}

std::size_t widthOf(const ObjectNames& objects)
{
    std::size_t width = 0;
    for (std::uint32_t number = 0; number < objects.size(); ++number) {
        width = std::max(width, std::min(widestObject, printable(objects.text(number)).size()));
    }
    return width;
}

} // namespace

DiffLines::DiffLines(const FormatFacts& a, const FormatFacts& b, const MarkTolerance& allowed,
                     const ComparedTexts& sharedTexts)
    : tolerance(allowed), texts(sharedTexts), width(widthOf(texts.objects)),
      timeDecimals(decimalsOf(tolerance.time, finer(a.timeStep, b.timeStep))),
      angleDecimals(
          decimalsOf(tolerance.angleAt(0), finer(writtenDeclinationStep(a), writtenDeclinationStep(b)))),
      magnitudeDecimals(decimalsOf(tolerance.magnitude, finer(a.magnitudeStep, b.magnitudeStep)))
{
}

std::string DiffLines::difference(const ComparedPair& pair) const
{
    const MarkDifference& found = pair.difference;
    std::string text;
    const auto add = [&text](const std::string& name, const std::string& value, const char* unit) {
        text += value.empty() ? "" : "  " + name + value + unit;
    };
    add("time ", withSign(numberText(found.time, timeDecimals, false)), " s");
    add("angle ", numberText(found.angle, angleDecimals, found.inAngle), "\"");
    add("magnitude ", withSign(numberText(found.magnitude, magnitudeDecimals, found.inMagnitude)), "");
    if (found.inKnownMagnitude) {
        add("magnitude ",
            magnitudeOrNone(pair.a->magnitude, magnitudeDecimals) + ", " +
                magnitudeOrNone(pair.b->magnitude, magnitudeDecimals),
            "");
    }
    return text + words(pair);
}

std::string DiffLines::words(const ComparedPair& pair) const
{
    std::string text;
    const auto add = [this, &text](const char* name, std::uint32_t a, std::uint32_t b) {
        text += std::string("  ") + name + ' ' + wordOrNone(other(a)) + ", " + wordOrNone(other(b));
    };
    if (pair.difference.inBand) {
        add("band", pair.a->band, pair.b->band);
    }
    if (pair.difference.inStation) {
        add("station", pair.a->station, pair.b->station);
    }
    if (pair.difference.inFrame) {
        add("frame", pair.a->frame, pair.b->frame);
    }
    return text;
}

std::string DiffLines::text(const ComparedPair& pair) const
{
    const ComparedMark& mark = pair.mark();
    std::string object = printable(texts.objects.text(mark.object));
    object.resize(std::max(width, object.size()), ' ');
    std::string line = {signOf(pair), ' '};
    line += object + ' ' + timeOf(mark);
    return pair.a != nullptr && pair.b != nullptr && !pair.isEqual() ? line + difference(pair) : line;
}

Json DiffLines::json(const ComparedPair& pair) const
{
    constexpr int finerDecimals = 3;
    const auto rounded = [](double value, int decimals) {
        return Json(tavelinUtils::roundedTo(value, decimals + finerDecimals) + 0.0); // no -0
    };
    const ComparedMark& mark = pair.mark();
    const MarkDifference& found = pair.difference;
    Json object = Json::object();
    object.set("state", stateOf(pair));
    setBytes(object, "object", texts.objects.text(mark.object));
    object.set("time", timeOf(mark));
    object.set("lines", Json::list()
                            .push(pair.a == nullptr ? Json() : Json(pair.a->line))
                            .push(pair.b == nullptr ? Json() : Json(pair.b->line)));
    if (pair.a == nullptr || pair.b == nullptr || pair.isEqual()) {
        return object;
    }
    object.set("later", rounded(found.time, timeDecimals)).set("angle", rounded(found.angle, angleDecimals));
    object.set("fainter", rounded(found.magnitude, magnitudeDecimals));
    if (found.inKnownMagnitude) {
        const auto known = [](double magnitude) { return magnitude == 0.0 ? Json() : Json(magnitude); };
        object.set("magnitudes", Json::list().push(known(pair.a->magnitude)).push(known(pair.b->magnitude)));
    }
    if (found.inBand) {
        object.set("bands", bothJson(other(pair.a->band), other(pair.b->band)));
    }
    if (found.inStation) {
        object.set("stations", bothJson(other(pair.a->station), other(pair.b->station)));
    }
    if (found.inFrame) {
        object.set("frames", bothJson(other(pair.a->frame), other(pair.b->frame)));
    }
    return object;
}

std::string DiffLines::toleranceText() const
{
    const auto text = [](double value, int decimals) { return tavelinUtils::Str9(value, decimals + 1); };
    return text(tolerance.time, timeDecimals) + " s, " + text(tolerance.angleAt(0), angleDecimals) + "\", " +
           text(tolerance.magnitude, magnitudeDecimals);
}

Json DiffLines::toleranceJson() const
{
    constexpr int decimals = 9;
    const auto number = [](double value) { return Json(tavelinUtils::roundedTo(value, decimals)); };
    return Json::object()
        .set("time", number(tolerance.time))
        .set("angle", number(tolerance.angleAt(0)))
        .set("magnitude", number(tolerance.magnitude));
}

} // namespace companion
