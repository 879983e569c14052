// Parameter files of a test: what writers write for their arguments, and readers read from a document.

#pragma once

#include "results/result.h"

#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A call of a writer, and the whole file that it makes.
struct WrittenFile
{
    const char* name;
    int (*write)(const std::string& path);
    const char* document;
};

/// A call of a reader, and the document that it reads. FOLDER in a text means the folder of the test.
struct ReadFile
{
    using Texts = std::vector<std::string>;
    using Lists = std::vector<Texts>;

    const char* name;
    void (*read)(const std::string& path, Texts& texts, Lists& lists);
    const char* document;                                   ///< from its first element on
    std::vector<std::pair<std::string, std::string>> texts; ///< keys and values, in the arguments' order
    std::vector<std::pair<std::string, Texts>> lists{};     ///< after all texts
    int codeOfMissing = 0; ///< of the exception for a missing file, 0 for none
    int codeOfBroken = 0;  ///< of the exception for one that does not load
};

/// Calls a reader whose arguments are the path, the texts and then the lists.
template <auto reader, std::size_t textCount, std::size_t listCount = 0>
void readArguments(const std::string& path, ReadFile::Texts& texts, ReadFile::Lists& lists)
{
    ASSERT_EQ(texts.size(), textCount);
    ASSERT_EQ(lists.size(), listCount);
    [&]<std::size_t... text, std::size_t... list>(std::index_sequence<text...>, std::index_sequence<list...>)
    {
        reader(path, texts[text]..., lists[list]...);
    }
    (std::make_index_sequence<textCount>(), std::make_index_sequence<listCount>());
}

/// The record that a reader fills.
template <class Record>
Record recordOf(void (*reader)(std::string, Record&));

/// Calls a reader of a record whose members take the texts.
template <auto reader, auto... members>
void readMembers(const std::string& path, ReadFile::Texts& texts, ReadFile::Lists&)
{
    ASSERT_EQ(texts.size(), sizeof...(members));
    decltype(recordOf(reader)) record;
    std::size_t i = 0;
    ((record.*members = texts[i++]), ...);
    reader(path, record);
    i = 0;
    ((texts[i++] = record.*members), ...);
}

/// The text with another one in each place of a word.
inline std::string replaced(std::string text, const std::string& word, const std::string& by)
{
    for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += by.size()) {
        text.replace(at, word.size(), by);
    }
    return text;
}

/// The document with another text in the place of the first element of the key.
inline std::string withElement(std::string document, const std::string& key, const std::string& by)
{
    const std::size_t begin = document.find("<" + key + ">");
    const std::string end = "</" + key + ">";
    const std::size_t last = document.find(end, begin);
    if (begin == std::string::npos || last == std::string::npos) {
        ADD_FAILURE() << "no " << key << " in " << document;
        return document;
    }
    return document.replace(begin, last + end.size() - begin, by);
}

/// Calls the check for each of the files, so that a failure names it.
template <class File, class Check>
void forEach(const std::vector<File>& files, Check check)
{
    EXPECT_FALSE(files.empty());
    for (const File& file : files) {
        SCOPED_TRACE(file.name);
        check(file);
    }
}

/// Checks the bytes that a writer makes.
inline void expectDocument(const WrittenFile& file)
{
    const TemporaryFolder folder;
    EXPECT_EQ(file.write(folder / "a.xml"), 0);
    EXPECT_EQ(bytesOf(folder / "a.xml"), file.document);
}

/// Checks that nothing is left of a longer file that was there.
inline void expectReplacement(const WrittenFile& file)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", std::string(9000, 'x'));
    EXPECT_EQ(file.write(folder / "a.xml"), 0);
    EXPECT_EQ(bytesOf(folder / "a.xml"), file.document);
    EXPECT_EQ(namesIn(folder.path()), Names{"a.xml"});
}

/// Checks that a writer returns 1 and makes nothing where the folder is missing.
inline void expectNothingInAMissingFolder(const WrittenFile& file)
{
    const TemporaryFolder folder;
    EXPECT_EQ(file.write(folder / "missing/a.xml"), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

/// Checks that a writer returns 1 where the path is that of a folder.
inline void expectNothingInPlaceOfAFolder(const WrittenFile& file)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a.xml");
    EXPECT_EQ(file.write(folder / "a.xml"), 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a.xml"));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "a.xml"));
}

/// Reads the document into arguments that hold "old", and checks them. Keys of `untouched` stay.
inline void expectRead(const ReadFile& file, const std::string& document, const ReadFile::Texts& untouched)
{
    SCOPED_TRACE(document);
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<?xml version=\"1.0\" ?>\n" + replaced(document, "FOLDER", folder.path()));
    ReadFile::Texts texts(file.texts.size(), "old");
    ReadFile::Lists lists(file.lists.size(), ReadFile::Texts{"old"});
    file.read(folder / "a.xml", texts, lists);
    const auto isUntouched = [&untouched](const std::string& key) {
        for (const std::string& other : untouched) {
            if (key == other) {
                return true;
            }
        }
        return false;
    };
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto& [key, value] = file.texts[i];
        EXPECT_EQ(texts[i], isUntouched(key) ? "old" : replaced(value, "FOLDER", folder.path())) << key;
    }
    for (std::size_t i = 0; i < lists.size(); ++i) {
        const auto& [key, values] = file.lists[i];
        ReadFile::Texts expected{"old"};
        if (!isUntouched(key)) {
            expected.insert(expected.end(), values.begin(), values.end());
        }
        EXPECT_EQ(lists[i], expected) << key;
    }
}

/// The keys of a file, those of the lists last.
inline ReadFile::Texts keysOf(const ReadFile& file)
{
    ReadFile::Texts keys;
    for (const auto& [key, value] : file.texts) {
        keys.push_back(key);
    }
    for (const auto& [key, values] : file.lists) {
        keys.push_back(key);
    }
    return keys;
}

/// Checks each argument of a reader, lists appended to what they held.
inline void expectEachKey(const ReadFile& file)
{
    expectRead(file, file.document, {});
}

/// Checks that the name of the first element does not matter.
inline void expectAnyNameOfTheFirstElement(const ReadFile& file)
{
    const std::string document = file.document;
    const std::string name = document.substr(1, document.find('>') - 1);
    std::string renamed = replaced(document, "<" + name + ">", "<Other>");
    renamed = replaced(renamed, "</" + name + ">", "</Other>");
    EXPECT_NE(renamed, document);
    expectRead(file, renamed, {});
}

/// Checks that a key that is missing or empty leaves its argument, and that one alone.
inline void expectMissingAndEmptyKeysToLeaveTheirArguments(const ReadFile& file)
{
    for (const std::string& key : keysOf(file)) {
        for (const std::string& by : {std::string(), "<" + key + " />", "<" + key + "></" + key + ">"}) {
            expectRead(file, withElement(file.document, key, by), {key});
        }
    }
    expectRead(file, "<R />", keysOf(file));
}

/// Checks that keys are not found below an element of the first one, and none in a second element.
inline void expectKeysOfTheFirstElementAlone(const ReadFile& file)
{
    expectRead(file, "<Outer>\n" + std::string(file.document) + "</Outer>\n", keysOf(file));
    expectRead(file, "<First />\n" + std::string(file.document), keysOf(file));
}

/// Checks that blanks at both ends survive, and the letters that are written as entities.
inline void expectBlanksAndLetters(const ReadFile& file)
{
    ReadFile changed = file;
    std::string document = file.document;
    for (auto& [key, value] : changed.texts) {
        if (!value.starts_with("FOLDER")) {
            document = withElement(document, key,
                                   "<" + key + ">  " + value + " &lt;&amp;&gt;&quot;&apos;  </" + key + ">");
            value = "  " + value + " <&>\"'  ";
        }
    }
    expectRead(changed, document, {});
}

/// Checks that a file that is missing, or does not load, leaves all arguments, and the exception.
inline void expectNothingOfAFileThatDoesNotLoad(const ReadFile& file)
{
    const TemporaryFolder folder;
    const std::string document = file.document;
    makeFile(folder / "cut.xml", document.substr(0, document.rfind("</")));
    makeFile(folder / "empty.xml", "");
    makeFile(folder / "text.xml", "no element\n");
    for (const char* name : {"missing.xml", "missing/a.xml", "cut.xml", "empty.xml", "text.xml"}) {
        SCOPED_TRACE(name);
        const int code =
            std::string_view(name).starts_with("missing") ? file.codeOfMissing : file.codeOfBroken;
        ReadFile::Texts texts(file.texts.size(), "old");
        ReadFile::Lists lists(file.lists.size(), ReadFile::Texts{"old"});
        try {
            file.read(folder / name, texts, lists);
            EXPECT_EQ(code, 0) << "nothing was thrown";
        } catch (const tavelinUtils::TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), code);
            EXPECT_EQ(failure.getComment(), folder / name);
            EXPECT_STREQ(failure.what(), code == 1   ? "Parameter file does not exist"
                                         : code == 5 ? "Failed to read parameter"
                                                     : "");
        }
        EXPECT_EQ(texts, ReadFile::Texts(file.texts.size(), "old"));
        EXPECT_EQ(lists, ReadFile::Lists(file.lists.size(), ReadFile::Texts{"old"}));
    }
    EXPECT_FALSE(exists(folder / "missing.xml"));
    EXPECT_FALSE(exists(folder / "missing"));
}
