#include "task/lost_digits.h"

#include "out/text.h"
#include "reading/format_facts.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <cmath>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace companion {
namespace {

using Mark = TRecLabelPervichka_File;

// A value of marks in the unit of the input, and what the output keeps of it.
struct Value
{
    std::string name;
    double Mark::*field;
    double units;     // of the input, in one of the field
    double inputStep; // that each value has at least; 0 where values have as many digits as they like
    double step;      // of the output, in units of the input
    int mostDecimals; // that are looked for
    double noise;     // of calculation, in units of the input
    double (*kept)(double field) = nullptr; // where the output is not the nearest step
    bool loses = false;                     // in some mark
};

// The distance to the nearest whole number; 0 for one that is too large to have a fraction.
double fractionOf(double number)
{
    constexpr double shift = 0x1.8p52; // the sum with it has no fraction
    return std::abs(number - (number + shift - shift));
}

// The place of the last digit of a number other than 0.
double lastPlace(double number, const Value& value)
{
    double scale = 1.0;
    for (int decimals = 0; decimals < value.mostDecimals; ++decimals) {
        if (fractionOf(number * scale) < value.noise * scale) {
            break;
        }
        scale *= 10.0;
    }
    return 1.0 / scale;
}

// How far the output is off, in units of the input.
double errorOf(double field, double number, const Value& value)
{
    if (value.kept != nullptr) {
        return std::abs(value.kept(field) - field) * value.units;
    }
    return fractionOf(number / value.step) * value.step;
}

// A time as MEA gives it: cut, so that one of a millisecond may come out as the millisecond before it.
double timeOfMea(double time)
{
    if (!std::isfinite(time)) {
        return time;
    }
    char text[sexagesimalRoom];
    char* end = writeTimeMEA(text, time, 3, false);
    *end++ = '0';
    return packedTime({text, static_cast<std::size_t>(end - text)});
}

// Whether the number that the output gives would be another one with the digits of the input.
bool losesDigits(const Mark& mark, const Value& value)
{
    const double number = mark.*value.field * value.units;
    const double error = errorOf(mark.*value.field, number, value);
    const bool isOff = error > value.noise;
    return isOff &&
           ((value.inputStep > 0 && error > value.inputStep / 2) || error > lastPlace(number, value) / 2);
}

// Which magnitudes a format has.
std::vector<double Mark::*> magnitudesOf(std::string_view word)
{
    if (word == "aavso") {
        return {&Mark::mEnsemble};
    }
    if (word == "mag") {
        return {&Mark::m, &Mark::mEnsemble, &Mark::mInstr, &Mark::mInstr1000, &Mark::mInstrComp};
    }
    return {&Mark::m};
}

// Angles in degrees may have any number of digits, those in hours and degrees of seconds have that of the
// format.
std::vector<Value> valuesOf(const FormatFacts& input, const FormatFacts& output)
{
    constexpr double secondsOfDay = 86400;
    constexpr double arcseconds = 3600; // in a degree
    constexpr double timeSeconds = 240; // the same
    const bool inDegrees = input.name == "tdm" || input.name == "table";
    const int decimals = inDegrees ? 10 : 7;
    const double noise = inDegrees ? 2e-11 : 2e-8;
    const auto angle = [&](const char* name, double Mark::*field, double units, double inputStep,
                           double step) {
        units = inDegrees ? 1 : units;
        const double factor = units / arcseconds;
        return Value{name, field, units, inDegrees ? 0 : inputStep * factor, step * factor, decimals, noise};
    };
    std::vector<Value> values{
        {"time", &Mark::time, secondsOfDay, input.timeStep, output.timeStep, 7, 2e-8},
        angle("right ascension", &Mark::RA, timeSeconds, input.rightAscensionStep, output.rightAscensionStep),
        angle("declination", &Mark::DE, arcseconds, input.declinationStep, writtenDeclinationStep(output)),
    };
    for (double Mark::*const field : magnitudesOf(output.name)) {
        values.push_back({"magnitude", field, 1, input.magnitudeStep, output.magnitudeStep, 8, 1e-9});
    }
    if (output.name == "mea") {
        values.front().kept = timeOfMea;
    }
    std::erase_if(values, [](const Value& each) { return each.step == 0; }); // those that it does not have
    return values;
}

// "time, declination and magnitude".
std::string namesOf(const std::vector<Value>& values)
{
    std::vector<std::string> names;
    for (const Value& each : values) {
        if (each.loses && (names.empty() || names.back() != each.name)) {
            names.push_back(each.name);
        }
    }
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return text;
}

} // namespace

struct LostDigits::State
{
    std::vector<Value> values{};
    std::size_t marks = 0;
    std::size_t losing = 0;
};

LostDigits::LostDigits(std::string_view input, std::string_view output) : state(new State)
{
    const FormatFacts* const from = formatFacts(input == "vomar" ? "table" : input);
    const FormatFacts* const to = formatFacts(output);
    if (from != nullptr && to != nullptr) {
        state->values = valuesOf(*from, *to);
    }
}

LostDigits::~LostDigits() = default;

void LostDigits::see(const TrackVtorichka& track)
{
    state->marks += track.Marks.size();
    for (const Mark& mark : track.Marks) {
        bool loses = false;
        for (Value& value : state->values) {
            const bool isKnown = loses && value.loses; // nothing more can come of it
            if (!isKnown && losesDigits(mark, value)) {
                value.loses = true;
                loses = true;
            }
        }
        state->losing += loses ? 1 : 0;
    }
}

std::optional<Finding> LostDigits::found() const
{
    if (state->losing == 0) {
        return std::nullopt;
    }
    return finding("V075", {{"some", counted(state->losing)},
                            {"marks", counted(state->marks, "mark")},
                            {"digits", "digits of " + namesOf(state->values)}})
        .times(state->losing);
}

} // namespace companion
