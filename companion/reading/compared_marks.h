// Compared marks: the marks of a file as they are held against those of another, in little room.

#pragma once

#include "reading/true_reading.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace companion {

/// Texts that many marks have, each once. The number 0 is the empty text.
class SharedTexts
{
public:
    SharedTexts();

    /// The number of a text, which is the same whenever the text is.
    std::uint32_t numberOf(const std::string& text);
    /// The text of a number.
    const std::string& text(std::uint32_t number) const
    {
        return *texts[number];
    }
    /// How many texts there are.
    std::size_t size() const
    {
        return texts.size();
    }

private:
    std::unordered_map<std::string, std::uint32_t> numbers{};
    std::vector<const std::string*> texts{};
};

/// The names of objects. A designation is one object in all its forms: "K24Y04R" is "2024 YR4". The number 0
/// is the empty name.
class ObjectNames
{
public:
    ObjectNames();

    /// The number of the object that has a name.
    std::uint32_t numberOf(const std::string& name);
    /// The name that an object had first.
    const std::string& text(std::uint32_t number) const
    {
        return *names[number];
    }
    /// How many objects there are.
    std::size_t size() const
    {
        return names.size();
    }
    /// The place of each number's name in the order of bytes.
    std::vector<std::uint32_t> order() const;

private:
    std::unordered_map<std::string, std::uint32_t> numbers{};      // by names
    std::unordered_map<std::string, std::uint32_t> designations{}; // by their usual form
    std::vector<const std::string*> names{};
};

/// What marks of both files refer to.
struct ComparedTexts
{
    ObjectNames objects{};
    SharedTexts others{}; ///< stations, frames, bands
};

/// A mark.
struct ComparedMark
{
    std::int64_t day;      ///< MJD; unknownDay for a time that is no number
    double fraction;       ///< of the day
    double RA;             ///< degrees
    double DE;             ///< degrees
    double magnitude;      ///< 0 where there is none
    std::uint32_t object;  ///< of ComparedTexts::objects
    std::uint32_t station; ///< of ComparedTexts::others, as those that follow
    std::uint32_t frame;   ///< 0 where the format does not tell it
    std::uint32_t band;    ///< 0 where the file does not tell it
    std::uint32_t line;    ///< of the file

    static constexpr std::int64_t unknownDay = 1'000'000'000'000;

    /// Whether the mark has a magnitude; 0 stands for none.
    bool hasMagnitude() const
    {
        return magnitude != 0.0;
    }
    /// The time as a Modified Julian Date.
    double moment() const
    {
        return static_cast<double>(day) + fraction;
    }
};

/// By how many seconds the second of two marks is later.
inline double secondsBetween(const ComparedMark& a, const ComparedMark& b)
{
    constexpr double secondsOfDay = 86400;
    return (static_cast<double>(b.day - a.day) + (b.fraction - a.fraction)) * secondsOfDay;
}

/// What the stations of a format are.
enum class StationKind
{
    none,
    telescope, ///< a name, which may be a code
    code       ///< of an observatory
};

/// What a format says of a mark, besides its object, time and magnitude.
struct ComparedForm
{
    std::string_view format;
    bool hasPlaces;
    bool hasBands;
    bool hasFrames;
    bool hasEnsemble; ///< of two magnitudes the one that AAVSO reports have
    StationKind stations;
};

/// What a format says; a null pointer for one without marks that can be compared.
const ComparedForm* comparedForm(std::string_view format);

/// Reads a file of any of these formats, as readAsMeant does. Throws WrongUsage (V003) also where a reader
/// gives up.
TrueOutcome readMarks(const std::string& path, const ComparedForm& form,
                      const std::function<void(TrueTrack&)>& use);

/// Gathers the marks of a file in their order, from its tracks.
class MarkGathering
{
public:
    /// Of a file of a form that is held against one of another form.
    MarkGathering(const ComparedForm& ofFile, const ComparedForm& ofOther, ComparedTexts& sharedTexts)
        : form(ofFile), takesEnsemble(form.hasEnsemble && ofOther.format == "aavso"), texts(sharedTexts)
    {
    }

    /// Takes the next track.
    void add(const TrueTrack& track);

    std::vector<ComparedMark> marks{};

private:
    std::uint32_t bandOf(const std::string& text);

    const ComparedForm& form;
    bool takesEnsemble;
    ComparedTexts& texts;
    std::uint32_t lastBand = 0;
};

} // namespace companion
