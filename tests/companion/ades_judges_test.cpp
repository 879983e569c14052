// Judges of ADES: the schema that `tavelin schema ades` prints, and the receiver's own where a checkout of
// them is at hand, whose folder TAVELIN_ADES names. They take what `ready` writes, and refuse just what our
// rules refuse.

#include "companion/copies.h"
#include "findings/finding.h"
#include "reading/lint.h"
#include "reading/schema_validation.h"
#include "receivers/ades_copy.h"
#include "receivers/ades_fields.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <set>
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

// A schema, and the codes of our findings that say what it refuses.
struct Judge
{
    std::string schema;
    std::set<std::string> codes;
};

class AdesJudges : public testing::Test
{
protected:
    AdesJudges()
    {
        if (const char* const checkout = std::getenv("TAVELIN_ADES")) {
            home = checkout;
            judges.push_back({home + "/xsd/submit.xsd", {"V380"}});
        }
    }

    bool isTaken(const XmlSchema& schema, const std::string& document) const
    {
        makeFile(folder / "a.xml", document);
        bool taken = true;
        schema.validate(folder / "a.xml", [&taken](const Finding&) { taken = false; });
        return taken;
    }

    // Whether our rules find what the schema would.
    bool isTakenByUs(const std::set<std::string>& codes, const std::string& document) const
    {
        const std::vector<std::string> findings = copies::linted(document, "ades.xml", "ades");
        return std::none_of(findings.begin(), findings.end(), [&codes](const std::string& each) {
            return std::any_of(codes.begin(), codes.end(), [&each](const std::string& code) {
                return each.find(' ' + code + ' ') != std::string::npos;
            });
        });
    }

    // One document more for each text that each element of the good document may be spoilt to.
    std::size_t judgeSpoilt(const Judge& judge, const std::string& good) const
    {
        const XmlSchema schema(judge.schema);
        std::size_t documents = 0;
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
                EXPECT_EQ(isTaken(schema, document), isTakenByUs(judge.codes, document))
                    << judge.schema << ", " << field.name << ": \"" << other << '"';
                ++documents;
            }
        }
        return documents;
    }

    std::string home{}; // of the receiver's judges; empty without them
    // Ours knows the lists of words, the receiver's leaves them to people.
    std::vector<Judge> judges{{VOMAR_PROJECT "/companion/schema/ades.xsd", {"V380", "V381"}}};
    TemporaryFolder folder;
};

TEST_F(AdesJudges, TakeTenThousandMarksInBothForms)
{
    const std::vector<CopyTrack> tracks = randomTracks(100, 100);
    const companion::Copy xml = companion::adesCopy(tracks, copies::usualSettings(), AdesForm::xml);
    const companion::Copy psv = companion::adesCopy(tracks, copies::usualSettings(), AdesForm::psv);
    EXPECT_EQ(xml.refused, 0U);
    EXPECT_EQ(psv.refused, 0U);
    for (const Judge& judge : judges) {
        EXPECT_TRUE(isTaken(XmlSchema(judge.schema), xml.text)) << judge.schema;
    }
    EXPECT_EQ(copies::linted(psv.text, "ades.psv", "ades"), std::vector<std::string>());
    if (!home.empty()) {
        makeFile(folder / "a.psv", psv.text);
        const std::string call = "cd '" + home + "/Python/ades' && python3 psvtoxml.py '" +
                                 (folder / "a.psv") + "' '" + (folder / "b.xml") + "' >'" +
                                 (folder / "said") + "' 2>&1";
        EXPECT_EQ(std::system(call.c_str()), 0) << bytesOf(folder / "said");
        EXPECT_TRUE(isTaken(XmlSchema(home + "/xsd/submit.xsd"), bytesOf(folder / "b.xml")));
    }
}

TEST_F(AdesJudges, RefuseJustWhatOurRulesRefuse)
{
    for (const Judge& judge : judges) {
        std::size_t documents = 0;
        for (const CopyTrack& track : randomTracks(12, 1)) {
            documents +=
                judgeSpoilt(judge, companion::adesCopy({track}, copies::usualSettings(), AdesForm::xml).text);
        }
        EXPECT_GE(documents, 2000U);
    }
}

} // namespace
