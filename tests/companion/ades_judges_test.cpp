// The receiver's own judges of ADES, where a checkout of them is at hand: TAVELIN_ADES names its folder. They
// take what `ready` writes, and refuse just what our rules refuse.

#include "companion/copies.h"
#include "findings/finding.h"
#include "reading/lint.h"
#include "reading/schema_validation.h"
#include "receivers/ades_copy.h"
#include "receivers/ades_fields.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace {

using companion::AdesForm;
using companion::CopyTrack;
using companion::Finding;
using companion::XmlSchema;

std::vector<CopyTrack> randomTracks(int tracks, int marks)
{
    std::mt19937_64 random(10000);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<CopyTrack> all;
    for (int number = 0; number < tracks; ++number) {
        std::vector<tavelinUtils::TRecLabelPervichka_File> made;
        for (int mark = 0; mark < marks; ++mark) {
            made.push_back(copies::markAt(unit(random), unit(random) * 360.0,
                                          std::asin(unit(random) * 2.0 - 1.0) * 57.29577951308232));
            made.back().m = 10.0 + unit(random) * 12.0;
        }
        const std::string names[] = {"AST" + std::to_string(10000 + number),
                                     "2024 YR" + std::to_string(number + 1), std::to_string(100000 + number),
                                     "C/2023 A" + std::to_string(number + 1)};
        all.push_back(copies::trackOf(names[number % 4], made));
    }
    return all;
}

// What an element's text may be spoilt to.
std::vector<std::string> spoilt(const std::string& text)
{
    std::vector<std::string> texts{"",    " ",   "x",     "-1",      "0",       "1e-1",    "NaN",  "1.",
                                   ".5",  "007", "+1",    "360.0",   "90.1",    "100000",  "-5.1", "a b",
                                   "a|b", "a.b", "A0345", "2025 IA", "J98SA8Q", "433 Eros"};
    texts.push_back(text + '0');
    texts.push_back(text + text + text + text);
    texts.push_back('0' + text);
    texts.push_back(text.substr(0, text.size() - 1));
    texts.push_back(std::string(9, 'A'));
    texts.push_back(std::string(26, '1'));
    texts.push_back("2025-02-30T12:00:00Z");
    texts.push_back("2025-02-23T23:59:60Z");
    texts.push_back("2016-12-31T23:59:60.5Z");
    return texts;
}

class AdesJudges : public testing::Test
{
protected:
    void SetUp() override
    {
        const char* const checkout = std::getenv("TAVELIN_ADES");
        if (checkout == nullptr) {
            GTEST_SKIP() << "not run: TAVELIN_ADES";
        }
        home = checkout;
    }

    bool isTaken(const XmlSchema& schema, const std::string& document) const
    {
        makeFile(folder / "a.xml", document);
        bool taken = true;
        schema.validate(folder / "a.xml", [&taken](const Finding&) { taken = false; });
        return taken;
    }

    // Whether our rules find what the schema would: those of words and of people are beyond it.
    bool isTakenByUs(const std::string& document) const
    {
        for (const std::string& each : copies::linted(document, "ades.xml", "ades")) {
            if (each.find(" V380 ") != std::string::npos) {
                return false;
            }
        }
        return true;
    }

    std::string home;
    TemporaryFolder folder;
};

TEST_F(AdesJudges, TakeTenThousandMarksInBothForms)
{
    const std::vector<CopyTrack> tracks = randomTracks(100, 100);
    const XmlSchema schema(home + "/xsd/submit.xsd");
    const companion::Copy copy = companion::adesCopy(tracks, copies::usualSettings(), AdesForm::xml);
    EXPECT_EQ(copy.refused, 0U);
    EXPECT_TRUE(isTaken(schema, copy.text));
    makeFile(folder / "a.psv", companion::adesCopy(tracks, copies::usualSettings(), AdesForm::psv).text);
    const std::string call = "cd '" + home + "/Python/ades' && python3 psvtoxml.py '" + (folder / "a.psv") +
                             "' '" + (folder / "b.xml") + "' >'" + (folder / "said") + "' 2>&1";
    EXPECT_EQ(std::system(call.c_str()), 0) << bytesOf(folder / "said");
    EXPECT_TRUE(isTaken(schema, bytesOf(folder / "b.xml")));
}

TEST_F(AdesJudges, RefuseJustWhatOurRulesRefuse)
{
    const XmlSchema schema(home + "/xsd/submit.xsd");
    std::size_t documents = 0;
    for (const CopyTrack& track : randomTracks(12, 1)) {
        const std::string good = companion::adesCopy({track}, copies::usualSettings(), AdesForm::xml).text;
        for (const companion::AdesField& field : companion::adesOptical()) {
            const std::string open = '<' + std::string(field.name) + '>';
            const std::size_t begin = good.find(open);
            if (begin == std::string::npos) {
                continue;
            }
            const std::size_t text = begin + open.size();
            const std::size_t end = good.find("</", text);
            for (const std::string& other : spoilt(good.substr(text, end - text))) {
                const std::string document = std::string(good).replace(text, end - text, other);
                EXPECT_EQ(isTaken(schema, document), isTakenByUs(document))
                    << field.name << ": \"" << other << '"';
                ++documents;
            }
        }
    }
    EXPECT_GE(documents, 2000U);
}

} // namespace
