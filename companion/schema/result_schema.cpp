#include "schema/xml_schemas.h"
#include "schema/xsd_text.h"

namespace companion {
namespace {

constexpr const char* moment = "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}";

} // namespace

std::string resultSchema(std::string_view /*name*/)
{
    XsdText xsd({"The result document that path_res of a task names, with the extension .xml or .result.",
                 "Made by tavelin schema result."});
    xsd.openElement("ResultsList", true, false,
                    "The outcome of a run; programs of the pipeline may add theirs.");
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.openElement("Result", false, true);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.element("Code", "xs:int", true, false, "0 is good; tavelin explain tells what another code means.");
    xsd.element("Comment", "xs:string", true, false, "The text of the code.");
    xsd.element("Description", "xs:string", true, false, "The paths that were written or tried.");
    xsd.element("Date", "moment", true, false, "The end of the run, in the local time of the machine.");
    for (int i = 0; i < 6; ++i) {
        xsd.close();
    }
    xsd.pattern("moment", "xs:string", moment);
    return xsd.text();
}

} // namespace companion
