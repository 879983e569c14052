// Parameter files: any bytes after the first, which chooses the reader, give values or a failed load. An
// order to run a task is read again as it was written.

#include "config/developer_settings.h"
#include "config/observing_plans.h"
#include "config/parameters_detection.h"
#include "config/parameters_frames.h"
#include "config/parameters_services.h"
#include "config/xml_document.h"
#include "results/result.h"
#include "written_bytes.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace tavelinUtils;

template <class... Targets>
void fill(void (*reader)(std::string path, Targets&... targets), const std::string& path)
{
    std::tuple<Targets...> targets{};
    std::apply([&](Targets&... each) { reader(path, each...); }, targets);
}

template <auto reader>
void run(const std::string& path)
{
    fill(reader, path);
}

// An order to run a task.
struct Order
{
    std::string type, frame, config, series, log, result, blob, fit, pid, task, past;
    std::vector<std::string> frames;

    bool operator==(const Order&) const = default;
};

Order orderOf(const std::string& path)
{
    Order order;
    lRunTask(path, order.type, order.frame, order.config, order.series, order.log, order.result, order.blob,
             order.fit, order.pid, order.task, order.past, order.frames);
    return order;
}

// What an element cannot hold is not written: it would be missing, or another text.
void keepPlain(std::string& text)
{
    if (!isPlainText(text)) {
        text = "plain";
    }
}

void runTask(const std::string& path)
{
    Order order = orderOf(path);
    for (std::string* const text : {&order.type, &order.config, &order.series, &order.log, &order.result,
                                    &order.pid, &order.task, &order.past})
    {
        keepPlain(*text);
    }
    std::for_each(order.frames.begin(), order.frames.end(), keepPlain);
    order.frame = order.blob = order.fit = ""; // no writer takes them
    const WrittenFile copy(bytesWritten([&](const std::string& to) {
        mustHold(sThresInterXML(to, order.type, order.result, order.log, order.pid, order.series,
                                order.config, order.past, order.task, order.frames) == 0);
    }));
    mustHold(orderOf(copy.path()) == order);
}

struct Reader
{
    char letter; // the first byte of a seed that is for it
    void (*run)(const std::string& path);
    bool mayThrow = false;
    bool keepsLog = false;
};

constexpr Reader readers[] = {
    {'A', run<lThresConvFormats>},
    {'B', run<lThresFitting>, true},
    {'C', run<lThresADD>, true},
    {'D', run<LoadThreshHough>},
    {'E', run<LoadThreshHoughGSO>},
    {'F', run<lParamTrackXML>},
    {'G', run<lParamFittingXML>},
    {'H', run<lBlobHead>},
    {'I', run<lconvertmea>},
    {'J', runTask},
    {'K', run<LThresIntraXML>},
    {'L', run<lConvToTable>, false, true},
    {'M', run<lPACKxml>},
    {'N', run<LFrameSelector>},
    {'O', run<lFitEdit>},
    {'P', run<LoadOpearations>},
    {'Q', run<lTestTaskXML>},
    {'R', run<lvo_track_control>},
    {'S', run<lsat_track_control>},
    {'T', run<lvs_control>},
    {'U', run<LoadParamStarLoader>},
    {'V', run<lDevelopClon>},
    {'W', run<lDevelopFitting>, true},
    {'X', run<lDevelopAstro>},
    {'Y', run<ldevelop_interaip>},
    {'Z', run<lDevelopLocalPhoto>},
    {'a', run<LoadAPTScriptSat>},
    {'b', run<LoadAPTScriptGEOTLE>},
    {'c', run<lZunekXML>},
};

// The seeds' letters first, and any other byte by its number, so that each byte chooses a reader.
const Reader& chosen(std::uint8_t byte)
{
    for (const Reader& reader : readers) {
        if (static_cast<std::uint8_t>(reader.letter) == byte) {
            return reader;
        }
    }
    return readers[byte % std::size(readers)];
}

// An empty item of a list is never left, by contract: such a file is not read to its end.
bool holdsEmptyItem(const TiXmlElement* root)
{
    for (const TiXmlElement* list = root->FirstChildElement(); list != nullptr;
         list = list->NextSiblingElement()) {
        for (const TiXmlElement* item = list->FirstChildElement(); item != nullptr;
             item = item->NextSiblingElement()) {
            if (item->FirstChild() == nullptr) {
                return true;
            }
        }
    }
    return false;
}

// A reader that keeps a log would write to any place that the input names.
bool namesLog(TiXmlElement* root)
{
    bool found = false;
    GetTXT(root, "LogPath", found);
    return found;
}

bool leftOut(const Reader& reader, TiXmlElement* root)
{
    return holdsEmptyItem(root) || (reader.keepsLog && namesLog(root));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const Reader& reader = chosen(bytes[0]);
    const InputFile file(bytes + 1, size - 1);
    TtavelinXmlDocument document(file.path());
    const bool loaded = document.LoadFile();
    if (loaded && leftOut(reader, document.FirstChildElement())) {
        return 0;
    }
    bool thrown = false;
    try {
        reader.run(file.path());
    } catch (const TavelinException& failure) {
        thrown = true;
        mustHold(failure.getCode() == 5 && failure.getComment() == file.path());
    }
    mustHold(thrown == (!loaded && reader.mayThrow));
    return 0;
}
