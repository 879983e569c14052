#include "running/verifying.h"

#include "conversion.h"
#include "file_names.h"
#include "support/expected_files.h"
#include "support/temporary_folder.h"
#include "works.h"

#include <gmock/gmock.h>

namespace {

using companion::differences;
using companion::Finding;
using companion::Plan;
using companion::PlannedFile;
using companion::planOf;
using tavelinUtils::TConvMea;
using testing::HasSubstr;
using testing::IsEmpty;

// A conversion from MEA to a word, run by the tool's own work.
class Conversion
{
public:
    explicit Conversion(const std::string& word)
    {
        makeFile(folder / "in.mea", "T9 2000.0 UTC\n"
                                    "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                                    "12345   250223 1259599990 2359599999 +8959599999 001 -01.25\n"
                                    "Z6433   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                                    "A45678901 010124 0000000010 0000000001 -0000000001 001 00.00\n");
        task.path_in = folder / "in.mea";
        task.out_dir = folder.path() + "/";
        task.outputextension = ".out";
        task.inputformat = "mea";
        task.outputformat = word;
        task.PARTICIPANT_1 = "T\n9";
        task.originator = "a <b> & c";
        task.REFERENCE_FRAME = "ICRF";
        plan = planOf(task, ownWorks());
        converter(task, ownWorks());
    }

    std::vector<Finding> differ() const
    {
        const PlannedFile* const file = &plan.files.at(0);
        return differences(task, plan, std::span(&file, 1));
    }

    // With the last digit before a text replaced.
    void change(const std::string& behind)
    {
        std::string bytes = bytesOf(folder / "in.out");
        const std::size_t place = bytes.find_last_of("0123456789", bytes.rfind(behind));
        bytes[place] = bytes[place] == '5' ? '3' : '5';
        makeFile(folder / "in.out", bytes);
    }

    TemporaryFolder folder;
    TConvMea task;
    Plan plan;
};

TEST(Verifying, WhatTheToolWritesAgrees)
{
    for (const std::string& word : expectedFiles::words) {
        const Conversion conversion(word);
        for (const Finding& each : conversion.differ()) {
            ADD_FAILURE() << word << ": " << each.text;
        }
    }
}

TEST(Verifying, DigitThatIsAnotherIsFound)
{
    for (const std::string word : {"mea", "telegram", "tdm", "tdm.xml", "ssmas"}) {
        Conversion conversion(word);
        conversion.change(word == "tdm" ? "DATA_STOP" : word == "tdm.xml" ? "</MAG>" : "END");
        const auto found = conversion.differ();
        ASSERT_EQ(found.size(), 1u) << word;
        EXPECT_EQ(found[0].code.text(), "V417");
        EXPECT_THAT(found[0].text, HasSubstr(": magnitude")) << word;
    }
}

TEST(Verifying, LineOfAnotherLayoutIsFound)
{
    for (const std::string& word : expectedFiles::words) {
        Conversion conversion(word);
        const std::string bytes = bytesOf(conversion.folder / "in.out");
        makeFile(conversion.folder / "in.out", bytes.substr(0, bytes.size() / 2));
        EXPECT_EQ(conversion.differ().size(), 1u) << word;
    }
}

TEST(Verifying, NameThatIsAnotherIsFound)
{
    for (const std::string word : {"mea", "telegram", "tdm", "tdm.xml", "ssmas", "mpc", "mag", "aavso"}) {
        Conversion conversion(word);
        std::string bytes = bytesOf(conversion.folder / "in.out");
        bytes.replace(bytes.find("12345"), 5, "12346");
        makeFile(conversion.folder / "in.out", bytes);
        const auto found = conversion.differ();
        ASSERT_EQ(found.size(), 1u) << word;
        EXPECT_THAT(found[0].text, HasSubstr(": name")) << word;
    }
}

} // namespace
