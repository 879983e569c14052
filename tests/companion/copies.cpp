#include "companion/copies.h"

#include "reading/lint.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <memory>
#include <sstream>
#include <utility>

namespace copies {

using companion::CopyTrack;
using companion::Finding;
using companion::Observatory;
using tavelinUtils::TRecLabelPervichka_File;

Observatory completeObservatory()
{
    Observatory observatory;
    observatory.station = "K88";
    observatory.observers = "A. B. Sender";
    observatory.measurers = "C. Reader, D. Reader";
    observatory.submitter = "A. B. Sender";
    observatory.email = "a@example.org";
    observatory.design = "reflector";
    observatory.aperture = "0.6";
    observatory.fRatio = "4.0";
    observatory.detector = "CCD";
    observatory.mode = "CCD";
    observatory.astrometricCatalogue = "Gaia-DR3";
    observatory.aavsoCode = "TST01";
    return observatory;
}

TRecLabelPervichka_File markAt(double fraction, double rightAscension, double declination)
{
    TRecLabelPervichka_File mark;
    mark.date = 60729; // 2025-02-23
    mark.time = fraction;
    mark.RA = rightAscension;
    mark.DE = declination;
    mark.m = 18.5;
    mark.filtr = "G";
    return mark;
}

CopyTrack trackOf(const std::string& name, std::vector<TRecLabelPervichka_File> marks,
                  const Observatory& observatory)
{
    CopyTrack track;
    track.track = trackNamed(name, std::move(marks));
    track.track.telescope = "K88";
    for (std::size_t i = 0; i < track.track.Marks.size(); ++i) {
        track.marks.push_back({i + 2, static_cast<int>(i), true, true, {0.001, 0.0015, 0.0001, 0.01}});
    }
    track.observatory = std::make_shared<const Observatory>(observatory);
    return track;
}

companion::CopySettings usualSettings()
{
    companion::CopySettings settings;
    settings.file = "night.mea";
    settings.creationDate = "2025-02-24T00:00:00";
    settings.software = "tavelin 0.2.0";
    return settings;
}

std::vector<std::string> textsOf(const std::vector<Finding>& findings)
{
    std::vector<std::string> texts;
    for (const Finding& each : findings) {
        texts.push_back(each.code.text() + ' ' + each.text);
    }
    return texts;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> linted(const std::string& text, const std::string& format,
                                const std::string& receiver, const std::string& name)
{
    const TemporaryFolder folder;
    makeFile(folder / name, text);
    companion::LintSettings settings;
    settings.reader = false;
    settings.person = false;
    settings.receiver = receiver;
    std::vector<std::string> findings;
    companion::lintFile(folder / name, format, settings, [&findings](const Finding& found) {
        findings.push_back(std::to_string(found.line) + ' ' + found.code.text() + ' ' + found.text);
    });
    return findings;
}

} // namespace copies
