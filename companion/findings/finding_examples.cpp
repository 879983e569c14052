#include "findings/finding_examples.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

// Made by scripts/make_companion_texts from the cases of the tests.
// clang-format off
constexpr FindingExample rows[] = {
    {"V001", "explain/several_things", "explain V240 7",
     "tavelin: explain: takes one WHAT [V001]"},
    {"V002", "explain/unknown_code", "explain 14",
     "tavelin: no result code \"14\" [V002]"},
    {"V003", "explain/no_result_file", "explain --as=result night.txt",
     "tavelin: night.txt: it holds no result [V003]"},
    {"V011", "explain/task_that_loads_not", "explain night.xml",
     "tavelin: the task is not well-formed XML: Premature end of data in tag task line 1 [V011]"},
    {"V062", "check/no_tracks", "check task.xml",
     "task.xml:2:5: error: no tracks can be read from ./night.mea [V062]"},
    {"V064", "check/autoname_without_marks", "check task.xml",
     "task.xml:10:5: error: autoname, but there is no first mark to name the file by [V064]"},
    {"V065", "check/autoname_with_slash", "check task.xml",
     "task.xml:10:5: error: the automatic name \"T1/2-12345-2023-02-25T12-00-00-.tdm\" contains a slash [V065]"},
    {"V066", "check/autoname_of_60_seconds", "check task.xml",
     "task.xml:10:5: note: the automatic name \"T1-12345-2023-02-25T11-59-60-.tdm\" says 60 seconds [V066]"},
    {"V067", "check/no_frame", "check task.xml",
     "task.xml: warning: no REFERENCE_FRAME, so the frame of every track becomes empty [V067]"},
    {"V068", "check/unknown_frame", "check task.xml",
     "task.xml:8:5: warning: the frame \"J2000\" is not in the list of the standard [V068]"},
    {"V069", "check/silent_telescope", "check task.xml",
     "task.xml: warning: no PARTICIPANT_1, so its default \"telescope\" replaces what the file says, \"K88\" [V069]"},
    {"V070", "check/autoname_with_slash", "check task.xml",
     "task.xml:9:5: note: PARTICIPANT_1 replaces \"T1\" of the file by \"T1/2\" [V070]"},
    {"V071", "check/conversion_to_mpc", "check task.xml",
     "task.xml:6:5: warning: an MPC report of a conversion has no header, the station code 500 and the band R [V071]"},
    {"V072", "check/conversion_to_aavso", "check task.xml",
     "task.xml:6:5: warning: an AAVSO report of a conversion has the magnitude 0.000 and the error inf in every line [V072]"},
    {"V073", "check/conversion_to_mag", "check task.xml",
     "task.xml:6:5: note: a light curve of a conversion has its magnitudes in the first of five columns [V073]"},
    {"V074", "check/names_with_blanks", "check task.xml",
     "task.xml: warning: 1 name with a blank or without a letter cannot be read back from mea files [V074]"},
    {"V168", "check/autoname_without_marks", "check task.xml",
     "./night.tel:2:1: warning: a block without marks [V168]"},
    {"V210", "check/first_track_without_marks", "check task.xml",
     "night/tavelin/dataVO/obj.txt:3:1: warning: track 0 has no marks [V210]"},
    {"V240", "check/eachgroup_empty_pieces", "check task.xml",
     "task.xml: warning: 3 of 3 marks would be in no file: each piece of a track that is cut loses its last mark [V240]"
     "\n" "    series 1 night, track 0 A, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    series 1 night, track 0 A, mark 1, 2023-02-25T13:00:00.000"
     "\n" "    series 1 night, track 0 A, mark 2, 2023-02-25T14:00:00.000"},
    {"V241", "check/eachgroup_empty_pieces", "check task.xml",
     "task.xml: error: 3 pieces of tracks would have no mark left and make no file [V241]"
     "\n" "    series 1 night, track 0 A, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    series 1 night, track 0 A, mark 1, 2023-02-25T13:00:00.000"
     "\n" "    series 1 night, track 0 A, mark 2, 2023-02-25T14:00:00.000"},
    {"V243", "check/excluded_marks", "check task.xml",
     "task.xml: note: 1 mark excluded, 0 narrowed away [V243]"},
    {"V244", "check/long_running_names", "check task.xml",
     "task.xml: note: 9,001 objects without a name get a running one, another in the next run: AST1000, AST1001, AST1002, AST1003, AST1004, ... [V244]"},
    {"V245", "check/long_running_names", "check task.xml",
     "task.xml: warning: running numbers go beyond AST9999 [V245]"},
    {"V246", "check/colliding_names", "check task.xml",
     "task.xml: error: 2 files of the report have the one path out/A.txt [V246]"},
    {"V247", "check/name_with_slash", "check task.xml",
     "task.xml: error: the name \"A/B.txt\" contains a slash [V247]"},
    {"V248", "check/name_leads_out", "check task.xml",
     "task.xml: error: the name leads out of out_dir: out/../../A.txt [V248]"},
    {"V249", "check/name_too_long", "check task.xml",
     "task.xml: error: the name \"AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA.txt\" is longer than 255 bytes [V249]"},
    {"V250", "check/first_track_without_marks", "check task.xml",
     "task.xml: error: the first track of the file of series 1 has no mark, so 1 mark of its others are in no file [V250]"
     "\n" "    series 1 night, track 1 A, mark 0, 2023-02-25T12:00:00.000"},
    {"V254", "check/colliding_names", "check task.xml",
     "task.xml: note: object A has 2 filters and so 2 files [V254]"},
    {"V256", "check/filters_of_the_first_track", "check task.xml",
     "task.xml: warning: FILTER of 1 mark is that of the first track [V256]"},
    {"V301", "check/autoname_of_60_seconds", "check task.xml",
     "task.xml: note: tdm files are not for sending as they are (V340, V341); see tavelin ready --for ccsds [V301]"},
    {"V302", "explain/doubt", "explain 7",
     "tavelin: the format is not certain: a code or a file? [V302]"},
    {"V311", "check/conversion_to_mpc", "check task.xml",
     "task.xml: error: \"12345\" stands where numbers of minor planets stand, and is read as (12345), the first of 2 such marks [V311]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"},
    {"V312", "check/long_running_names", "check task.xml",
     "task.xml: error: the name \"AST10000\" begins in column 5: names begin in column 6 and have up to 7 letters and digits [V312]"
     "\n" "    series 1 night, track 9000 AST10000, mark 0, 2023-02-25T12:00:00.000"},
    {"V318", "check/satellite_in_mpc", "check task.xml",
     "task.xml: error: \"25544\" is an artificial satellite [V318]"
     "\n" "    series 1 night, track 0 25544, mark 0, 2023-02-25T12:00:00.000"},
    {"V361", "check/conversion_to_aavso", "check task.xml",
     "task.xml: error: MAGERR is \"inf\": a number from 0 to below 1 is wanted, or na, the first of 2 such marks [V361]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    track 0 12345, mark 1, 2023-02-25T12:10:00.000"},
    {"V362", "check/conversion_to_aavso", "check task.xml",
     "task.xml: error: the magnitude is 0.000, the first of 2 such marks [V362]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    track 0 12345, mark 1, 2023-02-25T12:10:00.000"},
};
// clang-format on

} // namespace

std::span<const FindingExample> findingExamples()
{
    return rows;
}

const FindingExample* findingExample(FindingCode code)
{
    const auto* const row =
        std::lower_bound(std::begin(rows), std::end(rows), code,
                         [](const FindingExample& each, FindingCode wanted) { return each.code < wanted; });
    return row != std::end(rows) && row->code == code ? row : nullptr;
}

} // namespace companion
