// Links in the place of an output: each writer writes through them, or takes them away first.

#include "files/text_files.h"
#include "format_words.h"
#include "results/result_files.h"

#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

namespace fs = std::filesystem;

struct Writer
{
    std::string name;
    std::function<void(const std::string&)> write;
    bool removesFirst = false;
};

Writer ofFormat(const std::string& word, bool removesFirst)
{
    const auto write = [word](const std::string& path) {
        std::vector<TrackVtorichka> tracks{trackNamed("A", {{.date = 60000, .time = 0.5, .m = 9.5}})};
        SelectFormatAndSave(path, word, tracks);
    };
    return {word, write, removesFirst};
}

std::vector<Writer> writers()
{
    return {
        ofFormat("mea", false),
        ofFormat("telegram", false),
        ofFormat("tdm", false),
        ofFormat("ssmas", false),
        ofFormat("mpc", false),
        ofFormat("tdm.xml", false),
        ofFormat("mag", true),
        ofFormat("aavso", true),
        {"result document", [](const std::string& path) { sResXML(path, TFuncRes{}); }},
        {"result log", [](const std::string& path) { sResTXT(path, TFuncRes{}); }},
        {"log", [](const std::string& path) { slog(path, "text"); }},
        {"list of texts", [](const std::string& path) { Write(path, std::vector<std::string>{"text"}); }},
        {"appended text", [](const std::string& path) { append(path, std::string("text")); }},
        {"rewritten text", [](const std::string& path) { rewrite(path, std::string("text")); }, true},
    };
}

const std::string old = "old\n";

// Calls the check for each writer with a folder in which its path is free.
template <class Check>
void forEachWriter(Check check)
{
    for (const Writer& writer : writers()) {
        SCOPED_TRACE(writer.name);
        const TemporaryFolder folder;
        check(writer, folder, folder / "a.txt");
    }
}

} // namespace

TEST(LinksOfWriters, SymbolicLinkIsWrittenThroughOrReplaced)
{
    forEachWriter([](const Writer& writer, const TemporaryFolder& folder, const std::string& path) {
        makeFile(folder / "target.txt", old);
        fs::create_symlink("target.txt", path);
        writer.write(path);
        EXPECT_NE(bytesOf(path), old);
        EXPECT_EQ(fs::is_symlink(path), !writer.removesFirst);
        EXPECT_EQ(bytesOf(folder / "target.txt") == old, writer.removesFirst);
    });
}

TEST(LinksOfWriters, OtherNameOfAFileShowsWhatIsWrittenOrKeepsTheOldFile)
{
    forEachWriter([](const Writer& writer, const TemporaryFolder& folder, const std::string& path) {
        makeFile(path, old);
        fs::create_hard_link(path, folder / "other.txt");
        writer.write(path);
        EXPECT_NE(bytesOf(path), old);
        EXPECT_EQ(fs::equivalent(path, folder / "other.txt"), !writer.removesFirst);
        EXPECT_EQ(bytesOf(folder / "other.txt") == old, writer.removesFirst);
    });
}

TEST(LinksOfWriters, LinkToNothingMakesItsTargetOrIsReplaced)
{
    forEachWriter([](const Writer& writer, const TemporaryFolder& folder, const std::string& path) {
        fs::create_symlink("target.txt", path);
        writer.write(path);
        EXPECT_NE(bytesOf(path), "");
        EXPECT_EQ(fs::is_symlink(path), !writer.removesFirst);
        EXPECT_EQ(exists(folder / "target.txt"), !writer.removesFirst);
    });
}

// A link to itself cannot be opened; where it is removed first it does no harm.
TEST(LinksOfWriters, LinkToItselfStaysOrIsReplaced)
{
    forEachWriter([](const Writer& writer, const TemporaryFolder&, const std::string& path) {
        fs::create_symlink("a.txt", path);
        try {
            writer.write(path);
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
        }
        EXPECT_EQ(fs::is_symlink(path), !writer.removesFirst);
    });
}
