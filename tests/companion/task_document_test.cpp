#include "task/task_document.h"

#include "support/child_process.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;
using namespace companion;

TaskDocument documentOf(const std::string& bytes)
{
    return taskDocumentOf(bytes, "task.xml");
}

// The findings of a document: "3:5 V230".
std::string told(const TaskDocument& document)
{
    std::string text;
    for (const Finding& found : document.findings) {
        EXPECT_EQ(found.file, document.path);
        const std::string place = std::to_string(found.line) + ':' + std::to_string(found.column);
        text += (text.empty() ? "" : ", ") + place + ' ' + found.code.text();
    }
    return text;
}

std::string told(const std::string& bytes)
{
    return told(documentOf(bytes));
}

std::string textOfOnlyFinding(const TaskDocument& document)
{
    EXPECT_EQ(document.findings.size(), 1u);
    return document.findings.empty() ? "" : document.findings[0].text;
}

std::string placeText(const DocumentKey* key)
{
    return key == nullptr ? "none"
                          : std::to_string(key->place.line) + ':' + std::to_string(key->place.column);
}

// A report with the seria elements.
std::string report(const std::string& series)
{
    return "<task>\n<paths>\n" + series + "</paths>\n</task>\n";
}

// The tool's reader comes back from a document exactly where it says so.
void expectWalkEnds(const std::string& bytes, bool ends)
{
    SCOPED_TRACE(bytes);
    EXPECT_EQ(documentOf(bytes).walkEnds, ends);
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", bytes);
    const ChildEnd end = runInChild(
        [&folder] {
            tavelinUtils::TConvMea task;
            tavelinUtils::ltaskconv(folder / "task.xml", task);
        },
        endlessAfter);
    EXPECT_EQ(end.timedOut, !ends);
}

} // namespace

TEST(TaskDocument, PlacesAreThoseOfTheStartTags)
{
    const TaskDocument document = documentOf("<?xml version=\"1.0\"?>\n"
                                             "<task>\n"
                                             "\t<path_in>./night.mea</path_in> <out_dir>out</out_dir>\n"
                                             "  <!-- \xC3\xA9\xC3\xA9 --> <path_res>./r.xml</path_res>\r\n"
                                             "    <out_dir\n>other</out_dir>\n"
                                             "</task>\n");
    EXPECT_EQ(told(document), "");
    EXPECT_TRUE(document.goesOn());
    EXPECT_EQ(document.root.line, 2u);
    EXPECT_EQ(placeText(document.key("path_in")), "3:2");
    EXPECT_EQ(placeText(document.key("out_dir")), "3:33");
    EXPECT_EQ(placeText(document.key("path_res")), "4:15");
    EXPECT_EQ(placeText(&document.keys.back()), "5:5");
    EXPECT_EQ(document.key("autoname"), nullptr);
    EXPECT_EQ(document.key("out_dir")->value, "out");
}

// The parser takes three bytes for a character that begins with E8, whatever they are.
TEST(TaskDocument, ZeroByteInACharacterOfSeveralBytesDoesNotEndIt)
{
    const std::string bytes =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<task>\n<longname>\xE8\0 </longname>\n"
        "<path_in>./night.mea</path_in>\n</task>\n"s;
    const TaskDocument document = documentOf(bytes);
    EXPECT_TRUE(document.goesOn());
    EXPECT_EQ(document.bytes, bytes);
    EXPECT_EQ(taskOf(document).path_in, "./night.mea");
}

TEST(TaskDocument, ZeroByteOutsideOneEndsIt)
{
    EXPECT_EQ(told("<task>\n\0</task>\n"s), "2:1 V011");
}

TEST(TaskDocument, FindingOfASeriaIsAtItsKeyOrAtTheSeria)
{
    const TaskDocument document = documentOf("<task>\n<paths>\n<seria><path>a</path></seria>\n"
                                             " <seria><filtr>R</filtr></seria>\n</paths>\n</task>\n");
    const auto placeOf = [&document](std::size_t seria) {
        const Finding found = atKeyOfSeria(document, finding("V232"), seria, "path");
        return found.file + ' ' + std::to_string(found.line) + ':' + std::to_string(found.column);
    };
    EXPECT_EQ(placeOf(0), "task.xml 3:8");
    EXPECT_EQ(placeOf(1), "task.xml 4:2");
    EXPECT_THROW(placeOf(2), std::out_of_range);
}

TEST(TaskDocument, OnlyOneThatCanBeLoadedIsATask)
{
    EXPECT_THROW(taskOf(documentOf("<task>")), std::logic_error);
    EXPECT_THROW(taskOf(documentOf(report("<seria><path>a</path></seria><seria/>"))), std::logic_error);
}

// The tool reads a task from a file in memory, of which the system may have none, or no room in it.
TEST(TaskDocument, WithoutMemoryThereIsNoTask)
{
    const TaskDocument small = documentOf("<task><path_in>a</path_in></task>");
    const TaskDocument large =
        documentOf("<task><path_in>" + std::string(100'000, 'a') + "</path_in></task>");
    const auto endOf = [](const TaskDocument& document, const std::vector<SystemFault>& faults) {
        return WEXITSTATUS(statusOfChild([&] {
            setFaults(faults);
            try {
                taskOf(document);
            } catch (const std::logic_error&) {
                _exit(3);
            } catch (const std::runtime_error&) {
                _exit(2);
            }
        }));
    };
    EXPECT_EQ(endOf(small, {}), 0);
    EXPECT_EQ(endOf(small, {{SYS_memfd_create, EMFILE}}), 2);
    EXPECT_EQ(endOf(small, {{SYS_dup, EMFILE}}), 2);
    EXPECT_EQ(endOf(small, {{SYS_write, ENOSPC}}), 2);
    EXPECT_EQ(endOf(large, {{SYS_write, ENOSPC}}), 2);
    EXPECT_EQ(endOf(small, {{SYS_openat, EMFILE}}), 3);
}

TEST(TaskDocument, WarningsOfTheXmlParserAreNoReason)
{
    EXPECT_EQ(textOfOnlyFinding(documentOf("<task xmlns=\"night\"><a></task>")),
              textOfOnlyFinding(documentOf("<task><a></task>")));
}

TEST(TaskDocument, ValueIsThatOfTheFirstNode)
{
    const TaskDocument document = documentOf("<task><a><!-- night -->x</a><b>one<c/>two</b><d/><e>  </e>"
                                             "<f><g/>x</f><h><![CDATA[x]]></h><i> x </i></task>");
    std::string shown;
    for (const DocumentKey& key : document.keys) {
        shown += key.name + std::to_string(static_cast<int>(key.first)) + '[' + key.value + ']';
    }
    EXPECT_EQ(shown, "a2[ night ]b1[one]d0[]e0[]f3[g]h1[x]i1[ x ]");
    EXPECT_EQ(placeText(firstKey(document.keys[1].children, "c")), "1:35");
}

TEST(TaskDocument, SeriesAreThoseOfTheFirstListOfPaths)
{
    const TaskDocument document = documentOf("<task>\n"
                                             "<seria><path>outside</path></seria>\n"
                                             "<paths>\n"
                                             " <seria><path>a</path><filtr>R</filtr></seria>\n"
                                             " <other/>\n"
                                             " <seria><path>b</path></seria>\n"
                                             "</paths>\n"
                                             "<paths><seria><path>c</path></seria></paths>\n"
                                             "</task>\n");
    ASSERT_EQ(document.series.size(), 2u);
    EXPECT_EQ(document.series[1].place.line, 6u);
    EXPECT_EQ(placeText(firstKey(document.series[0].keys, "filtr")), "4:23");
    EXPECT_EQ(taskOf(document).paths.size(), 2u);
    EXPECT_EQ(taskOf(document).paths[1].path, "b");
}

TEST(TaskDocument, MissingTaskFolderAndFileWithoutRightsAreTold)
{
    const TemporaryFolder folder;
    const TaskDocument missing = readTaskDocument(folder / "missing.xml");
    EXPECT_EQ(told(missing), "0:0 V010");
    EXPECT_EQ(textOfOnlyFinding(missing), "the task cannot be opened: No such file or directory");
    EXPECT_EQ(textOfOnlyFinding(readTaskDocument(folder.path())),
              "the task cannot be opened: it is a folder");
    ASSERT_EQ(mkfifo((folder / "pipe.xml").c_str(), 0600), 0);
    EXPECT_EQ(textOfOnlyFinding(readTaskDocument(folder / "pipe.xml")),
              "the task cannot be opened: it is a pipe");
    EXPECT_EQ(textOfOnlyFinding(readTaskDocument("/dev/zero")), "the task cannot be opened: it is a device");
    EXPECT_EQ(textOfOnlyFinding(readTaskDocument("")),
              "the task cannot be opened: No such file or directory");
    EXPECT_FALSE(missing.canBeLoaded);
}

TEST(TaskDocument, FirstFaultOfXmlIsTold)
{
    const TaskDocument document = documentOf("<task>\n    <path_in>a</path_out>\n</tasks>\n");
    EXPECT_EQ(told(document), "2:26 V011");
    EXPECT_EQ(textOfOnlyFinding(document),
              "the task is not well-formed XML: Opening and ending tag mismatch: "
              "path_in line 2 and path_out");
    EXPECT_FALSE(document.canBeLoaded);
    EXPECT_EQ(told("<task><path_in>a"), "1:17 V011");
    EXPECT_EQ(told("text before <task/>"), "1:1 V011");
    EXPECT_EQ(told("<task a='1' a='2'/>"), "1:18 V011");
}

TEST(TaskDocument, WhatTheToolLoadsIsNotCalledBroken)
{
    for (const char* bytes : {"<task><path_in>&none;</path_in></task>", "<task/> text behind",
                              "<task><path_in>\xE9</path_in></task>", "<!DOCTYPE task><task/>",
                              "<!DOCTYPE task [ ]><task/>", "<task>&</task>"})
    {
        EXPECT_EQ(told(bytes), "") << bytes;
        EXPECT_TRUE(Loaded(bytes).loads) << bytes;
    }
}

TEST(TaskDocument, WideEncodingsAreTold)
{
    EXPECT_EQ(textOfOnlyFinding(documentOf("\xFF\xFE<\0t\0/\0>\0"s)), "the task is UTF-16 text");
    EXPECT_EQ(textOfOnlyFinding(documentOf("\0<\0t\0/\0>"s)), "the task is UTF-16 text");
    EXPECT_EQ(textOfOnlyFinding(documentOf("<\0\0\0t\0\0\0/\0\0\0>\0\0\0"s)), "the task is UTF-32 text");
    EXPECT_EQ(told("\xFF\xFE<\0t\0/\0>\0"s), "0:0 V012");
    EXPECT_EQ(told("\xEF\xBB\xBF<task/>"), "");
}

TEST(TaskDocument, DocumentWithoutElementIsTold)
{
    for (const char* bytes : {"", " \n", "<?xml version=\"1.0\"?>", "<!-- nothing -->\n", "\xEF\xBB\xBF"}) {
        EXPECT_EQ(told(bytes), "0:0 V013") << bytes;
    }
}

TEST(TaskDocument, LimitsOfTheLibraryAreTold)
{
    EXPECT_EQ(told(nested(1000)), "");
    EXPECT_EQ(told(nested(1001)), "0:0 V014");
    EXPECT_EQ(textOfOnlyFinding(documentOf(nested(1001))), "the task has more than 1,000 nested levels");
    std::string attributes;
    for (int i = 0; i < 10001; ++i) {
        attributes += " a" + std::to_string(i) + "='1'";
    }
    EXPECT_EQ(textOfOnlyFinding(documentOf("<task" + attributes + "/>")),
              "the task has more than 10,000 attributes in one element");
}

TEST(TaskDocument, InnerPartOfADoctypeIsTold)
{
    const std::string doctype =
        "<!DOCTYPE task [ <!ENTITY a \"b\"> ]>\n<task><path_in>&a;</path_in></task>\n";
    EXPECT_EQ(told(doctype), "1:1 V015");
    EXPECT_EQ(told("<?xml version=\"1.0\"?>\n  " + doctype), "2:3 V015");
    EXPECT_FALSE(Loaded(doctype).loads);
    EXPECT_EQ(told("<!-- <!DOCTYPE task [ ] --><task>"), "1:34 V011");
}

// A thousand entities of a thousand each, and a file of the machine: neither is looked at.
TEST(TaskDocument, EntitiesAreNotExpanded)
{
    std::string doctype = "<!DOCTYPE task [<!ENTITY a0 \"text\"><!ENTITY s SYSTEM \"/etc/passwd\">";
    for (int i = 1; i < 10; ++i) {
        const std::string inner = "&a" + std::to_string(i - 1) + ';';
        doctype += "<!ENTITY a" + std::to_string(i) + " \"" + repeated(inner, 1000) + "\">";
    }
    expectTrueInChild([&] { return told(doctype + "]><task>&a9;&s;</task>") == "1:1 V015"; });
}

TEST(TaskDocument, KeysOneLevelTooDeepAreTold)
{
    const TaskDocument document = documentOf("<root>\n  <task><path_in>a</path_in></task>\n</root>\n");
    EXPECT_EQ(told(document), "2:3 V016");
    EXPECT_TRUE(document.canBeLoaded);
    EXPECT_FALSE(document.goesOn());
    EXPECT_EQ(told("<root><autoname>true</autoname><task><path_in>a</path_in></task></root>"), "");
    EXPECT_EQ(told("<root><other><none>a</none></other></root>"), "");
}

TEST(TaskDocument, EmptyLaterSeriaIsTold)
{
    const std::string full = "<seria><path>a/b/c/d</path></seria>\n";
    const TaskDocument document = documentOf(report(full + "  <seria> </seria>\n" + full + "<seria/>\n"));
    EXPECT_EQ(told(document), "4:3 V230");
    EXPECT_EQ(document.findings[0].count, 2u);
    EXPECT_TRUE(document.canBeLoaded);
    EXPECT_FALSE(document.goesOn());
    EXPECT_THROW(taskOf(document), std::logic_error);
}

TEST(TaskDocument, WalkEndsWhereThatOfTheToolDoes)
{
    const std::string full = "<seria><path>a/b/c/d</path></seria>";
    expectWalkEnds(report(full + full), true);
    expectWalkEnds(report(full + "<seria></seria>"), false);
    expectWalkEnds(report(full + "<seria> \n </seria>"), false);
    expectWalkEnds(report(full + "<seria><!-- later --></seria>"), true);
    expectWalkEnds(report(full + "<seria>text</seria>"), true);
    expectWalkEnds(report("<seria/>" + full), true);
    expectWalkEnds(report("<seria>text</seria><seria/>"), true);
    expectWalkEnds(report("<other/>" + full + "<Seria/>"), true);
    expectWalkEnds("<task><paths/><paths>" + full + "<seria/></paths></task>", true);
}

TEST(TaskDocument, StandardInputIsRead)
{
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", "<task><path_in>./night.mea</path_in></task>");
    const int own = dup(STDIN_FILENO);
    ASSERT_NE(std::freopen((folder / "task.xml").c_str(), "r", stdin), nullptr);
    const TaskDocument document = readTaskDocument("-");
    ASSERT_NE(dup2(own, STDIN_FILENO), -1);
    close(own);
    EXPECT_EQ(document.path, "-");
    EXPECT_EQ(told(document), "");
    EXPECT_EQ(taskOf(document).path_in, "./night.mea");
}
