#include "task/new_task.h"

#include "out/xml_text.h"
#include "task/task_document.h"

#include <gtest/gtest.h>

namespace {

using companion::NewTask;

std::string allBytes()
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

tavelinUtils::TConvMea readAgain(const NewTask& task)
{
    return companion::taskOf(companion::taskDocumentOf(task.text(), "task.xml"));
}

TEST(NewTask, HasItsKeysInTheirOrder)
{
    NewTask task;
    task.set("path_in", "night.mea");
    task.set("out_dir", ".");
    task.set("originator", "");
    task.addSeries({{"path", "a"}, {"filtr", ""}});
    task.set("path_in", "other.mea");
    EXPECT_EQ(task.text(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<task>\n"
                           "    <path_in>other.mea</path_in>\n"
                           "    <out_dir>.</out_dir>\n"
                           "    <paths>\n"
                           "        <seria>\n"
                           "            <path>a</path>\n"
                           "        </seria>\n"
                           "    </paths>\n"
                           "</task>\n");
    task.set("out_dir", "");
    EXPECT_EQ(task.text().find("out_dir"), std::string::npos);
}

TEST(NewTask, EveryByteComesToTheTool)
{
    NewTask task;
    task.set("path_in", allBytes());
    task.addSeries({{"path", allBytes() + "\xe9"}});
    const tavelinUtils::TConvMea read = readAgain(task);
    EXPECT_EQ(read.path_in, allBytes());
    ASSERT_EQ(read.paths.size(), 1);
    EXPECT_EQ(read.paths[0].path, allBytes() + "\xe9");
}

TEST(NewTask, TextsThatLookLikeXmlComeToTheTool)
{
    for (const std::string text : {"&#65;", "&amp;", "]]>", "<!-- a -->", "<a/>", "n\xc3\xa4", "\xe9",
                                   "\xe9</path_in>", " a ", "\n", "a\r\nb", "\xef\xbb\xbf"})
    {
        NewTask task;
        task.set("path_in", "./" + text);
        EXPECT_EQ(readAgain(task).path_in, "./" + text);
    }
}

TEST(NewTask, SaysItsEncoding)
{
    NewTask task;
    task.set("path_in", "n\xc3\xa4");
    EXPECT_NE(task.text().find("encoding=\"UTF-8\""), std::string::npos);
    task.set("out_dir", "n\xe4");
    EXPECT_NE(task.text().find("encoding=\"ISO-8859-1\""), std::string::npos);
}

TEST(XmlText, WhatHasAMeaningBecomesAReference)
{
    EXPECT_EQ(companion::xmlText("a < b && \"c\" > d"), "a &lt; b &amp;&amp; &quot;c&quot; &gt; d");
    EXPECT_EQ(companion::xmlText("\t\n\r\x1f"), "&#x9;&#xA;&#xD;&#x1F;");
    EXPECT_EQ(companion::xmlText("n\xc3\xa4 \xe9 '"), "n\xc3\xa4 \xe9 '");
}

} // namespace
