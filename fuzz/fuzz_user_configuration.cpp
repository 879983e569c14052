// Configurations of a series and of the programs: any bytes give settings or a failed load. A failed load
// leaves the settings; a good one replaces each section, whatever was there before, and reads element sets
// only if asked for.

#include "config/configuration_keys.h"
#include "config/configuration_sections.h"
#include "config/range_checks.h"
#include "config/settings.h"
#include "config/user_configuration.h"
#include "config/xml_document.h"
#include "input_file.h"

#include <algorithm>
#include <set>
#include <string>

namespace {

using namespace tavelinUtils;

// The names of the items of all lists: of the sections, and of the filters.
std::set<std::string> itemsOfLists()
{
    std::set<std::string> items{"string"};
    for (const ConfigurationKey& key : configurationKeys()) {
        if (key.value == ConfigurationValue::list) {
            items.insert(key.item);
        }
    }
    return items;
}

// An empty item of a list is never left, by contract: such a file is not read to its end. Spellings are no
// such items: they are below a "key".
bool isEmptyItem(const TiXmlNode& node)
{
    static const std::set<std::string> items = itemsOfLists();
    const bool isItem = items.contains(node.ValueStr()) && node.Parent()->ValueStr() != "key";
    return isItem && node.ToElement() != nullptr && node.FirstChild() == nullptr;
}

// The node after another one in the order of the document; a null pointer after the last.
const TiXmlNode* nodeAfter(const TiXmlNode* node, const TiXmlNode* document)
{
    if (node->FirstChild() != nullptr) {
        return node->FirstChild();
    }
    while (node != document && node->NextSibling() == nullptr) {
        node = node->Parent();
    }
    return node == document ? nullptr : node->NextSibling();
}

bool holdsEmptyItem(const TiXmlNode& document)
{
    const TiXmlNode* node = document.FirstChild();
    while (node != nullptr && !isEmptyItem(*node)) {
        node = nodeAfter(node, &document);
    }
    return node != nullptr;
}

// Settings in which no section is as in new ones.
TPorogs usedSettings()
{
    TPorogs porogs;
    porogs.Version = "used";
    porogs.basicSettings.Telescope = "used";
    porogs.masterFrame.ProcessingRawBias = {"used"};
    porogs.astro.CoefficientsNumber = 7;
    porogs.interSat.TLEs.resize(1);
    porogs.headerKeys.RA = {"used"};
    porogs.filtersID.R = {{"used"}};
    return porogs;
}

void mustBeUntouched(const TPorogs& porogs)
{
    mustHold(porogs.Version == "used" && porogs.basicSettings.Telescope == "used");
    mustHold(porogs.astro.CoefficientsNumber == 7 && porogs.interSat.TLEs.size() == 1);
}

// What a section's own reader gives is what the whole reader gives.
void mustBeOfTheFile(const TPorogs& porogs, TiXmlElement* root)
{
    mustHold(porogs.basicSettings.Telescope == GetBasicSettings(root, "basicSettings").Telescope);
    mustHold(porogs.curves.AAVSOCode == GetLightCurves(root, "lightCurves").AAVSOCode);
    mustHold(porogs.mpc.MPCHeader.COD == GetReportSettings(root, "ReportSettings").MPCHeader.COD);
    mustHold(porogs.headerKeys.RA == HeaderKeyXML(root, "HeaderSettings").RA);
    mustHold(porogs.filtersID.R == GetFiltersID(root, "HeaderSettings").R);
    const auto raw = GetBrightnessFrame(root, "intraframeProcessing").ProcessingRawBias;
    mustHold(porogs.masterFrame.ProcessingRawBias ==
             (porogs.masterFrame.UseMasterBias ? raw : decltype(raw)()));
    const int coefficients = porogs.astro.CoefficientsNumber;
    mustHold(coefficients == 3 || coefficients == 10 || coefficients == 21 || coefficients == 7);
}

// A file of header keys alone has no section around them; words that are none give nothing.
void checkListsAlone(TiXmlElement* root)
{
    const THeaderKeys keys = HeaderKeyXML(root, "headerKeys");
    const std::vector<std::string> words = configurationHeaderWords();
    mustHold(keys.RA.empty() || std::find(words.begin(), words.end(), "RA") != words.end());
    const TFiltersID filters = GetFiltersID(root, "filterKeys");
    mustHold(filters.R.size() == filters.V.size() && filters.B.size() == filters.I.size());
    mustHold(configurationFilterLetters().size() == 4);
}

void checkSettings(const std::string& path, TiXmlElement* root)
{
    for (const bool loadTLE : {false, true}) {
        TPorogs porogs = usedSettings();
        mustHold(LoadUserConfXML(path, porogs, loadTLE).Code == 0);
        mustBeOfTheFile(porogs, root);
        mustHold(porogs.interSat.TLEs.size() == (loadTLE ? GetTLEs(root, "TLEs").size() : 0));
    }
}

void checkFailure(const std::string& path, int code)
{
    TPorogs porogs = usedSettings();
    mustHold(LoadUserConfXML(path, porogs, true).Code == code);
    mustBeUntouched(porogs);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    TtavelinXmlDocument document(file.path());
    const bool isLoaded = document.LoadFile();
    if (!isLoaded) {
        checkFailure(file.path(), 139);
    } else if (!holdsEmptyItem(document)) {
        checkSettings(file.path(), document.FirstChildElement());
        checkListsAlone(document.FirstChildElement());
    }
    checkFailure(file.path() + "/none", 138);
    TExe programs;
    mustHold(lConfig(file.path(), programs).Code == (isLoaded ? 0 : 139));
    return 0;
}
