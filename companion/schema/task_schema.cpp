#include "schema/key_rows.h"
#include "schema/xml_schemas.h"
#include "schema/xsd_text.h"
#include "task/key_table.h"

namespace companion {
namespace {

// The form of a key's text, and whether a task must have the key. Keys that the tool takes without are
// demanded where a run without them is seldom meant.
struct KeyForm
{
    std::string_view key;
    const char* type;
    bool demanded;
};

constexpr KeyForm forms[] = {
    {"path_in", "path", false},
    {"out_dir", "folder", true},
    {"outputextension", "extension", true},
    {"inputformat", "inputWord", true},
    {"outputformat", "outputWord", true},
    {"originator", "line", false},
    {"REFERENCE_FRAME", "line", false},
    {"PARTICIPANT_1", "nameOfTelescope", false},
    {"autoname", "flag", true},
    {"path_res", "pathBelowFolder", true},
    {"longname", "flag", false},
    {"autoTelescope", "flag", false},
    {"whatSave", "kept", false},
    {"object", "trackNumber", false},
    {"toSeparateFile", "division", false},
    {"interval", "minutes", false},
    {"paths", "series", false},
    {"path", "path", true},
    {"filtr", "nameOfFilter", false},
    {"telescope", "nameOfTelescope", false},
    {"excludes", "exclusions", false},
};

struct TextForm
{
    const char* name;
    const char* pattern;
    const char* longest; ///< in characters; empty where the pattern says it
    const char* rule;
};

// Blanks at the ends would belong to the text, and a backslash counts where paths are cut and not where files
// are opened. Names become parts of file names, which have 255 bytes in all: at worst each character takes
// four of them.
constexpr TextForm textForms[] = {
    {"line", R"(\S|\S.*\S)", "200", "One line without blanks at its ends."},
    {"path", R"([^\s\\/]|[^\s\\][^\\\n\r]*[^\s\\/])", "200",
     "A file, without backslashes and blanks at its ends."},
    {"folder", R"([^\s\\]|[^\s\\][^\\\n\r]*[^\s\\])", "200",
     "A folder, without backslashes and blanks at its ends. The tool does not make it."},
    {"pathBelowFolder", R"([^\s\\][^\\\n\r]*/([^\\/\n\r]*[^\s\\/])|/[^\\/\n\r]*[^\s\\/])", "200",
     "A file with its folder: ./result.xml, not result.xml, which would never be written."},
    {"extension", R"([A-Za-z0-9._+,=@#~!%\-]{1,16})", "",
     "Up to 16 letters, digits, points or other signs, without slashes and blanks."},
    {"nameOfTelescope", R"([^\s/\\]|[^\s/\\][^/\\\n\r]*[^\s/\\])", "32",
     "A name without slashes and blanks at its ends, since it becomes a part of file names."},
    {"nameOfFilter", R"([^\s/\\]|[^\s/\\][^/\\\n\r]*[^\s/\\])", "12",
     "A label without slashes and blanks at its ends, since it becomes a part of file names."},
    {"trackNumber", "-1|[0-9]{1,9}", "", "The number of a track, from 0; -1 is none."},
    {"exclusions", "[0-9]{1,9}(;[0-9]{1,9})+( [0-9]{1,9}(;[0-9]{1,9})+)*", "",
     "A track and its marks, with semicolons between, as often as needed, with a blank between: 3;0;7 5;1"},
};

constexpr const char* heading[] = {
    "Tasks of vomar in their recommended form. Editors find this schema by an attribute of the root element,",
    "",
    "    <task xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"",
    "          xsi:noNamespaceSchemaLocation=\"task.xsd\">",
    "",
    "or by a line above it,",
    "",
    "    <?xml-model href=\"task.xsd\"?>",
    "",
    "which the tool passes over. A task that this schema takes neither hangs nor kills the tool, as long as",
    "the folders and files that it names are there and good. Made by tavelin schema task.",
};

const KeyForm& formOf(std::string_view key)
{
    return rowOfKey(forms, &KeyForm::key, key);
}

// Keys in any order, each at most once.
void writeKeys(XsdText& xsd, std::span<const TaskKey> keys)
{
    xsd.open("complexType");
    xsd.open("all");
    for (const TaskKey& key : keys) {
        const KeyForm& form = formOf(key.name);
        if (key.type != KeyType::series) {
            xsd.element(key.name, form.type, form.demanded, false, documentationOf(key));
            continue;
        }
        xsd.openElement(key.name, form.demanded, false, documentationOf(key));
        xsd.open("complexType");
        xsd.open("sequence");
        xsd.openElement("seria", true, true, "A series: the track table of a night.");
        writeKeys(xsd, seriaKeyTable());
        for (int i = 0; i < 4; ++i) {
            xsd.close();
        }
    }
    xsd.close();
    xsd.close();
}

void writeForm(XsdText& xsd, const TextForm& form)
{
    xsd.open("simpleType", {{"name", form.name}});
    xsd.documentation(form.rule);
    xsd.open("restriction", {{"base", "xs:string"}});
    if (*form.longest != 0) {
        xsd.empty("minLength", {{"value", "1"}});
        xsd.empty("maxLength", {{"value", form.longest}});
    }
    xsd.empty("pattern", {{"value", form.pattern}});
    xsd.close();
    xsd.close();
}

void writeWords(XsdText& xsd)
{
    xsd.words("flag", {"true", "false"}, "Exactly true or false: any other text is false.");
    for (const TaskKey& key : taskKeyTable()) {
        if (key.type == KeyType::words) {
            xsd.words(formOf(key.name).type, wordsOf(key));
        }
    }
}

// The second pattern is a step of its own, since the patterns of one step are alternatives.
void writeMinutes(XsdText& xsd)
{
    xsd.open("simpleType", {{"name", "minutes"}});
    xsd.documentation("A number above 0, without an exponent.");
    xsd.open("restriction");
    xsd.open("simpleType");
    xsd.open("restriction", {{"base", "xs:string"}});
    xsd.empty("pattern", {{"value", "[0-9]{1,9}(\\.[0-9]{1,9})?"}});
    xsd.close();
    xsd.close();
    xsd.empty("pattern", {{"value", ".*[1-9].*"}});
    xsd.close();
    xsd.close();
}

} // namespace

std::string taskSchema(std::string_view /*name*/)
{
    XsdText xsd({std::begin(heading), std::end(heading)});
    xsd.openElement("task", true, false, "One run of the tool.");
    writeKeys(xsd, taskKeyTable());
    xsd.close();
    for (const TextForm& form : textForms) {
        writeForm(xsd, form);
    }
    writeMinutes(xsd);
    writeWords(xsd);
    return xsd.text();
}

} // namespace companion
