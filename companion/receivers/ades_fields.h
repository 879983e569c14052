// ADES fields: ADES 2022 as it may be submitted, as a table: the elements of an observation and of what is
// said about all observations of a block, with their order, types, lengths and words.
//
//   const AdesField* field = adesField("mag");
//   adesTakes(*field->type, "18.53")              // true
//   adesWordState(*adesField("band")->words, "C") // AdesWordState::refused
//
// Rules and XML schema come from these rows. Observations other than optical ones are not described.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace companion {

/// What the text of an element stands for.
enum class AdesKind
{
    text,    ///< blanks at its ends belong to it
    decimal, ///< a number without an exponent
    number,  ///< a number that may have an exponent
    integer,
    time ///< a moment in UTC, which may lie in a leap second
};

/// A type of element: the form of its text, as a regular expression of XML Schema, its width and its range.
/// Blanks around anything but a text do not count.
struct AdesType
{
    const char* name;    ///< "positive6": what the XML schema calls it
    AdesKind kind;       ///< what it stands for
    const char* pattern; ///< the whole text fits it
    std::size_t longest; ///< characters
    bool signIsWide;     ///< a place of the width is the sign's, whether it is written or not
    const char* least;   ///< the lower bound; null where there is none
    const char* most;    ///< the upper bound; null where there is none
    bool takesLeast;     ///< whether the lower bound itself is taken
    bool takesMost;      ///< whether the upper bound itself is taken
    const char* rule;    ///< in words: "at most 25 characters, no |, not blank"
};

/// The words of an element, with blanks between them.
struct AdesWords
{
    const char* forNewWork;
    const char* historic; ///< listed, but not for new observations
    const char* refused;  ///< listed, but not to be sent
    bool isLetters;       ///< each letter of the element is a word of its own
};

/// Whether an element must be there.
enum class AdesNeed
{
    demanded,
    optional,
    identification,  ///< as an alternative of adesIdentifications says
    location,        ///< all of them or none; only for stations without a fixed place
    locationDetail,  ///< only beside the location
    photometry,      ///< all of them or none
    photometryDetail ///< only beside the photometry
};

/// An element of an optical observation.
struct AdesField
{
    const char* name;
    AdesNeed need;
    const AdesType* type;
    const char* unit;       ///< empty where it has none
    const AdesWords* words; ///< null where any text of the type is taken
    const char* meaning;
};

/// An element of a block's context.
struct AdesContextField
{
    const char* parent; ///< obsContext, or a child of it
    const char* name;
    bool demanded;        ///< where its parent is there
    bool repeated;        ///< may come several times
    const AdesType* type; ///< null where it holds elements
};

/// How a word stands to the list of its element.
enum class AdesWordState
{
    forNewWork,
    historic, ///< accepted, but not for new observations
    refused,  ///< listed, and not to be sent
    unlisted
};

/// The version that a document states.
inline constexpr std::string_view adesVersion = "2022";

/// The elements of an optical observation, in the order that is demanded.
std::span<const AdesField> adesOptical();

/// The elements of a context, each behind its parent and in the order of the description; any order is taken.
std::span<const AdesContextField> adesContext();

/// The ways to identify the object: each is a list of elements in their order, with blanks between; those
/// with a question mark may be left out. An observation has the elements of exactly one of them.
std::span<const char* const> adesIdentifications();

/// Elements that ADES knows and a submission may not have.
std::span<const char* const> adesNotForSubmission();

/// The days of the past whose last minute has a leap second; behind the last of them each 30 June and 31
/// December may have one.
std::span<const char* const> adesLeapDays();

/// The element of an optical observation with a name; a null pointer where there is none.
const AdesField* adesField(std::string_view name);

/// The element of a context with a parent and a name; a null pointer where there is none.
const AdesContextField* adesContextField(std::string_view parent, std::string_view name);

/// Whether a type takes a text: form, width, range and, of a moment, the calendar. Words are not looked at.
bool adesTakes(const AdesType& type, std::string_view text);

/// How a word stands to a list. Of a list of letters each letter counts, and the worst of them decides.
AdesWordState adesWordState(const AdesWords& words, std::string_view word);

/// The pattern of moments in a leap second, as a regular expression of XML Schema.
std::string adesLeapSecondPattern();

} // namespace companion
