// Runs tasks at random that the schema of tasks takes: none may hang or kill the tool.
//
//   random_tasks EXAMPLES COUNT [SEED]
//
// Works in a new folder of its own, with the inputs and series of the examples. Prints each task that does
// not end well and ends with 1 where there is one.

#include "conversion.h"
#include "file_names.h"
#include "multi_report.h"
#include "results/result_files.h"
#include "schema/xml_schemas.h"
#include "support/random.h"
#include "task.h"
#include "task/key_table.h"

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

void dropMessage(void* /*context*/, const char* /*format*/, ...)
{
}

// The schema of tasks, which takes a text or refuses it.
class TaskJudge
{
public:
    TaskJudge() : text(companion::taskSchema())
    {
        const auto parser = xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size()));
        schema = xmlSchemaParse(parser);
        xmlSchemaFreeParserCtxt(parser);
    }
    TaskJudge(const TaskJudge&) = delete;
    TaskJudge& operator=(const TaskJudge&) = delete;
    ~TaskJudge()
    {
        xmlSchemaFree(schema);
    }

    bool takes(const std::string& task) const
    {
        const int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
        const auto document =
            xmlReadMemory(task.data(), static_cast<int>(task.size()), nullptr, nullptr, options);
        if (document == nullptr) {
            return false;
        }
        const auto context = xmlSchemaNewValidCtxt(schema);
        xmlSchemaSetValidErrors(context, dropMessage, dropMessage, nullptr);
        const bool isValid = xmlSchemaValidateDoc(context, document) == 0;
        xmlSchemaFreeValidCtxt(context);
        xmlFreeDoc(document);
        return isValid;
    }

private:
    std::string text;
    xmlSchemaPtr schema = nullptr;
};

using Values = std::vector<std::string>;

const Values inputs{"./K88_20240120.mea",
                    "H21_20160611.mea",
                    "807_20160609.tel",
                    "TFRM_20121029.tdm",
                    "H21_20160607.ssm",
                    "./missing.mea",
                    "empty.mea",
                    "nowhere/night.mea",
                    "./K88_20240120.mea",
                    "./H21_20160611.mea/",
                    ".mea",
                    "a b.tdm",
                    "x\\y.mea",
                    "..",
                    "/",
                    " x"};
const Values folders{"out", "./out", "out/", "out/deeper/", "out//", "out\\", "", " out", "."};
const Values extensions{".txt", "txt", ".mpc.txt",         ".", "..", "mea", "a/b", "",
                        "%s%n", "-",   ".1234567890123456"};
const Values results{
    "out/result.xml", "./result.xml", "out/r.log", "out/r.result", "out//r.xml", "missing/r.xml",
    "result.xml",     "out/",         "",          "out/a b.xml",  "./.xml"};
const Values names{
    "K88",
    "T 1",
    "a&amp;b",
    "&lt;x&gt;",
    "\xC3\xBC",
    "x/y",
    "",
    " x",
    "..",
    ".",
    "%n%s",
    "*",
    "~",
    "\xF0\x9F\x94\xAD\xF0\x9F\x94\xAD\xF0\x9F\x94\xAD\xF0\x9F\x94\xAD\xF0\x9F\x94\xAD\xF0\x9F\x94\xAD",
    "12345678901234567890123456789012",
    "123456789012",
    "a\nb",
    "&#10;",
    "&#13;x",
    "\"'"};
const std::string brokenTable = "K88_20240120.mea";
const Values tables{"series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt",
                    "series/ptf_i41_20101106/tavelin/dataVO/obj-asteroids-mpc.txt",
                    "./series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt",
                    "series/s/tavelin/dataVO/missing.txt",
                    "a/b/c/d.txt",
                    "b.txt",
                    "empty.mea",
                    brokenTable,
                    "x/",
                    "",
                    " "};
const Values booleans{"true", "false", "True", "1", ""};
const Values integers{"-1", "0", "1", "7", "999999999", "12345678901", "x", "", "-2", "1.5"};
const Values numbers{"30.0", "240", "0.000000001", "999999999.9", "0", "-1", "nan", "inf", "1e5", "", "5,5"};
const Values exclusions{"0;1",
                        "3;0;7 5;1",
                        "0;0;1;2;3;4;5;6;7;8",
                        "999999999;999999999",
                        "0;1 0;1",
                        "1;1;1;1",
                        "0;1  2",
                        "a",
                        "0",
                        "",
                        ";",
                        "-1;0"};

// Tasks at random: good and odd values mixed, keys in any order, some missing, twice or inside another.
class RandomTasks
{
public:
    explicit RandomTasks(std::uint64_t seed) : random(seed)
    {
    }

    std::string next()
    {
        const bool isReport = chance(50);
        Values keys;
        for (const companion::TaskKey& key : companion::taskKeyTable()) {
            const bool isNeeded = key.name == "path_in" ? !isReport : key.name != "object" || isReport;
            if (chance(isNeeded ? 97 : 30)) {
                keys.push_back(element(key, isReport));
            }
            if (chance(1)) {
                keys.push_back(element(key, isReport));
            }
        }
        std::string text = chance(50) ? "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" : "";
        text += chance(3) ? "<!DOCTYPE task [<!ELEMENT task ANY>]>\n" : "";
        text += chance(5) ? "<?xml-model href=\"task.xsd\"?>\n" : "";
        text += chance(5) ? "<task xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                            "xsi:noNamespaceSchemaLocation=\"task.xsd\">"
                          : "<task>";
        while (!keys.empty()) {
            const std::size_t at = random.below(keys.size());
            text += space() + keys[at];
            keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(at));
        }
        return text + space() + "</task>" + (chance(3) ? "<!-- end -->\n" : "\n");
    }

private:
    bool chance(int percent)
    {
        return random.below(100) < percent;
    }

    // The first ones are good; they come more often.
    const std::string& pick(const Values& values)
    {
        return values[random.below(chance(85) ? std::min<std::size_t>(values.size(), 3) : values.size())];
    }

    std::string space()
    {
        return chance(90) ? "\n    " : chance(70) ? "" : "<!-- night -->";
    }

    std::string valueOf(const companion::TaskKey& key, bool isReport)
    {
        if (key.name == "path_in") {
            return inputs[random.below(chance(90) ? 8 : inputs.size())];
        }
        if (key.name == "out_dir") {
            return pick(folders);
        }
        if (key.name == "path_res") {
            return pick(results);
        }
        if (key.name == "path") {
            return pick(tables);
        }
        if (key.name == "outputextension") {
            return pick(extensions);
        }
        if (key.name == "inputformat" && isReport) {
            return "vomar";
        }
        switch (key.type) {
        case companion::KeyType::boolean: return booleans[random.below(chance(97) ? 2 : booleans.size())];
        case companion::KeyType::integer: return pick(integers);
        case companion::KeyType::number: return pick(numbers);
        case companion::KeyType::exclusions: return pick(exclusions);
        case companion::KeyType::words: return word(key);
        default: return names[random.below(chance(70) ? 5 : names.size())];
        }
    }

    std::string word(const companion::TaskKey& key)
    {
        const Values words = wordsOf(key);
        return chance(1) ? "unknown" : words[random.below(words.size())];
    }

    std::string element(const companion::TaskKey& key, bool isReport)
    {
        const std::string name(key.name);
        std::string content;
        if (key.type == companion::KeyType::series) {
            for (int i = random.below(4); i >= 0; --i) {
                content += space() + seria(isReport);
            }
        } else {
            const std::string value = valueOf(key, isReport);
            const bool isPlain = value.find_first_of("&<") == std::string::npos;
            // What a comment in front makes of out_dir no schema can see: it is the value then.
            content = chance(2) && name != "out_dir" ? "<!-- c -->" + value
                      : chance(2) && isPlain         ? "<![CDATA[" + value + "]]>"
                                                     : value;
        }
        return content.empty() && chance(50) ? '<' + name + "/>"
                                             : '<' + name + '>' + content + "</" + name + '>';
    }

    std::string seria(bool isReport)
    {
        std::string content;
        for (const companion::TaskKey& key : companion::seriaKeyTable()) {
            if (chance(key.name == "path" ? 99 : 60)) {
                content += space() + element(key, isReport);
            }
        }
        return chance(1) ? "<seria/>" : "<seria>" + content + space() + "</seria>";
    }

    Random random;
};

// A MEA file in the place of a table has an object without a name, whose file with the extension "." would be
// "..": the tool ends as with any output that it cannot write, and no schema can see it.
bool writesToAFolder(const tavelinUtils::TConvMea& task)
{
    return task.inputformat == "vomar" && task.outputextension == "." &&
           std::any_of(task.paths.begin(), task.paths.end(),
                       [](const auto& each) { return each.path == brokenTable; });
}

// What the tool does with a task file.
void runTask(const std::string& path)
{
    using namespace tavelinUtils;
    TConvMea task;
    if (ltaskconv(path, task) && !writesToAFolder(task)) {
        task.out_dir = outputFolder(task);
        SaveLogCode(task.path_res, task.inputformat == "vomar" ? CreateMultiReport(task) : converter(task));
    }
}

// How a run ended: empty for one that came back.
std::string endOfRun(const std::string& path)
{
    constexpr unsigned limit = 30;
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        alarm(limit);
        if (std::freopen("/dev/null", "w", stderr) == nullptr) {
            _exit(1);
        }
        runTask(path);
        _exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        return "no child process";
    }
    if (WIFSIGNALED(status)) {
        return WTERMSIG(status) == SIGALRM ? "it hangs"
                                           : std::string("signal ") + strsignal(WTERMSIG(status));
    }
    return WEXITSTATUS(status) == 0 ? "" : "status " + std::to_string(WEXITSTATUS(status));
}

void makeOutputFolder()
{
    fs::remove_all("out");
    fs::create_directories("out/deeper");
}

int runAll(std::size_t count, std::uint64_t seed)
{
    const TaskJudge judge;
    RandomTasks tasks(seed);
    std::size_t taken = 0;
    std::size_t refused = 0;
    std::size_t bad = 0;
    while (taken < count) {
        const std::string text = tasks.next();
        if (!judge.takes(text)) {
            ++refused;
            continue;
        }
        if (taken++ % 200 == 0) {
            makeOutputFolder();
        }
        std::ofstream("task.xml", std::ios::binary) << text;
        const std::string end = endOfRun("task.xml");
        if (!end.empty()) {
            std::cout << end << ":\n" << text << '\n';
            ++bad;
        }
    }
    std::cout << taken << " tasks taken by the schema, " << bad << " of them hang or kill the tool; "
              << refused << " refused\n";
    return bad == 0 && refused > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: random_tasks EXAMPLES COUNT [SEED]\n";
        return 2;
    }
    const std::size_t count = std::strtoull(argv[2], nullptr, 10);
    const std::uint64_t seed = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1;
    const fs::path examples = fs::absolute(argv[1]);
    std::string name = (fs::temp_directory_path() / "random_tasks_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        std::cerr << "no folder for the tasks\n";
        return 2;
    }
    fs::current_path(name);
    for (const char* each : {"K88_20240120.mea", "H21_20160611.mea", "807_20160609.tel", "TFRM_20121029.tdm",
                             "H21_20160607.ssm"})
    {
        fs::copy(examples / each, each);
    }
    fs::copy(examples / "series", "series", fs::copy_options::recursive);
    std::ofstream("empty.mea").close();
    const int status = runAll(count, seed);
    fs::current_path("/");
    fs::remove_all(name);
    return status;
}
