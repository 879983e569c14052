#include "companion/truth/random_tasks.h"

#include "companion/truth/random_choices.h"
#include "companion/truth/random_inputs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

namespace {

using Words = RandomChoices::Words;
using Kind = FolderEntry::Kind;

const Words readWords = {"mea", "telegram", "tdm", "ssmas"};
const Words writtenWords = {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"};
const Words divisions = {"eachgroup", "eachobject", "eachseria", "allobjects"};

// So many faults among a thousand choices that can go wrong: many tasks have none.
constexpr int faultsOfThousand[] = {0, 0, 0, 25, 25, 70, 150};

std::string escaped(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    }
    return out;
}

// A key of the task and its value as it is to stand in the XML text.
struct Key
{
    std::string name;
    std::string value;
};

std::string element(const Key& key)
{
    return "    <" + key.name + ">" + key.value + "</" + key.name + ">\n";
}

// Makes one task.
class TaskMaker
{
public:
    TaskMaker(std::uint64_t seed, const std::string& scratchPath)
        : choices(seed, faultsOfThousand[seed % std::size(faultsOfThousand)]), inputs(choices, scratchPath)
    {
    }

    RandomTask make()
    {
        add(Kind::folder, "out");
        add(Kind::folder, "in");
        add(Kind::link, "linked", "out");
        add(Kind::file, "file", "a file\n");
        choices.chance(50) ? conversion() : report();
        addOldResult();
        add(Kind::file, "task.xml", taskText());
        return std::move(made);
    }

private:
    void add(Kind kind, const std::string& path, const std::string& content = "")
    {
        made.entries.push_back({kind, path, content});
    }

    // A key of the task, which as a fault is left out.
    void key(const std::string& name, const std::string& value)
    {
        if (!choices.fault()) {
            keys.push_back({name, xmlText(value)});
        }
    }

    // An empty element leaves the default; an empty section is an empty text.
    std::string xmlText(const std::string& value)
    {
        return value.empty() && choices.chance(50) ? "<![CDATA[]]>" : escaped(value);
    }

    std::string flag(const std::string& usual)
    {
        return choices.oddly({usual, usual, "true", "false"}, {"True", "TRUE", "1", "", " true"});
    }

    std::string outputWord()
    {
        return choices.oddly(writtenWords, {"vomar", "MPC", "", "tdmxml", "mea ", "xml"});
    }

    void addResultPath(const std::string& output);
    void addOldResult();

    void conversion();
    void addInput(const std::string& path, const std::string& word);
    void addOldOutput(const std::string& path, const std::string& input);

    void report();
    void addReportKeys();
    std::string seria(int number);
    void addTable(const std::string& path);
    void addConfigurations(const std::string& folder, int number);
    std::string exclusions();

    std::string taskText();
    void putKeyFault(Key& key);
    std::string withDocumentFault(const std::string& text);

    RandomChoices choices;
    RandomInputs inputs;
    RandomTask made;
    std::vector<Key> keys;
    std::string resultPath;
};

void TaskMaker::addResultPath(const std::string& output)
{
    resultPath = choices.oddly({"out/result.xml", "./result.xml", "out/r.result", "./r.log"},
                               {"result.xml", "missing/r.xml", "", "task.xml", "out", "out/r.txt", output,
                                "in/night.mea", "file", "linked/r.xml", "s0/s0.conf", "out\\r.xml"});
    key("path_res", resultPath);
}

void TaskMaker::addOldResult()
{
    if (!choices.chance(12) || resultPath.empty()) {
        return;
    }
    if (choices.fault()) {
        add(Kind::file, resultPath, choices.pick({"a file of another kind\n", "<x/>\n", ""}));
    } else if (resultPath.ends_with(".log")) {
        add(Kind::file, resultPath, "2024-03-09 04:05:06.000789 Code=0//OK//out/night.txt\n");
    } else {
        add(Kind::file, resultPath,
            "<?xml version=\"1.0\" ?>\n<ResultsList>\n    <Result>\n        <Code>0</Code>\n"
            "        <Comment>OK</Comment>\n        <Description>out/night.txt</Description>\n"
            "        <Date>2024-03-09 04:05:06.000789</Date>\n    </Result>\n</ResultsList>\n");
    }
}

// Conversions.

void TaskMaker::conversion()
{
    const std::string word =
        choices.oddly(readWords, {"MEA", "", "xml", "mpc", "tdm.xml", "mag", "aavso", "mea ", "tdmxml"});
    const std::string suffix = choices.oddly({".mea", ".dat", ".tdm.old"}, {"", ".", ".txt"});
    const std::string input =
        choices.oddly({"in/night", "./in/night", "in/deep/c", "in/a b"},
                      {"night", "in/.x", "in\\night", "", "in/a.b/c", ".", "in//night"}) +
        suffix;
    const std::string folder =
        choices.oddly({"out", "out/", "./out"}, {"missing", "", "in", "in/", "out\\", "out/.", "file",
                                                 "task.xml", "..", ".", "linked", "in/deep", "./in"});
    const std::string extension =
        choices.oddly({".txt", ".out.txt"}, {"", "txt", suffix, suffix, "/x.txt", ".b/c", " .t", "\\x",
                                             "." + std::string(300, 'e'), "/"});
    key("path_in", input);
    key("out_dir", folder);
    key("outputextension", extension);
    key("inputformat", word);
    key("outputformat", outputWord());
    key("originator", choices.oddly({"observatory", "MPC"}, {"", "two words", "<&>"}));
    key("REFERENCE_FRAME", choices.oddly({"ICRF", "EME2000"}, {"", "icrf", "two words"}));
    key("PARTICIPANT_1",
        choices.oddly({"T1", "K88"}, {"", "a/b", "two words", "<&>", std::string(300, 'p')}));
    key("autoname", flag("false"));
    const std::string stem = std::filesystem::path(input).stem().string();
    addResultPath(folder + "/" + stem + extension);
    addInput(input, word);
    addOldOutput(folder + "/" + stem + extension, input);
}

void TaskMaker::addInput(const std::string& path, const std::string& word)
{
    const bool isRead = std::find(readWords.begin(), readWords.end(), word) != readWords.end();
    const std::string form = isRead && !choices.fault() ? word : choices.pick(readWords);
    if (!choices.fault()) {
        add(Kind::file, path, choices.fault() && choices.chance(20) ? "" : inputs.measurements(form));
    } else if (choices.chance(20)) {
        add(Kind::folder, path);
    }
}

void TaskMaker::addOldOutput(const std::string& path, const std::string& input)
{
    if (!choices.fault()) {
        if (choices.chance(15)) {
            add(Kind::file, path, "the output of an earlier run\n");
        }
        return;
    }
    const std::string up = path.starts_with("out/") ? "../" : path.starts_with("./out/") ? "../" : "";
    switch (choices.between(0, 4)) {
    case 0: add(Kind::sameFile, path, input); break;
    case 1: add(Kind::link, path, up + input); break;
    case 2: add(Kind::link, path, up + "file"); break;
    case 3: add(Kind::link, path, "nowhere"); break;
    default: add(Kind::folder, path); break;
    }
}

// Reports.

void TaskMaker::report()
{
    const std::string folder =
        choices.oddly({"out", "out/", "./out"}, {"missing", "", "out\\", "out/.", "file", "..", ".", "linked",
                                                 "s0", "s0/tavelin/dataVO/"});
    const std::string extension =
        choices.oddly({"txt", "mpc.txt"}, {".txt", "", "conf", "a/b", " t", "\\x", std::string(300, 'e')});
    if (choices.chance(30)) {
        key("path_in", choices.pick({"in/night.mea", "night.mea", "./night.mea"}));
    }
    key("out_dir", folder);
    key("outputextension", extension);
    keys.push_back({"inputformat", "vomar"});
    key("outputformat", outputWord());
    key("originator", choices.oddly({"observatory", "MPC"}, {"", "two words"}));
    key("PARTICIPANT_1", choices.oddly({"T1", "K88"}, {"", "a/b", "two words"}));
    addReportKeys();
    addResultPath(folder + "/obj7." + extension);
    std::string series;
    for (int number = 0, count = choices.fault() ? 0 : choices.between(1, 3); number < count; ++number) {
        series += seria(number);
    }
    if (choices.fault() && choices.onceIn(60)) {
        series += choices.pick({"<seria/>", "<seria></seria>", "<seria> </seria>"});
    }
    keys.push_back({"paths", "\n" + series});
}

void TaskMaker::addReportKeys()
{
    key("longname", flag("true"));
    key("autoTelescope", flag("true"));
    key("toSeparateFile", choices.oddly(divisions, {"", "EachGroup", "each", "all"}));
    if (choices.chance(30)) {
        key("interval",
            choices.oddly({"30", "60", "240", "5.5"}, {"0", "-1", "nan", "inf", "abc", "1,5", "", "30 min"}));
    }
    if (choices.chance(15)) {
        key("whatSave", choices.oddly({"object", "all"}, {"Object", "x"}));
        key("object", choices.oddly({"0", "0", "1"}, {"9", "-1", "x", ""}));
    }
}

std::string TaskMaker::seria(int number)
{
    const std::string folder = "s" + std::to_string(choices.fault() ? 0 : number);
    const std::string path =
        choices.oddly({folder + "/tavelin/dataVO/obj.txt", "./" + folder + "/tavelin/dataVO/obj.txt"},
                      {folder + "/obj.txt", folder + ".txt", "nights/" + folder + "/tavelin/dataVO/obj.txt",
                       "none/x/y/t.txt", folder + "//tavelin/obj.txt", "./" + folder + "/tavelin/t.txt",
                       "a/b/" + folder + "/t.txt"});
    if (!path.starts_with("none")) {
        addTable(path);
    }
    addConfigurations(path.starts_with("nights") ? "nights/" + folder : folder, number);
    std::string inner;
    if (!(choices.fault() && choices.onceIn(8))) {
        inner += element({"path", escaped(path)});
    }
    if (!choices.fault()) {
        inner += element({"filtr", choices.oddly({"R", "R", "V"}, {"", "two words", "a/b", "<![CDATA[]]>"})});
    }
    if (!choices.fault()) {
        inner += element(
            {"telescope", choices.oddly({"T1", "T2"}, {"", "a/b", "two words", std::string(250, 't')})});
    }
    if (choices.chance(20)) {
        inner += element({"excludes", exclusions()});
    }
    return "<seria>\n" + inner + "</seria>\n";
}

void TaskMaker::addTable(const std::string& path)
{
    if (!choices.fault()) {
        add(Kind::file, path, inputs.table());
    } else if (choices.chance(30)) {
        add(Kind::folder, path);
    }
}

void TaskMaker::addConfigurations(const std::string& folder, int number)
{
    const std::string name = "s" + std::to_string(number) + ".conf";
    if (choices.fault()) {
        const std::string odd =
            choices.pick({"", "sub/a.conf", ".conf", "a.CONF", "tavelin/a.conf", "s.conf~"});
        if (!odd.empty()) {
            add(Kind::file, folder + "/" + odd, inputs.configuration());
        }
    } else {
        add(Kind::file, folder + "/" + name, inputs.configuration());
    }
    if (choices.fault()) {
        add(Kind::file, folder + "/b.conf", inputs.configuration());
    }
    if (choices.fault() && choices.chance(50)) {
        add(Kind::link, folder + "/.#" + name, "nobody@nowhere.1234");
    }
}

std::string TaskMaker::exclusions()
{
    std::string text;
    for (int items = choices.between(1, 2); items > 0; --items) {
        text += text.empty() ? "" : choices.oddly({" "}, {"  ", ",", ";"});
        text += choices.oddly({"0;0", "0;1", "1;0", "0;0;1"},
                              {"9;0", "0;99", "-1;0", "0;-1", "x", "0;x", "", "0", ";0", "0;0;", "2;3;1;0"});
    }
    return text;
}

// The text of the task.

void TaskMaker::putKeyFault(Key& key)
{
    const std::string value = key.value;
    switch (choices.between(0, 7)) {
    case 0: key.value = "<!-- a comment -->" + value; break;
    case 1: key.value = " " + value; break;
    case 2: key.value = value + " "; break;
    case 3: key.value = "\n" + value + "\n"; break;
    case 4: key.name = choices.pick({"pathin", "Path_in", "out_Dir", "filter", "further"}); break;
    case 5: key.value = "<text>" + value + "</text>"; break;
    case 6: keys.push_back({key.name, choices.pick({"x", "", "true", value})}); break;
    default: key.value = ""; break;
    }
}

std::string TaskMaker::taskText()
{
    for (std::size_t i = 0, count = keys.size(); i < count; ++i) {
        if (choices.fault() && choices.chance(30)) {
            Key changed = keys[i];
            putKeyFault(changed);
            keys[i] = changed;
        }
    }
    if (choices.chance(20)) {
        for (std::size_t i = keys.size(); i > 1; --i) {
            std::swap(keys[i - 1], keys[choices.place(i)]);
        }
    }
    std::string text;
    for (const Key& key : keys) {
        text += element(key);
    }
    const std::string whole = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<task>\n" + text + "</task>\n";
    return choices.fault() && choices.chance(30) ? withDocumentFault(whole) : whole;
}

std::string TaskMaker::withDocumentFault(const std::string& text)
{
    const std::size_t root = text.find("<task>");
    switch (choices.between(0, 9)) {
    case 0: return text.substr(0, choices.place(text.size()));
    case 1: return "\xef\xbb\xbf" + text;
    case 2: return text.substr(0, root) + "<!DOCTYPE task [<!ELEMENT task ANY>]>\n" + text.substr(root);
    case 3: return text.substr(0, root) + "<!DOCTYPE task>\n" + text.substr(root);
    case 4: return text.substr(0, root) + "<outer>\n" + text.substr(root) + "</outer>\n";
    case 5: return text.substr(0, root) + "<!-- " + text.substr(root) + "-->\n";
    case 6: return text.substr(0, text.size() - 8) + "</tusk>\n";
    case 7: return text + "behind the root\n";
    case 8: return "";
    default: return text.substr(0, root) + "& " + text.substr(root);
    }
}

} // namespace

RandomTask randomTask(std::uint64_t seed, const std::string& scratchPath)
{
    return TaskMaker(seed, scratchPath).make();
}

void makeFolder(const RandomTask& task, const std::string& folder)
{
    namespace fs = std::filesystem;
    std::error_code ignored; // of an entry whose place is taken by another
    for (const FolderEntry& entry : task.entries) {
        const fs::path path = folder + "/" + entry.path;
        fs::create_directories(path.parent_path(), ignored);
        if (entry.kind == Kind::folder) {
            fs::create_directories(path, ignored);
        } else if (entry.kind == Kind::link) {
            fs::create_symlink(entry.content, path, ignored);
        } else if (entry.kind == Kind::sameFile) {
            fs::create_hard_link(folder + "/" + entry.content, path, ignored);
        } else if (!fs::exists(fs::symlink_status(path, ignored)) || entry.path == "task.xml") {
            std::ofstream(path, std::ios::binary) << entry.content;
        }
    }
}
