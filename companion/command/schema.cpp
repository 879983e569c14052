#include "command/subcommands.h"
#include "out/json.h"
#include "schema/schemas.h"

#include <ostream>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"list", 0, nullptr, "all schemas, a line each"},
};

Json schemaJson(const Schema& each)
{
    return Json::object().set("name", each.name).set("language", each.language).set("of", each.of);
}

void list(const Console& console)
{
    JsonDocument document(console.out, "tavelin.schema/1");
    document.openList("schemas");
    for (const Schema& each : allSchemas()) {
        document.element(schemaJson(each));
    }
    document.closeList();
    document.set("exit", 0);
    document.finish();
}

void listAsText(std::ostream& out)
{
    for (const Schema& each : allSchemas()) {
        std::string name = each.name;
        name.resize(16, ' ');
        out << name << each.language << ", " << each.of << '\n';
    }
}

void print(const Schema& each, const Console& console)
{
    JsonDocument document(console.out, "tavelin.schema/1");
    document.openList("schemas");
    document.element(schemaJson(each).set("text", each.text()));
    document.closeList();
    document.set("exit", 0);
    document.finish();
}

// The name of a JSON schema is two words.
std::string nameOf(const std::vector<std::string>& operands)
{
    std::string name;
    for (const std::string& operand : operands) {
        name += (name.empty() ? "" : " ") + operand;
    }
    return name;
}

const Schema& named(const std::string& name)
{
    if (const Schema* const schema = schemaOf(name)) {
        return *schema;
    }
    std::vector<std::string> names;
    for (const Schema& each : allSchemas()) {
        names.push_back(each.name);
    }
    throw unknownWord("schema", name, names);
}

int schema(const Arguments& arguments, const Console& console)
{
    const std::string name = nameOf(arguments.operands());
    const bool lists = arguments.has("list");
    if (lists == !name.empty()) {
        const std::string problem = lists ? "--list takes no \"" + name + '"' : "NAME is missing";
        throw wrongCall("schema", problem);
    }
    if (lists) {
        console.look.json ? list(console) : listAsText(console.out);
    } else if (console.look.json) {
        print(named(name), console);
    } else {
        console.out << named(name).text();
    }
    return 0;
}

} // namespace

const Subcommand schemaCommand{"schema",
                               "[NAME]",
                               "schemas of the files of the tool, and of the JSON of this command",
                               {"tavelin schema task > task.xsd", "tavelin schema json check"},
                               options,
                               schema};

} // namespace companion
