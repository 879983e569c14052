// Task files of a test, and the result files that a run leaves.

#pragma once

#include "support/child_process.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Keys of a task and their values, as they are to stand in the XML text.
using TaskKeys = std::vector<std::pair<std::string, std::string>>;

/// The text of a task file.
inline std::string taskText(const TaskKeys& keys)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<task>\n";
    for (const auto& [key, value] : keys) {
        text += "    <" + key + ">" + value + "</" + key + ">\n";
    }
    return text + "</task>\n";
}

/// The document of one result, its values as they are to stand in the XML text.
inline std::string resultDocument(int code, const std::string& comment, const std::string& description)
{
    return "<?xml version=\"1.0\" ?>\n"
           "<ResultsList>\n"
           "    <Result>\n"
           "        <Code>" +
           std::to_string(code) +
           "</Code>\n"
           "        <Comment>" +
           comment +
           "</Comment>\n"
           "        <Description>" +
           description +
           "</Description>\n"
           "        <Date>DATE</Date>\n"
           "    </Result>\n"
           "</ResultsList>\n";
}

/// Whether a text is a time stamp of the logs, 2024-03-09 04:05:06.000789.
inline bool isStamp(std::string_view text)
{
    constexpr std::string_view form = "dddd-dd-dd dd:dd:dd.dddddd";
    bool fits = text.size() == form.size();
    for (std::size_t i = 0; fits && i < form.size(); ++i) {
        fits = form[i] == 'd' ? text[i] >= '0' && text[i] <= '9' : text[i] == form[i];
    }
    return fits;
}

/// The bytes of a result document with DATE for its one time stamp.
inline std::string resultOf(const std::string& path)
{
    std::string document = bytesOf(path);
    const std::size_t first = document.find("<Date>");
    const std::size_t last = document.find("</Date>");
    if (first == std::string::npos || last == std::string::npos || last < first) {
        ADD_FAILURE() << path << " has no Date: " << document;
        return document;
    }
    const std::size_t begin = first + std::string_view("<Date>").size();
    EXPECT_TRUE(isStamp(std::string_view(document).substr(begin, last - begin))) << document;
    return document.replace(begin, last - begin, "DATE");
}

/// The lines of a text log without their time stamps.
inline std::vector<std::string> logOf(const std::string& path)
{
    constexpr std::size_t stampLength = std::string_view("2024-03-09 04:05:06.000789").size();
    const std::string bytes = bytesOf(path);
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < bytes.size();) {
        const std::size_t end = bytes.find('\n', begin);
        if (end == std::string::npos) {
            ADD_FAILURE() << path << " ends without a line feed: " << bytes;
            return lines;
        }
        const std::string line = bytes.substr(begin, end - begin);
        EXPECT_TRUE(isStamp(std::string_view(line).substr(0, stampLength))) << line;
        EXPECT_EQ(line.substr(stampLength, 1), " ") << line;
        lines.push_back(line.substr(stampLength + 1));
        begin = end + 1;
    }
    return lines;
}

/// The files below a folder, by their paths relative to it.
inline std::set<std::string> filesBelow(const std::string& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            names.insert(entry.path().lexically_relative(folder).string());
        }
    }
    return names;
}

/// What every run that returns has in common: it exits with 0 and has printed nothing.
inline void expectQuietEnd(const ChildEnd& end)
{
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, 0);
    EXPECT_EQ(end.output, "");
}

/// A copy of the built tool, so that the log beside it stays in the test's folder.
inline std::string copyOfTool(const std::string& path)
{
    std::filesystem::copy_file(builtTool(), path);
    return path;
}
