#include "running/verifying.h"

#include "conversion.h"
#include "file_names.h"
#include "multi_report.h"
#include "support/expected_files.h"
#include "support/report_series.h"
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

const std::string meaOfThree = "T9 2000.0 UTC\n"
                               "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                               "12345   250223 1259599990 2359599999 +8959599999 001 -01.25\n"
                               "Z6433   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                               "A45678901 010124 0000000010 0000000001 -0000000001 001 00.00\n";

// A conversion to a word, run by the tool's own work.
class Conversion
{
public:
    explicit Conversion(const std::string& word, const std::string& input = meaOfThree,
                        const std::string& inputWord = "mea")
    {
        makeFile(folder / "in.mea", input);
        task.path_in = folder / "in.mea";
        task.out_dir = folder.path() + "/";
        task.outputextension = ".out";
        task.inputformat = inputWord;
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

    // With the first of a text replaced.
    void replace(const std::string& text, const std::string& other)
    {
        std::string bytes = bytesOf(folder / "in.out");
        ASSERT_NE(bytes.find(text), bytes.npos) << text;
        makeFile(folder / "in.out", bytes.replace(bytes.find(text), text.size(), other));
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

// A field of the first mark that is written in another way, and what the file then differs in.
struct OtherField
{
    const char* word;
    const char* written;
    const char* other;
    const char* field;
};

const OtherField otherFields[] = {
    {"mea", "12345   250223 1200000000 0100000000 -0030000000 001 09.50", "12345", "layout of the line"},
    {"mea", "250223", "25022", "time"},
    {"mea", "1200000000", "1100000000", "time"},
    {"mea", "0100000000", "0200000000", "right ascension"},
    {"mea", "-0030000000", "-00", "declination"},
    {"mea", " 001 ", " 002 ", "layout of the line"},
    {"mea", "09.50", "09.40", "magnitude"},
    {"telegram", "01000000", "02000000", "right ascension"},
    {"telegram", "001095", "002095", "layout of the line"},
    {"ssmas", "00.00  01:", "00.00 x 01:", "layout of the line"},
    {"ssmas", "-00.30", "-01.30", "declination"},
    {"ssmas", " 001 ", " 002 ", "layout of the line"},
    {"tdm", "ANGLE_1", "ANGLE_3", "layout of the line"},
    {"tdm", "ANGLE_2", "ANGLE_3", "layout of the line"},
    {"tdm", "MAG", "MAP", "layout of the line"},
    {"tdm", "ANGLE_1 = 2023-02-25T12:00:00.00000 ", "ANGLE_1 = ", "layout of the line"},
    {"tdm", "ANGLE_1 = 2023-02-25T12", "ANGLE_1 = 2023-02-25T13", "time"},
    {"tdm", "ANGLE_1 = 2023-02-25T", "ANGLE_1 = 20230225T", "time"},
    {"tdm", "ANGLE_1 = 2023-02-25T", "ANGLE_1 = 02-25T", "time"},
    {"tdm", "ANGLE_1 = 2023-02-25T", "ANGLE_1 = -25T", "time"},
    {"tdm", "ANGLE_1 = 2023-02-25T12:00:00.00000 15.", "ANGLE_1 = 2023-02-25T12:00:00.00000 16.",
     "right ascension"},
    {"tdm.xml", "<ANGLE_1>", "<ANGLE_3>", "layout of the line"},
    {"tdm.xml", "<ANGLE_2>", "<ANGLE_3>", "layout of the line"},
    {"tdm.xml", "<MAG>", "<MAP>", "layout of the line"},
    {"tdm.xml", "<EPOCH>2023-02-25T12", "<EPOCH>2023-02-25T13", "time"},
    {"tdm.xml", "<ANGLE_2>-0.5", "<ANGLE_2>-0.6", "declination"},
    {"mpc", "2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5", "2023 02", "layout of the line"},
    {"mpc", "25.50000", "25.60000", "time"},
    {"mpc", " 01 00 00.00", " 02 00 00.00", "right ascension"},
};

TEST(Verifying, FieldThatIsAnotherIsFound)
{
    for (const OtherField& row : otherFields) {
        SCOPED_TRACE(std::string(row.word) + ": " + row.other);
        Conversion conversion(row.word);
        conversion.replace(row.written, row.other);
        const auto found = conversion.differ();
        ASSERT_EQ(found.size(), 1u);
        EXPECT_THAT(found[0].text, HasSubstr(std::string(": ") + row.field));
    }
}

TEST(Verifying, FileThatIsGoneHasNoneOfTheMarks)
{
    for (const std::string& word : expectedFiles::words) {
        const Conversion conversion(word);
        std::filesystem::remove(conversion.folder / "in.out");
        EXPECT_EQ(conversion.differ().size(), 1u) << word;
    }
}

TEST(Verifying, FilesThatWereNotAskedForAreLeftAlone)
{
    Conversion conversion("mea");
    conversion.change("END");
    EXPECT_THAT(differences(conversion.task, conversion.plan, {}), IsEmpty());
    EXPECT_THAT(differences(conversion.task, Plan{}, {}), IsEmpty());
}

TEST(Verifying, FileOfAnUnknownWordIsNotCompared)
{
    EXPECT_THAT(Conversion("nonsense").differ(), IsEmpty());
}

// A message of one mark, after a segment without any.
std::string messageOf(const std::string& epoch, const std::string& angle1, const std::string& angle2,
                      const std::string& magnitude)
{
    return "META_START\nPARTICIPANT_1 = T9\nPARTICIPANT_2 = Z\nMETA_STOP\nDATA_START\nDATA_STOP\n"
           "META_START\nPARTICIPANT_2 = A\nMETA_STOP\nDATA_START\nANGLE_1 = " +
           epoch + ' ' + angle1 + "\nANGLE_2 = " + epoch + ' ' + angle2 + "\nMAG = " + epoch + ' ' +
           magnitude + "\nDATA_STOP\n";
}

TEST(Verifying, TracksWithoutMarksHaveNothingToCompare)
{
    const std::string input = messageOf("2023-02-25T12:00:00", "15.0", "-0.5", "9.5");
    for (const std::string& word : expectedFiles::words) {
        EXPECT_THAT(Conversion(word, input, "tdm").differ(), IsEmpty()) << word;
    }
}

TEST(Verifying, TwoNumbersOfAnObjectAreThoseOfTheInput)
{
    const std::string input = expectedFiles::inputOf("ssmas", {{"12345", 2}});
    const std::string other = std::string(input).replace(input.find("12345 12345"), 11, "12345 99001");
    Conversion conversion("ssmas", other, "ssmas");
    EXPECT_THAT(conversion.differ(), IsEmpty());
    conversion.replace("12345 99001", "12345 12345");
    EXPECT_EQ(conversion.differ().size(), 1u);
}

// The mark that the file was written of has 2023-02-25T12:00:00, 15, -0.5 and 9.5.
struct PlannedMark
{
    const char* epoch;
    const char* angle1;
    const char* angle2;
    const char* magnitude;
    const char* field; // in which the file differs; empty where the planned value has no digits
};

const PlannedMark plannedMarks[] = {
    {"2023-02-25T13:00:00", "15.0", "-0.5", "9.5", "time"},
    {"2023-02-25T24:00:00", "15.0", "-0.5", "9.5", ""},
    {"2023-02-25T-12:00:00", "15.0", "-0.5", "9.5", ""},
    {"0999-02-25T12:00:00", "15.0", "-0.5", "9.5", ""},
    {"10000-02-25T12:00:00", "15.0", "-0.5", "9.5", ""},
    {"2023-02-25T12:00:00", "16.0", "-0.5", "9.5", "right ascension"},
    {"2023-02-25T12:00:00", "-1.0", "-0.5", "9.5", ""},
    {"2023-02-25T12:00:00", "361.0", "-0.5", "9.5", ""},
    {"2023-02-25T12:00:00", "nan", "-0.5", "9.5", ""},
    {"2023-02-25T12:00:00", "15.0", "0.5", "9.5", "declination"},
    {"2023-02-25T12:00:00", "15.0", "91.0", "9.5", ""},
    {"2023-02-25T12:00:00", "15.0", "inf", "9.5", ""},
    {"2023-02-25T12:00:00", "15.0", "-0.5", "9.6", "magnitude"},
    {"2023-02-25T12:00:00", "15.0", "-0.5", "-1000", ""},
    {"2023-02-25T12:00:00", "15.0", "-0.5", "nan", ""},
};

TEST(Verifying, NumbersBeyondTheirRangeAreNotCompared)
{
    for (const PlannedMark& row : plannedMarks) {
        SCOPED_TRACE(std::string(row.epoch) + ' ' + row.angle1 + ' ' + row.angle2 + ' ' + row.magnitude);
        const Conversion conversion("mea", messageOf("2023-02-25T12:00:00", "15.0", "-0.5", "9.5"), "tdm");
        makeFile(conversion.task.path_in, messageOf(row.epoch, row.angle1, row.angle2, row.magnitude));
        const auto found = conversion.differ();
        ASSERT_EQ(found.size(), *row.field == 0 ? 0u : 1u);
        if (!found.empty()) {
            EXPECT_THAT(found[0].text, HasSubstr(std::string(": ") + row.field));
        }
    }
}

// The five decimals of a day round up to the next one, and the date stays.
TEST(Verifying, MomentBeforeMidnightMayHaveLostItsDay)
{
    const std::string mark = "12345   250223 2359599999 0100000000 -0030000000 001 09.50\n";
    Conversion conversion("mpc", "T9 2000.0 UTC\n" + mark);
    EXPECT_THAT(conversion.differ(), IsEmpty());
    conversion.replace("2023 02 25.00000", "2023 02 25.00002");
    EXPECT_EQ(conversion.differ().size(), 1u);
}

// A report of satellites has its names from another column than its lines.
TEST(Verifying, NameOfAReportLineIsTheAnswerOfTheChecker)
{
    report_series::Bench bench;
    bench.add("s1", report_series::track("A", "Z6433", "99001", {{"12:00:00", "9.5"}}),
              report_series::configuration("satellites"));
    const Plan plan = planOf(bench.task, ownWorks());
    CreateMultiReport(bench.task, ownWorks());
    const PlannedFile* const file = &plan.files.at(0);
    EXPECT_THAT(bytesOf(file->path), HasSubstr("Z6433"));
    EXPECT_THAT(differences(bench.task, plan, std::span(&file, 1)), IsEmpty());
    makeFile(file->path, "COD 500\n" + report_series::line("       99001", "25.50000", "09.5"));
    EXPECT_EQ(differences(bench.task, plan, std::span(&file, 1)).size(), 1u);
}

} // namespace
