// Normalise: what its cases print and make, and what it makes of messages of other makers.

#include "companion/golden.h"
#include "reading/normal_form.h"
#include "reading/signatures.h"
#include "reading/true_reading.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const std::string group = "normalise";
const std::vector<std::string> ownFiles{"call", "text", "json", "messages", "status", "made"};

fs::path caseFolder(const std::string& name)
{
    return fs::path(VOMAR_PROJECT) / "tests/companion" / group / name;
}

std::string keptText(const fs::path& path)
{
    return fs::exists(path) ? bytesOf(path) : "";
}

// The standard input of a block.
class StandardInput
{
public:
    explicit StandardInput(const std::string& path)
    {
        EXPECT_NE(std::freopen(path.c_str(), "rb", stdin), nullptr) << path;
    }
    ~StandardInput()
    {
        EXPECT_NE(std::freopen("/dev/null", "rb", stdin), nullptr);
    }
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;
};

// Runs a case in a new copy of its folder; compares the files that are new with those of the case.
CommandEnd ended(const std::string& name, const std::string& option = "")
{
    const fs::path source = caseFolder(name);
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    for (const auto& entry : fs::directory_iterator(source)) {
        const std::string file = entry.path().filename();
        if (std::find(ownFiles.begin(), ownFiles.end(), file) == ownFiles.end()) {
            fs::copy(entry, folder / file);
        }
    }
    const Names before = namesIn(folder.path());
    std::istringstream words(bytesOf(source / "call"));
    std::vector<std::string> arguments;
    std::string input = "/dev/null";
    for (std::string word; words >> word;) {
        word == "<" ? void(words >> input) : arguments.push_back(word);
    }
    if (!option.empty()) {
        arguments.push_back(option);
    }
    const StandardInput standardInput(input);
    CommandEnd end = callCommand(arguments);
    for (const std::string& made : namesIn(folder.path())) {
        if (!before.contains(made)) {
            EXPECT_EQ(bytesOf(folder / made), keptText(source / "made" / made)) << made;
        } else {
            EXPECT_EQ(bytesOf(folder / made), bytesOf(source / made)) << made;
        }
    }
    const std::size_t kept =
        fs::exists(source / "made") ? namesIn((source / "made").string()).size() : std::size_t{0};
    EXPECT_EQ(namesIn(folder.path()).size(), before.size() + kept);
    return end;
}

class Normalise : public testing::TestWithParam<std::string>
{
};

TEST_P(Normalise, PrintsAndMakesWhatItsCaseHolds)
{
    const fs::path source = caseFolder(GetParam());
    const int status = fs::exists(source / "status") ? std::stoi(bytesOf(source / "status")) : 0;
    const CommandEnd plain = ended(GetParam());
    EXPECT_EQ(plain.out, keptText(source / "text"));
    EXPECT_EQ(plain.err, keptText(source / "messages"));
    EXPECT_EQ(plain.status, status);
    EXPECT_EQ(ended(GetParam(), "--quiet").status, status);
    EXPECT_EQ(ended(GetParam(), "--verbose").status, status);
    if (fs::exists(source / "json")) {
        const CommandEnd json = ended(GetParam(), "--json");
        EXPECT_EQ(json.out, bytesOf(source / "json"));
        EXPECT_EQ(json.status, status);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, Normalise, testing::ValuesIn(goldenCases(group)),
                         [](const auto& each) { return each.param; });

// The report of a message's normal form, a line each finding, and of its marks.
std::string reportOf(const std::string& name, const companion::NormalForm& form)
{
    std::string text = name + '\n';
    for (const companion::Finding& each : form.findings) {
        text += "    " + std::to_string(each.line) + ": " + each.text + " [" + each.code.text() + "]\n";
    }
    return text + "    " + std::to_string(form.marks) + " marks, " + std::to_string(form.leftOut) +
           " left out\n";
}

const fs::path fixtures = fs::path(VOMAR_PROJECT) / "tests/fixtures";

// All messages of others, in the order of bytes.
std::vector<std::string> messages()
{
    std::vector<std::string> names;
    for (const char* folder : {"tdm", "tdm_xml"}) {
        for (const std::string& name : namesIn((fixtures / folder).string())) {
            names.push_back(std::string(folder) + '/' + name);
        }
    }
    return names;
}

std::string formatOf(const std::string& name)
{
    return name.starts_with("tdm_xml/") ? "tdm.xml" : "tdm";
}

} // namespace

TEST(NormaliseMessages, EachComesToItsOutcome)
{
    const fs::path kept = fs::path(VOMAR_PROJECT) / "tests/companion/normalised_messages";
    std::string reports;
    std::size_t copies = 0;
    for (const std::string& name : messages()) {
        const companion::NormalForm form = companion::normalFormOf(fixtures / name, formatOf(name), {});
        reports += reportOf(name, form);
        if (form.isRefused || !form.isChanged) {
            EXPECT_TRUE(form.isRefused || form.text == bytesOf(fixtures / name)) << name;
            continue;
        }
        const fs::path path(name);
        const std::string copy = path.parent_path().string() + '_' + path.stem().string() + ".tdm";
        EXPECT_EQ(form.text, keptText(kept / copy)) << name;
        ++copies;
    }
    EXPECT_EQ(reports, bytesOf(kept / "reports"));
    EXPECT_EQ(namesIn(kept.string()).size(), copies + 1);
}

TEST(NormaliseMessages, ANormalFormIsItsOwn)
{
    for (const std::string& name : messages()) {
        for (const auto& magnitude : {std::optional<double>(), std::optional<double>(0.0)}) {
            companion::TrueSettings settings;
            settings.magnitude = magnitude;
            const auto once = companion::normalFormOf(fixtures / name, formatOf(name), settings);
            const auto twice = readBy(
                [&settings](const std::string& path) {
                    return companion::normalFormOf(path, "tdm", settings);
                },
                once.text);
            if (!once.isRefused) {
                EXPECT_EQ(twice.text, once.text) << name;
                EXPECT_FALSE(twice.isChanged) << name;
                EXPECT_TRUE(twice.findings.empty()) << name;
                EXPECT_EQ(twice.marks, once.marks) << name;
            }
        }
    }
}

namespace {

struct OddName
{
    const char* kind;
    const char* name;
    const char* shown;
    const char* inJson;
};

constexpr OddName oddNames[] = {
    {"blank", "a night.mea", "a night.mea", "{\"file\":\"a night.mea\"}"},
    {"umlaut",
     "n\xC3\xA4"
     "chte.mea",
     "n\xC3\xA4"
     "chte.mea",
     "{\"file\":\"n\xC3\xA4"
     "chte.mea\"}"},
    {"newline", "a\nb.mea", "a\\x0Ab.mea", "{\"file\":\"a\\nb.mea\"}"},
    {"minus", "-night.mea", "-night.mea", "{\"file\":\"-night.mea\"}"},
    {"latin1",
     "n\xE4"
     "chte.mea",
     "n\\xE4"
     "chte.mea",
     "{\"file\":\"n\xEF\xBF\xBD"
     "chte.mea\",\"bytes\":\"6ee4636874652e6d6561\"}"},
};

class NormaliseNames : public testing::TestWithParam<OddName>
{
};

TEST_P(NormaliseNames, AreTakenAndShown)
{
    const auto& [kind, name, shown, inJson] = GetParam();
    const std::string night = "K88 2000.0 UTC\nX1 061110 0430138240 0255387401 -0313126984 001 18.87\n";
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile(name, night);
    fs::create_directory("copies");
    const std::string copy = std::string("copies/") + name;
    const CommandEnd plain = callCommand({"normalise", "-o", copy, "--", name});
    EXPECT_EQ(plain.out, std::string(shown) + ": 1 mark in, 1 out, 0 left out; nothing found; unchanged\n");
    EXPECT_EQ(plain.err, "");
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(bytesOf(copy), night);
    const CommandEnd json = callCommand({"normalise", "--json", "-f", "-o", copy, "--", name});
    EXPECT_NE(json.out.find(std::string("\"input\":") + inJson), std::string::npos) << json.out;
    EXPECT_EQ(json.status, 0);
}

INSTANTIATE_TEST_SUITE_P(Names, NormaliseNames, testing::ValuesIn(oddNames),
                         [](const auto& each) { return std::string(each.param.kind); });

} // namespace
