#include "reading/normal_form.h"

#include "base/lines.h"
#include "reading/line_fates.h"
#include "reading/meant_losses.h"
#include "reading/meant_text.h"
#include "reading/memory_file.h"
#include "reading/plain_text.h"
#include "reading/tdm_meaning.h"
#include "records/track.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace companion {
namespace {

// Documents that are no measurements keep what their declarations say of their encoding.
constexpr std::string_view otherDocuments[] = {"ades.xml", "task", "configuration", "result"};

std::size_t marksIn(const std::string& text, const std::string& format, LineFates& fates)
{
    const MemoryFile file(text);
    std::size_t marks = 0;
    readWithFates({file.path(),
                   format,
                   {},
                   [&marks](const tavelinUtils::TrackVtorichka& track) { marks += track.Marks.size(); }},
                  fates);
    return marks;
}

// A message whose copy is laid out in another way. Comments are copied as they are.
void tellLayout(const PlainText& plain, bool isXml, bool isMendTold, NormalForm& form)
{
    if (isXml) {
        form.findings.push_back(finding("V423", {{"what", "XML is text now"}, {"marks", "all lines"}}));
        return;
    }
    std::size_t line = 0;
    std::size_t first = 0;
    std::size_t lines = 0;
    tavelinUtils::forEachLine(plain.text, [&](std::string_view text) {
        ++line;
        const bool isAligned = text.find("  ") != text.npos || text.find('\t') != text.npos ||
                               text.starts_with(' ') || text.ends_with(' ');
        if (isAligned && text.find("COMMENT") == text.npos) {
            first = first == 0 ? line : first;
            ++lines;
        }
    });
    if (lines > 0) {
        form.findings.push_back(
            finding("V423", {{"what", "one blank between words"}, {"marks", counted(lines, "line")}})
                .at(first, 0)
                .times(lines));
    } else if (form.text != plain.text && !isMendTold) {
        form.findings.push_back(finding(
            "V423", {{"what", "keys and line ends as the tool writes them"}, {"marks", "all lines"}}));
    }
}

void takeMessage(const PlainText& plain, bool isXml, const std::string& path, const TrueSettings& settings,
                 NormalForm& form)
{
    std::optional<TdmDocument> document = isXml ? tdmOfXml(plain.text) : tdmOfText(plain.text);
    if (!document) {
        throw WrongUsage{finding("V003", {{"file", path}, {"what", "is not well-formed XML"}})};
    }
    TdmMeaning meaning = tdmMeaningOf(*document, settings);
    leaveOutWithoutMagnitude(meaning);
    form.text = tdmText(meaning);
    form.leftOut = meaning.leftOut;
    if (!meaning.tracks.empty()) {
        const bool isMendTold =
            std::any_of(meaning.findings.begin(), meaning.findings.end(),
                        [](const Finding& each) { return each.code == FindingCode("V423"); });
        tellLayout(plain, isXml, isMendTold || form.leftOut > 0, form);
    }
    form.isRefused = meaning.tracks.empty() && !meaning.findings.empty();
    std::move(meaning.findings.begin(), meaning.findings.end(), std::back_inserter(form.findings));
    LineFates fates;
    form.marks = marksIn(form.text, "tdm", fates);
    std::size_t counted = 0;
    for (const TdmTrack& track : meaning.tracks) {
        counted += track.marks.size();
    }
    if (counted != form.marks) {
        form.findings.push_back(
            finding("V490", {{"sum", std::to_string(counted) + " marks of the message are " +
                                         std::to_string(form.marks) + " for the reader of the copy"}}));
    }
}

void takeLines(const PlainText& plain, const std::string& format, NormalForm& form)
{
    MeantText meant = meantText(plain.text, format, MendUse::copy);
    LineFates fates;
    form.isRefused = meant.isRefused;
    form.marks = marksIn(meant.text, format, fates);
    addLosses(plain.text, format, fates, meant);
    form.leftOut = meant.leftOut;
    std::move(meant.findings.begin(), meant.findings.end(), std::back_inserter(form.findings));
    form.text = std::move(meant.text);
}

NormalForm refused(Finding why)
{
    NormalForm form;
    form.findings.push_back(std::move(why));
    form.isRefused = true;
    return form;
}

} // namespace

bool hasNormalForm(std::string_view format)
{
    return std::find(std::begin(otherDocuments), std::end(otherDocuments), format) ==
           std::end(otherDocuments);
}

NormalForm normalFormOf(const std::string& path, const std::string& format, const TrueSettings& settings)
{
    NormalForm form;
    const PlainText plain = plainText(path);
    if (!plain.broken.empty()) {
        return refused(finding("V101", {{"encoding", plain.broken}}));
    }
    for (const std::string& what : plain.mended) {
        form.findings.push_back(finding("V423", {{"what", what}, {"marks", "all lines"}}));
    }
    if (format == "tdm" || format == "tdm.xml") {
        takeMessage(plain, format == "tdm.xml", path, settings, form);
    } else {
        takeLines(plain, format, form);
    }
    form.isChanged = !plain.mended.empty() || form.text != plain.text;
    return form;
}

} // namespace companion
