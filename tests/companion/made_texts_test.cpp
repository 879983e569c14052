// Texts that are made from the tables of the command, where no kept page shows it.

#include "command/subcommand.h"
#include "texts/completion_texts.h"
#include "texts/fidelity_text.h"
#include "texts/manual_texts.h"
#include "texts/option_texts.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace companion;
using testing::HasSubstr;

TEST(MadeTexts, EverySubcommandHasOperands)
{
    for (const Subcommand* each : subcommands()) {
        EXPECT_FALSE(std::string(each->operands).empty()) << each->name;
    }
}

TEST(MadeTexts, OnlyThreeShellsHaveACompletion)
{
    for (const char* shell : {"bash", "zsh", "fish"}) {
        EXPECT_THAT(completionOf(shell), HasSubstr("tavelin")) << shell;
    }
    EXPECT_EQ(completionOf("csh"), "");
}

TEST(MadeTexts, AFlagTakesNoPath)
{
    EXPECT_FALSE(takesPath({"quick", 0, nullptr, "help"}));
    EXPECT_FALSE(takesPath({"jobs", 0, "N", "help"}));
    EXPECT_TRUE(takesPath({"profile", 0, "FILE", "help"}));
}

TEST(MadeTexts, LinesOfAPageStayButForItsMadeSections)
{
    EXPECT_EQ(manualWithTables("a\nb", ""), "a\nb");
    EXPECT_EQ(
        manualWithTables("a\n; made: name\nold\n; end\nb\n", "check").find("a\n; made: name\n# NAME\n\n"),
        0U);
}

TEST(MadeTexts, SectionsThatCannotBeMadeAreFaults)
{
    EXPECT_THROW(manualWithTables("; made: name\n; end\n", "chek"), std::runtime_error);
    EXPECT_THROW(manualWithTables("; made: author\n; end\n", "check"), std::runtime_error);
    EXPECT_THROW(manualWithTables("; made: name\n", "check"), std::runtime_error);
}

TEST(Fidelity, AMarkThatComesBackUnderAnotherNameIsNotFound)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.tdm",
             "CCSDS_TDM_VERS = 2.0\nCREATION_DATE = 2025-02-24T00:00:00\nORIGINATOR = K88\nMETA_START\n"
             "TIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\nPARTICIPANT_2 = a b\nMODE = SEQUENTIAL\nPATH = 2,1\n"
             "ANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\nDATA_START\n"
             "ANGLE_1 = 2025-02-23T12:00:00 15.0\nANGLE_2 = 2025-02-23T12:00:00 -0.5\n"
             "MAG = 2025-02-23T12:00:00 9.5\nDATA_STOP\n");
    PairFidelity sum;
    addFidelity(folder / "night.tdm", "tdm", "mpc", sum); // blanks in a name are not read back
    EXPECT_EQ(sum.marks, 1U);
    EXPECT_EQ(sum.found, 0U);
}

TEST(Fidelity, MarksThatAreLostOrHaveNoMagnitudeAreSeen)
{
    const TemporaryFolder folder;
    makeFile(folder / "night.mea", "K88 2000.0 UTC\n"
                                   "thirteen_long 250223 1200000000 0100000000 -0030000000 001 00.00\n");
    PairFidelity sum;
    addFidelity(folder / "night.mea", "mea", "mpc", sum);
    EXPECT_EQ(sum.marks, 1U);
    EXPECT_EQ(sum.found, 0U);
    EXPECT_EQ(sum.magnitudes, 0U);
    EXPECT_THAT(fidelityPage({folder / "night.mea"}), HasSubstr("\n| `mpc` | 0 | "));
}

} // namespace
