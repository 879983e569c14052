#include "works.h"

#include "config/user_configuration.h"
#include "files/file_search.h"
#include "files/paths.h"
#include "format_words.h"
#include "formats/track_table.h"
#include "results/code_table.h"

#include <utility>

using namespace tavelinUtils;

namespace {

NextTrack sourceOf(const std::string& word, const std::string& path, const std::string& originator)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(word));
    if (row == nullptr || row->read == nullptr) {
        return [](TrackVtorichka& /*track*/) { return false; };
    }
    return row->read(path, originator);
}

NextTrack tableOf(const std::string& path, const std::string& columns)
{
    return anySource(TrackTableSource(path, columns));
}

// The settings of a series: those of the first configuration found below its folder. One that is broken is
// not reported, and the defaults stay; what is in one that cannot be read nobody knows.
TPorogs settingsOf(const std::string& table)
{
    const std::vector<std::string> files = configurationsBelow(seriesFolder(table));
    TPorogs porogs;
    if (!files.empty()) {
        TtavelinXmlDocument document(files.front());
        LoadUserConfXML(document, porogs, false); // the report does not mention a failure
        if (document.readFailed()) {
            throwErrCode(resultCode::unopenedFile, document.fileName);
        }
    }
    return porogs;
}

TrackSink sinkOf(const std::string& path, const std::string& word)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(word));
    return row != nullptr ? row->write(path) : TrackSink{[](const TrackVtorichka& /*track*/) {}, [] {}};
}

} // namespace

TrackFlow::TrackFlow(TrackVtorichka& track, NextTrack source)
    : current(track), next(std::move(source)), hasTrack(next(current))
{
}

const TrackVtorichka* TrackFlow::first() const
{
    return hasTrack ? &current : nullptr;
}

void TrackFlow::writeTo(const TrackSink& sink)
{
    for (; hasTrack; hasTrack = next(current)) {
        sink.add(current);
    }
    sink.save();
}

std::string seriesFolder(const std::string& table)
{
    std::string folder = table;
    for (int level = 0; level < 3; ++level) {
        folder = calcpathlevelup(folder, false);
    }
    return folder;
}

std::vector<std::string> configurationsBelow(const std::string& folder)
{
    std::vector<std::string> files;
    FindFile(folder, "", ".conf", files);
    return files;
}

Works ownWorks()
{
    return {sourceOf, tableOf, settingsOf, sinkOf};
}
