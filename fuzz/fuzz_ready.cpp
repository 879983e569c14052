// Ready: whatever a file holds, the marks of a copy are those of the file less the refused ones, and the
// receiver has nothing against what is written. The first byte chooses format and receiver.

#include "reading/lint.h"
#include "reading/report_details.h"
#include "receivers/aavso_copy.h"
#include "receivers/ades_copy.h"
#include "receivers/mpc_copy.h"
#include "receivers/tdm_copy.h"
#include "task/copy_tracks.h"

#include "input_file.h"

#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

using companion::Copy;
using companion::CopySettings;
using Tracks = std::vector<companion::CopyTrack>;

struct Form
{
    const char* format;
    const char* receiver;
    Copy (*copy)(const Tracks& tracks, const CopySettings& settings);
};

const Form forms[] = {
    {"mpc", "mpc", companion::mpcCopy},
    {"tdm", "ccsds",
     [](const Tracks& tracks, const CopySettings& settings) {
         return companion::tdmCopy(tracks, settings, companion::TdmForm::text);
     }},
    {"tdm.xml", "ccsds",
     [](const Tracks& tracks, const CopySettings& settings) {
         return companion::tdmCopy(tracks, settings, companion::TdmForm::xml);
     }},
    {"aavso", "aavso", companion::aavsoCopy},
    {"ades.xml", "ades",
     [](const Tracks& tracks, const CopySettings& settings) {
         return companion::adesCopy(tracks, settings, companion::AdesForm::xml);
     }},
    {"ades.psv", "ades",
     [](const Tracks& tracks, const CopySettings& settings) {
         return companion::adesCopy(tracks, settings, companion::AdesForm::psv);
     }},
};

const char* const formats[] = {"mpc", "mea", "telegram", "tdm", "ssmas", "table", "tdm.xml"};

// What is not known of a track is told by an observatory that says it all.
void complete(companion::CopyTrack& track)
{
    auto observatory = std::make_shared<companion::Observatory>(*track.observatory);
    observatory->station = observatory->station.empty() ? "K88" : observatory->station;
    observatory->observers = "A. B. Sender";
    observatory->measurers = "A. B. Sender";
    observatory->submitter = "A. B. Sender";
    observatory->telescope = "";
    observatory->design = "reflector";
    observatory->aperture = "0.6";
    observatory->detector = "CCD";
    observatory->mode = "CCD";
    observatory->astrometricCatalogue = "Gaia3";
    observatory->aavsoCode = "TST01";
    observatory->band = "V";
    track.observatory = observatory;
}

void mustBeTaken(const std::string& text, const Form& form)
{
    const InputFile file(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    companion::LintSettings settings;
    settings.reader = false;
    settings.person = false;
    settings.receiver = form.receiver;
    companion::lintFile(file.path(), form.format, settings, [](const companion::Finding& found) {
        mustHold(found.code == companion::FindingCode("V364")); // the name of the file
    });
}

// The tracks of a file; none where it cannot be read as a whole, such as a document that is not well-formed.
std::vector<companion::CopyTrack> tracksOf(const InputFile& file, const char* format)
{
    try {
        return companion::copyTracksOfFile(file.path(), format, "file").tracks;
    } catch (const companion::WrongUsage&) {
        return {};
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const char* const format = formats[bytes[0] % std::size(formats)];
    const Form& form = forms[bytes[0] / std::size(formats) % std::size(forms)];
    const InputFile file(bytes + 1, size - 1);
    std::vector<companion::CopyTrack> tracks = tracksOf(file, format);
    std::size_t marks = 0;
    for (companion::CopyTrack& track : tracks) {
        mustHold(track.marks.size() == track.track.Marks.size());
        marks += track.marks.size();
        complete(track);
    }
    CopySettings settings;
    settings.file = "file";
    settings.creationDate = "2025-02-24T00:00:00";
    settings.software = "fuzz";
    settings.magnitude = companion::MagnitudeKind::apparent;
    const Copy copy = form.copy(tracks, settings);
    mustHold(copy.marks == marks);
    mustHold(copy.refused <= marks);
    mustHold(copy.text.empty() == (copy.refused == marks));
    if (!copy.text.empty()) {
        mustBeTaken(copy.text, form);
    }
    return 0;
}
