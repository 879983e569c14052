// Each finding that the subcommands tell occurs in what a golden case prints.

#include "companion/golden.h"
#include "findings/finding_table.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

using companion::FindingRow;

// The first of those that only a run tells. They have tests of their own beside cases: some need a tool that
// is not there, or a system without memory.
constexpr companion::FindingCode firstOfRuns = "V400";

// Those that a case prints: at the end of a line of text, or as the code of a finding in JSON.
std::set<std::string> codesOf(const std::string& place)
{
    static const std::regex code(R"re(\[(V\d{3})\](?:\n|$)|"code": ?"(V\d{3})")re");
    std::set<std::string> codes;
    for (const char* file : {"/text", "/messages", "/json"}) {
        const std::string path = std::string(VOMAR_PROJECT) + "/tests/companion/" + place + file;
        const std::string text = exists(path) ? bytesOf(path) : "";
        for (std::sregex_iterator found(text.begin(), text.end(), code); found != std::sregex_iterator();
             ++found) {
            codes.insert((*found)[1].matched ? (*found)[1].str() : (*found)[2].str());
        }
    }
    return codes;
}

// Whether check, lint, run or normalise tells it, or every subcommand.
bool isTold(const FindingRow& row)
{
    return row.by == "all" || row.by.find_first_of("clrn") != std::string_view::npos;
}

} // namespace

TEST(GoldenCodes, EachFindingOccursInACase)
{
    std::set<std::string> printed;
    for (const std::string group : {"check", "lint", "run", "info", "explain", "normalise", "diff"}) {
        for (const std::string& name : goldenCases(group)) {
            printed.merge(codesOf(group + '/' + name));
        }
    }
    for (const FindingRow& row : companion::findingTable()) {
        if (row.code < firstOfRuns && isTold(row)) {
            EXPECT_TRUE(printed.contains(row.code.text())) << row.code.text() << ' ' << row.text;
        }
    }
}

namespace {

struct Trap
{
    const char* place; // of the case
    const char* code;
};

} // namespace

TEST(GoldenCodes, EachTrapOfATaskIsToldInTheCaseThatIsNamedAfterIt)
{
    const Trap traps[] = {{"check/empty_later_seria", "V230"},
                          {"run/never_ends_is_refused", "V230"},
                          {"check/result_bare", "V031"},
                          {"check/result_folder_missing", "V032"},
                          {"check/out_dir_missing", "V037"},
                          {"check/report_to_root", "V037"},
                          {"check/bare_input", "V053"},
                          {"check/capital_true", "V025"},
                          {"check/extension_point", "V043"},
                          {"check/extension_point_in_a_report", "V044"},
                          {"check/unknown_output_word", "V040"},
                          {"check/same_file_dot", "V047"},
                          {"check/same_file_symlink", "V047"},
                          {"check/same_file_hardlink", "V047"},
                          {"check/result_is_the_input", "V034"},
                          {"check/output_is_the_configuration", "V051"},
                          {"check/output_only_word", "V041"},
                          {"check/no_frame", "V067"},
                          {"check/name_with_slash", "V247"},
                          {"check/autoname_with_slash", "V065"},
                          {"run/died", "V410"},
                          {"check/colliding_names", "V246"},
                          {"check/tasks_write_one_file", "V050"},
                          {"check/exclusion_out_of_range", "V234"},
                          {"check/two_configurations", "V218"},
                          {"check/editor_lock_file", "V219"},
                          {"check/eachgroup_losses", "V240"},
                          {"check/eachgroup_empty_pieces", "V241"},
                          {"check/satellite_in_mpc", "V311"},
                          {"check/satellite_in_mpc", "V318"},
                          {"lint/byte_order_mark_table", "V100"},
                          {"lint/byte_order_mark_mpc", "V100"},
                          {"lint/byte_order_mark_mea", "V100"},
                          {"lint/decimal_comma", "V124"},
                          {"lint/utf16", "V101"},
                          {"lint/cr_only", "V102"},
                          {"check/inner_doctype", "V015"},
                          {"lint/table_without_last_end", "V201"},
                          {"check/no_entry_types", "V222"}};
    std::map<std::string, std::set<std::string>> printed;
    for (const Trap& trap : traps) {
        const std::string place = trap.place;
        const auto [codes, isNew] = printed.try_emplace(place);
        if (isNew) {
            codes->second = codesOf(place);
        }
        EXPECT_TRUE(codes->second.contains(trap.code)) << place << ' ' << trap.code;
    }
}
