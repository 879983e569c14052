#include "reading/compared_marks.h"

#include "reading/ades_reading.h"
#include "reading/brightness_reading.h"
#include "reading/track_names.h"
#include "receivers/designation_forms.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iterator>
#include <numeric>

namespace companion {
namespace {

using tavelinUtils::TRecLabelPervichka_File;

constexpr ComparedForm forms[] = {
    {"mea", true, false, false, false, StationKind::telescope},
    {"telegram", true, false, false, false, StationKind::telescope},
    {"tdm", true, false, true, false, StationKind::telescope},
    {"ssmas", true, false, false, false, StationKind::telescope},
    {"mpc", true, true, false, false, StationKind::code},
    {"tdm.xml", true, false, true, false, StationKind::telescope},
    {"mag", false, false, false, true, StationKind::none},
    {"aavso", false, true, false, true, StationKind::none},
    {"table", true, true, false, true, StationKind::none},
    {"ades.xml", true, true, false, false, StationKind::code},
    {"ades.psv", true, true, false, false, StationKind::code},
    {"horizons", true, false, false, false, StationKind::none},
};

// Date and time, of which the time may be of another day.
void setMoment(const TRecLabelPervichka_File& record, ComparedMark& mark)
{
    constexpr double longest = 1e9; // days
    const double time = record.time;
    const double days = std::floor(time);
    const bool isKnown = std::abs(time) < longest; // not of nan
    mark.day = isKnown ? record.date + static_cast<std::int64_t>(days) : ComparedMark::unknownDay;
    mark.fraction = isKnown ? time - days : 0.0;
}

} // namespace

SharedTexts::SharedTexts()
{
    numberOf("");
}

std::uint32_t SharedTexts::numberOf(const std::string& text)
{
    const auto [place, isNew] = numbers.try_emplace(text, static_cast<std::uint32_t>(texts.size()));
    if (isNew) {
        texts.push_back(&place->first);
    }
    return place->second;
}

ObjectNames::ObjectNames()
{
    numberOf("");
}

std::uint32_t ObjectNames::numberOf(const std::string& name)
{
    const auto [place, isNew] = numbers.try_emplace(name, static_cast<std::uint32_t>(names.size()));
    if (!isNew) {
        return place->second;
    }
    if (const auto designation = designationOf(name)) {
        const std::string& usual =
            designation->number.empty() ? designation->provisional : designation->number;
        place->second = designations.try_emplace(usual, place->second).first->second;
    }
    if (place->second == names.size()) {
        names.push_back(&place->first);
    }
    return place->second;
}

std::vector<std::uint32_t> ObjectNames::order() const
{
    std::vector<std::uint32_t> sorted(names.size());
    std::iota(sorted.begin(), sorted.end(), 0U);
    std::sort(sorted.begin(), sorted.end(),
              [this](std::uint32_t a, std::uint32_t b) { return *names[a] < *names[b]; });
    std::vector<std::uint32_t> places(names.size());
    for (std::size_t place = 0; place < sorted.size(); ++place) {
        places[sorted[place]] = static_cast<std::uint32_t>(place);
    }
    return places;
}

const ComparedForm* comparedForm(std::string_view format)
{
    const auto* const row =
        std::find_if(std::begin(forms), std::end(forms),
                     [format](const ComparedForm& each) { return each.format == format; });
    return row == std::end(forms) ? nullptr : row;
}

TrueOutcome readMarks(const std::string& path, const ComparedForm& form,
                      const std::function<void(TrueTrack&)>& use)
{
    if (isOfBrightness(form.format)) {
        return readBrightness(path, form.format, use);
    }
    if (isAdes(form.format)) {
        return readAdes(path, form.format, use);
    }
    try {
        return readAsMeant(path, std::string(form.format), {}, use);
    } catch (const std::exception& why) {
        const std::string what = std::string("its reader gives up: ") + why.what();
        throw WrongUsage{finding("V003", {{"file", path}, {"what", what}})};
    }
}

// Neighbouring marks mostly have one band.
std::uint32_t MarkGathering::bandOf(const std::string& text)
{
    if (text != texts.others.text(lastBand)) {
        lastBand = texts.others.numberOf(text);
    }
    return lastBand;
}

void MarkGathering::add(const TrueTrack& track)
{
    ComparedMark mark{};
    mark.object = texts.objects.numberOf(objectOf(track.track));
    mark.station = texts.others.numberOf(track.station);
    mark.frame = form.hasFrames ? texts.others.numberOf(track.track.REFERENCE_FRAME) : 0;
    for (std::size_t place = 0; place < track.track.Marks.size(); ++place) {
        const TRecLabelPervichka_File& record = track.track.Marks[place];
        const TrueMark& info = track.marks[place];
        setMoment(record, mark);
        mark.RA = record.RA;
        mark.DE = record.DE;
        mark.magnitude = takesEnsemble ? record.mEnsemble : info.hasMagnitude ? record.m : 0.0;
        mark.band = info.hasBand ? bandOf(record.filtr) : 0;
        mark.line = static_cast<std::uint32_t>(info.line);
        marks.push_back(mark);
    }
}

} // namespace companion
