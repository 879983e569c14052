#include "schema/schemas.h"

#include "schema/json_texts.h"
#include "schema/key_rows.h"
#include "schema/xml_schemas.h"

namespace companion {
namespace {

constexpr std::string_view ofJson = "json "; // in front of the names of JSON schemas

std::string jsonSchema(std::string_view name)
{
    name.remove_prefix(ofJson.size());
    return std::string(rowOfKey(jsonSchemaTexts(), &JsonSchemaText::subcommand, name).text);
}

// What a document is: mostly what a subcommand prints.
std::string documentOf(const std::string& name)
{
    if (name == "plan") {
        return "the plan of tavelin batch";
    }
    return name == "receipt" ? "the receipts of tavelin batch" : "what tavelin " + name + " --json prints";
}

std::vector<Schema> schemas()
{
    const std::string xsd = "XSD 1.0";
    std::vector<Schema> all{
        {"task", xsd, "the task of a run", taskSchema},
        {"config", xsd, "the configuration of a series", configurationSchema},
        {"result", xsd, "the result document of a run", resultSchema},
        {"ades", xsd, "observations in ADES 2022, as they are submitted", adesSchema},
    };
    for (const JsonSchemaText& row : jsonSchemaTexts()) {
        const std::string name(row.subcommand);
        all.push_back({std::string(ofJson) + name, "JSON Schema 2020-12", documentOf(name), jsonSchema});
    }
    return all;
}

} // namespace

const std::vector<Schema>& allSchemas()
{
    static const std::vector<Schema> all = schemas();
    return all;
}

const Schema* schemaOf(std::string_view name)
{
    for (const Schema& each : allSchemas()) {
        if (each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

} // namespace companion
