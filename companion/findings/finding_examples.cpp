#include "findings/finding_examples.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

// Made by scripts/make_companion_texts from the cases of the tests.
// clang-format off
constexpr FindingExample rows[] = {
    {"V001", "explain/markdown_without_list", "explain --markdown V240",
     "tavelin: --markdown: goes with --list only [V001]"},
    {"V002", "lint/wrong_format_word", "lint --as maa night.mea",
     "tavelin: no format \"maa\"; did you mean \"mea\"? [V002]"},
    {"V003", "lint/missing_file", "lint missing.mea night.mea",
     "tavelin: missing.mea: No such file or directory [V003]"},
    {"V004", "run/job_log_exists", "run plain.xml --joblog log",
     "tavelin: log exists; --force would replace it [V004]"},
    {"V005", "run/job_log_is_the_task", "run plain.xml --joblog ./plain.xml",
     "tavelin: ./plain.xml is the input itself [V005]"},
    {"V010", "check/missing_task", "check missing.xml",
     "missing.xml: error: the task cannot be opened: No such file or directory [V010]"},
    {"V011", "check/less_than_in_value", "check task.xml",
     "task.xml:3:23: error: the task is not well-formed XML: error parsing attribute name [V011]"},
    {"V012", "check/utf16", "check task.xml",
     "task.xml: error: the task is UTF-16 text [V012]"},
    {"V013", "check/no_element", "check task.xml",
     "task.xml: error: the task has no element [V013]"},
    {"V014", "check/too_many_attributes", "check task.xml",
     "task.xml: error: the task has more than 10,000 attributes in one element [V014]"},
    {"V015", "check/inner_doctype", "check task.xml",
     "task.xml:2:1: error: the document type declaration has an internal part [V015]"},
    {"V016", "check/keys_too_deep", "check task.xml",
     "task.xml:3:1: error: all keys are one level too deep [V016]"},
    {"V020", "check/unknown_key", "check task.xml",
     "task.xml:13:5: warning: unknown key \"path_inn\"; did you mean \"path_in\"? [V020]"},
    {"V021", "check/key_twice", "check task.xml",
     "task.xml:13:5: warning: key \"out_dir\" occurs twice [V021]"},
    {"V022", "check/blanks_around_value", "check task.xml",
     "task.xml:3:5: warning: the value of \"path_in\" has blanks at its front [V022]"},
    {"V023", "check/value_begins_with_comment", "check task.xml",
     "task.xml:8:5: warning: \"originator\" begins with a comment [V023]"},
    {"V024", "check/empty_keys", "check task.xml",
     "task.xml:8:5: note: \"originator\" is empty, so its default stays: observatory [V024]"},
    {"V025", "check/capital_true", "check task.xml",
     "task.xml:8:5: warning: \"longname\" is \"True\" and so false [V025]"},
    {"V026", "check/misread_number", "check task.xml",
     "task.xml:12:5: warning: \"interval\" is \"30 min\" and is read as 30 [V026]"},
    {"V027", "check/frame_in_a_report", "check task.xml",
     "task.xml:12:5: note: \"REFERENCE_FRAME\" changes nothing in a report [V027]"},
    {"V028", "check/no_autoname", "check task.xml",
     "task.xml: note: no autoname, taken as false [V028]"},
    {"V029", "check/key_inside_a_key", "check task.xml",
     "task.xml:9:9: warning: \"originator\" contains the key \"path_res\", which is not seen [V029]"},
    {"V030", "check/no_result", "check task.xml",
     "task.xml: warning: no path_res: nothing will say how the run ended [V030]"},
    {"V031", "check/result_bare", "check task.xml",
     "task.xml:12:5: error: path_res \"result.xml\" has no folder part [V031]"},
    {"V032", "check/result_folder_is_a_file", "check task.xml",
     "task.xml:12:5: error: the folder \"night.mea\" of path_res is not a folder [V032]"},
    {"V033", "check/old_result", "check task.xml",
     "task.xml:12:5: warning: path_res ends in \".log\", so the result is a text log [V033]"},
    {"V034", "check/result_is_the_configuration", "check task.xml",
     "task.xml:11:5: error: path_res is the configuration of a series [V034]"},
    {"V035", "check/result_is_a_folder", "check task.xml",
     "task.xml:12:5: error: path_res ./out exists and is not a result file [V035]"},
    {"V036", "check/shared_result", "check task.xml other.xml",
     "other.xml:12:5: warning: the result document out/result.xml is that of 2 tasks, also of task.xml [V036]"},
    {"V037", "check/out_dir_is_a_file", "check task.xml",
     "task.xml:4:5: error: out_dir \"night.mea\" is not a folder but a file [V037]"},
    {"V038", "check/out_dir_is_a_socket", "check task.xml",
     "task.xml:4:5: error: out_dir \"socket\" is not a folder but a socket [V038]"},
    {"V039", "check/out_dir_ends_in_backslash", "check task.xml",
     "task.xml:4:5: error: out_dir ends in a backslash [V039]"},
    {"V040", "check/unknown_input_word", "check task.xml",
     "task.xml:6:5: error: unknown input format \"MEA\"; did you mean \"mea\"? [V040]"},
    {"V041", "check/output_only_word", "check task.xml",
     "task.xml:6:5: error: the format \"mpc\" can be written but not read; tavelin ready reads it [V041]"},
    {"V042", "check/output_word_vomar", "check task.xml",
     "task.xml:7:5: error: \"vomar\" is a word for inputformat, not for outputformat [V042]"},
    {"V043", "check/extension_point", "check task.xml",
     "task.xml:5:5: warning: outputextension \"tel\" does not begin with a point [V043]"},
    {"V044", "check/extension_point_in_a_report", "check task.xml",
     "task.xml:4:5: warning: outputextension \".tel\" of a report begins with a point [V044]"},
    {"V045", "check/extension_with_slash", "check task.xml",
     "task.xml:5:5: warning: outputextension \".d/tel\" contains a slash [V045]"},
    {"V046", "check/output_is_the_input", "check task.xml",
     "task.xml:3:5: error: the output is the input: ./night.mea [V046]"},
    {"V047", "check/same_file_dot", "check task.xml",
     "task.xml:3:5: error: the output is the input by another spelling or a link: out/night.mea [V047]"},
    {"V048", "check/light_curve_over_a_link", "check task.xml",
     "task.xml: note: 1 file would be replaced [V048]"},
    {"V049", "check/light_curve_over_a_link", "check task.xml",
     "task.xml:5:5: warning: the output out/night.mag is a link [V049]"},
    {"V050", "check/tasks_write_one_file", "check task.xml other.xml",
     "other.xml: error: out/night.tel is written by 2 tasks, also by task.xml [V050]"},
    {"V051", "check/output_is_the_configuration", "check task.xml",
     "task.xml:4:5: error: the output series/night1/night1.conf is the configuration of a series [V051]"},
    {"V052", "check/extension_with_slash", "check task.xml",
     "task.xml:5:5: error: the output path out/night.d/tel cannot be written [V052]"},
    {"V053", "check/bare_input", "check task.xml",
     "task.xml:3:5: error: path_in \"night.mea\" has no folder part and out_dir is not usable [V053]"},
    {"V054", "check/backslashes", "check task.xml",
     "task.xml:3:5: warning: path_in \"data\\night.mea\" contains a backslash [V054]"},
    {"V060", "check/backslashes", "check task.xml",
     "task.xml:3:5: error: the input data\\night.mea does not exist [V060]"},
    {"V061", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "date_too_short.mea:2:9: error: reading ends at line 2: \"250\" is too short to be date [V061]"
     "\n" "    12345   250 1200000000 0100000000 +205301234 001 09.50"
     "\n" "            ^~~"},
    {"V062", "check/backslashes", "check task.xml",
     "task.xml:3:5: error: no tracks can be read from data\\night.mea [V062]"},
    {"V063", "check/input_of_another_format", "check task.xml",
     "task.xml:6:5: warning: the input looks like TDM, but inputformat is \"mea\" [V063]"},
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
    {"V075", "check/conversion_to_aavso", "check task.xml",
     "task.xml:6:5: note: 1 of 2 marks would lose digits of time in this format [V075]"},
    {"V100", "lint/byte_order_mark_mea", "lint night.mea",
     "night.mea:1:1: error: byte order mark at the start of the file [V100]"
     "\n" "    \\xEF\\xBB\\xBFK88 2000.0 UTC"
     "\n" "    ^~~~~~~~~~~~"},
    {"V101", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "wide_characters.tel:1:1: error: the text is UTF-16 [V101]"
     "\n" "    \\xFF\\xFEM\\x00P\\x00C\\x00 \\x008\\x000\\x007\\x00 \\x00P\\x001\\x000\\x00v\\x00t\\x00D\\x00N\\x00"
     "\n" "    ^~~~~~~~"},
    {"V102", "lint/cr_only", "lint night.mea table.txt",
     "night.mea:1:15: error: lines end in carriage returns alone [V102]"
     "\n" "    K88 2000.0 UTC\\x0D12345   250223 1200000000 0100000000 +205301234 001 09.50\\x0D12345   250223 1230000000 0100000000 +205301234 001 09.50"
     "\n" "                  ^~~~"},
    {"V103", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "zero_bytes.mea:2:2: warning: control bytes in the line [V103]"
     "\n" "    a\\x00b     250223 1200000000 0100000000 +205301234 001 09.50"
     "\n" "     ^~~~"},
    {"V104", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "name_in_latin_1.mea:2:4: note: characters other than ASCII [V104]"
     "\n" "    Ces\\xE1r   250223 1200000000 0100000000 +205301234 001 09.50"
     "\n" "       ^~~~"},
    {"V105", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "tabs_between_fields.mea:2:6: warning: a tab where the fields have blanks between them [V105]"
     "\n" "    12345\\x09\\x09\\x09250223\\x091200000000\\x090100000000\\x09+205301234\\x09001\\x0909.50"
     "\n" "         ^~~~"},
    {"V106", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "mixed_ends_of_lines.mea:3: note: a line that ends in a line feed alone, unlike those before it [V106]"},
    {"V120", "lint/example", "lint night.mea",
     "night.mea:4:38: error: declination without a sign: the reader takes \"120\" for sign and degrees [V120]"
     "\n" "    12345   250223 1300000000 0100000000 1205301234 001 09,50"
     "\n" "                                         ^~~~~~~~~~"},
    {"V121", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "declination_beyond_the_pole.mea:2:38: error: declination 90.88367611111111 is outside -90 to 90 [V121]"
     "\n" "    12345   250223 1200000000 0100000000 +905301234 001 09.50"
     "\n" "                                         ^~~~~~~~~~"},
    {"V122", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "letters_for_numbers.mea:2:53: error: \"faint\" is no number [V122]"
     "\n" "    12345   oneday 1200000000 0100000000 +205301234 001 faint"
     "\n" "                                                        ^~~~~"},
    {"V123", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "digits_and_letters.mea:2:16: warning: \"12000O0000\" is read as 12:00:00.000 [V123]"
     "\n" "    12345   250223 12000O0000 0100000000 +205301234 001 9.5O"
     "\n" "                   ^~~~~~~~~~"},
    {"V124", "lint/decimal_comma", "lint night.mea table.txt",
     "night.mea:3:53: warning: decimal comma: \"09,50\" is read as 9 [V124]"
     "\n" "    12345   250223 1230000000 0100000000 +205301234 001 09,50"
     "\n" "                                                        ^~~~~"},
    {"V125", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "not_a_number.mea:2:53: error: \"nan\" is no finite number [V125]"
     "\n" "    12345   250223 1200000000 0100000000 +205301234 001 nan"
     "\n" "                                                        ^~~"},
    {"V126", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "letters_for_numbers.mea:2:9: error: \"oneday\" is no date [V126]"
     "\n" "    12345   oneday 1200000000 0100000000 +205301234 001 faint"
     "\n" "            ^~~~~~"},
    {"V127", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "day_0.mea:2:9: warning: \"000223\": its month has no such day [V127]"
     "\n" "    12345   000223 1200000000 0100000000 +205301234 001 09.50"
     "\n" "            ^~~~~~"},
    {"V128", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "hour_24_and_second_60.mea:2:16: warning: hour, minute or second out of range: 2400600000 [V128]"
     "\n" "    12345   250223 2400600000 0100000000 +205301234 001 09.50"
     "\n" "                   ^~~~~~~~~~"},
    {"V129", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "right_ascension_of_hour_25.mea:2:27: warning: right ascension 375 is outside 0 to 360 [V129]"
     "\n" "    12345   250223 1200000000 2500000000 +205301234 001 09.50"
     "\n" "                              ^~~~~~~~~~"},
    {"V130", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "magnitudes_out_of_range.mea:2:53: note: magnitude 0: the tool writes 0 where none is known [V130]"
     "\n" "    12345   250223 1200000000 0100000000 +205301234 001 00.00"
     "\n" "                                                        ^~~~~"},
    {"V131", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "two_marks_at_one_time.mea:2:16: warning: another mark of the object has the same time [V131]"
     "\n" "    12345   250223 1200000000 0100000000 +205301234 001 09.50"
     "\n" "                   ^~~~~~~~~~"},
    {"V132", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "day_31_of_february.mea:3:16: note: the mark is earlier than the one before it [V132]"
     "\n" "    12345   250223 1230000000 0100000000 +205301234 001 09.50"
     "\n" "                   ^~~~~~~~~~"},
    {"V133", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "year_99.mea:2:9: warning: year 2099 lies ahead [V133]"
     "\n" "    12345   250299 1200000000 0100000000 +205301234 001 09.50"
     "\n" "            ^~~~~~"},
    {"V140", "normalise/no_angles", "normalise ranges.kvn -o night.tdm",
     "ranges.kvn: error: no angles in this message [V140]"},
    {"V141", "normalise/refused_segments", "normalise message.xml -o night.tdm",
     "message.xml:49: error: AZEL angles [V141]"},
    {"V142", "normalise/refused_segments", "normalise message.xml -o night.tdm",
     "message.xml:29: error: 3 participants do not tell observer and object [V142]"},
    {"V143", "normalise/refused_segments", "normalise message.xml -o night.tdm",
     "message.xml:35: error: the frame is TOD [V143]"},
    {"V144", "normalise/refused_segments", "normalise message.xml -o night.tdm",
     "message.xml:28: error: the time system is UT1 [V144]"},
    {"V145", "normalise/refused_segments", "normalise message.xml -o night.tdm",
     "message.xml:37: error: corrections are given and not applied [V145]"},
    {"V146", "normalise/magnitude", "normalise message.kvn --magnitude 0 -o night.tdm",
     "message.kvn:21: error: ANGLE_1 without its pair at 2017-01-01T00:00:12 [V146]"},
    {"V147", "normalise/message", "normalise message.kvn -o night.tdm",
     "message.kvn:20: warning: 1 mark without a magnitude [V147]"},
    {"V150", "check/input_of_another_format", "check task.xml",
     "./night.mea:2:1: error: line of 3 words: skipped [V150]"},
    {"V151", "lint/mea_lines", "lint --as mea blanks_at_front_and_end.mea date_too_short.mea day_0.mea day_31_of_february.mea declination_beyond_the_pole.mea declination_too_short.mea declination_without_sign.mea digits_and_letters.mea empty.mea hour_24_and_second_60.mea letters_for_numbers.mea magnitudes_out_of_range.mea marks_out_of_order.mea mixed_ends_of_lines.mea month_0.mea month_13.mea name_in_latin_1.mea name_in_utf_8.mea name_with_a_blank.mea no_line_feed_at_the_end.mea no_site_line.mea not_a_number.mea right_ascension_of_hour_25.mea right_ascension_too_short.mea site_line_alone.mea six_words.mea tabs_at_the_end_of_a_line.mea tabs_between_fields.mea time_too_short.mea two_bytes_at_the_ends_of_lines.mea two_marks_at_one_time.mea year_99.mea zero_bytes.mea",
     "no_site_line.mea:1:1: error: the first line looks like a mark [V151]"
     "\n" "    12345   250223 1200000000 0100000000 +205301234 001 09.50"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V160", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "no_end_at_the_end.tel:6:1: error: block without END: 2 marks lost [V160]"
     "\n" "    MPC 807 P10vxDx"
     "\n" "    ^~~~~~~~~~~~~~~"},
    {"V161", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "end_after_two_blanks.tel:4:1: error: head line inside a block [V161]"
     "\n" "    MPC 807 P10vxDx"
     "\n" "    ^~~~~~~~~~~~~~~"},
    {"V162", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "another_word_for_end.tel:4:1: warning: \"STOP\" closes the block like END [V162]"
     "\n" "    STOP"
     "\n" "    ^~~~"},
    {"V163", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "end_after_two_blanks.tel:3:1: error: END with a blank closes nothing [V163]"
     "\n" "      END"
     "\n" "    ^~~~~"},
    {"V164", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "head_of_four_words.tel:2:1: error: mark outside a block: skipped [V164]"
     "\n" "    090616 05562400 16471748 -16155070 001221"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V165", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "bytes_of_no_text.tel:2:1: error: head of 2 words: the marks of its block are skipped [V165]"
     "\n" "    \\x0B\\x0C\\x0D\\x0E\\x0F\\x10\\x11\\x12\\x13\\x14\\x15\\x16\\x17\\x18\\x19\\x1A\\x1B\\x1C\\x1D\\x1E\\x1F !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~\\x7F\\x80\\x81\\x82..."
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V166", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "blank_at_the_end_of_a_mark.tel:2:1: error: line of 6 words: skipped [V166]"
     "\n" "    090616 05562400 16471748 -16155070 001221 "
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V167", "lint/telegram_lines", "lint --as telegram another_word_for_end.tel blank_at_the_end_of_a_mark.tel blank_at_the_front_of_a_mark.tel block_without_marks.tel byte_order_mark.tel bytes_of_no_text.tel carriage_returns_alone.tel date_too_short.tel day_31_of_february.tel declination_without_sign.tel empty.tel end_after_two_blanks.tel end_with_a_blank.tel end_without_a_block.tel four_words.tel head_of_four_words.tel head_with_a_blank_at_its_front.tel letters_for_numbers.tel line_of_two_blanks.tel magnitude_after_letters.tel magnitude_of_seven_digits.tel magnitude_of_three_characters.tel magnitude_too_short.tel mark_outside_a_block.tel month_13.tel negative_magnitude.tel no_end_at_the_end.tel no_end_between_blocks.tel no_line_feed_at_the_end.tel two_blanks_in_a_mark.tel two_bytes_at_the_ends_of_lines.tel wide_characters.tel",
     "magnitude_after_letters.tel:2:36: warning: magnitude field \"abc153\" is read as 15.3 [V167]"
     "\n" "    090616 05562400 16471748 -16155070 abc153"
     "\n" "                                       ^~~~~~"},
    {"V168", "check/autoname_without_marks", "check task.xml",
     "./night.tel:2:1: warning: a block without marks [V168]"},
    {"V170", "lint/tdm_without_meta_start", "lint --layer reader --layer person night.tdm",
     "night.tdm:13:1: error: no META_START before this line [V170]"
     "\n" "    ANGLE_1 = 2025-02-23T12:00:00 120.5"
     "\n" "    ^~~~~~~"},
    {"V171", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:27:3: error: the key ANGLE_1 is not recognised for the blanks about it [V171]"
     "\n" "      ANGLE_1 = 2025-02-23T12:09:00 121.7"
     "\n" "      ^~~~~~~"},
    {"V172", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:28:1: error: this ANGLE_2 is lost: no MAG follows [V172]"
     "\n" "    ANGLE_2 = 2025-02-23T12:09:00 31.5"
     "\n" "    ^~~~~~~"},
    {"V173", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:20:1: error: MAG without angles before it in its segment [V173]"
     "\n" "    MAG = 2025-02-23T12:05:00 11.3"
     "\n" "    ^~~"},
    {"V174", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:21:33: error: the time is not found: several blanks before the value [V174]"
     "\n" "    ANGLE_1 = 2025-02-23T12:06:00   121.5"
     "\n" "                                    ^~~~~"},
    {"V175", "lint/tdm_day_of_year", "lint night.tdm",
     "night.tdm:14:11: error: \"2025-054\" is a date by the day of the year [V175]"
     "\n" "    ANGLE_1 = 2025-054T12:00:00 120.5"
     "\n" "              ^~~~~~~~"},
    {"V176", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:12:11: error: times of TAI are taken for UTC [V176]"
     "\n" "    ANGLE_1 = 2025-02-23T12:00:00 120.5"
     "\n" "              ^~~~~~~~~~~~~~~~~~~"},
    {"V177", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:12:31: error: angles of the type AZEL are taken for right ascension and declination [V177]"
     "\n" "    ANGLE_1 = 2025-02-23T12:00:00 120.5"
     "\n" "                                  ^~~~~"},
    {"V178", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:20:1: warning: the segment has no PARTICIPANT_2 that is read, so its object is \"XL90E5A\" [V178]"
     "\n" "    MAG = 2025-02-23T12:05:00 11.3"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V179", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:24:29: warning: the value 121.6 is read as 0: a unit or a blank follows it [V179]"
     "\n" "    ANGLE_1 = 2025-054T12:08:00 121.6 [deg]"
     "\n" "                                ^~~~~"},
    {"V180", "lint/byte_order_mark_mpc", "lint --layer reader --layer person report.txt",
     "report.txt: note: 1 line of other kinds than observations skipped [V180]"},
    {"V181", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:12:31: note: the frame EME2000 is not taken over [V181]"
     "\n" "    ANGLE_1 = 2025-02-23T12:00:00 120.5"
     "\n" "                                  ^~~~~"},
    {"V182", "lint/tdm_lines", "lint --layer reader --layer person night.tdm",
     "night.tdm:22:11: warning: the time is not that of ANGLE_1, 2025-02-23T12:06:00 [V182]"
     "\n" "    ANGLE_2 = 2025-02-23T12:07:00 31.3"
     "\n" "              ^~~~~~~~~~~~~~~~~~~"},
    {"V185", "lint/ssmas_object_too_early", "lint night.ssm",
     "night.ssm:5:1: error: the line of the first object stands too early: 2 marks lost [V185]"
     "\n" "    A A"
     "\n" "    ^~~"},
    {"V186", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:26:1: error: object without the number of its block before it: it and 1 mark are lost [V186]"
     "\n" "    E E"
     "\n" "    ^~~"},
    {"V187", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:10:1: error: the line closes its object: 2 marks lost [V187]"
     "\n" "    09.06.2016 06:09:22.46 16:47:15.98 -16.15.59.00 001 22.0"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V188", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:15:1: error: object line of other than two words: it and 1 mark are lost [V188]"
     "\n" "    NGC 1 B"
     "\n" "    ^~~~~~~"},
    {"V189", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:24:1: warning: this line makes the next track repeat 1 mark [V189]"
     "\n" "     D"
     "\n" "    ^~"},
    {"V190", "lint/ssmas_too_many_repeats", "lint --max 1 night.ssm",
     "night.ssm: error: more than 1,000,000 marks come again [V190]"},
    {"V191", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:9:37: note: the fraction of the arcsecond is dropped: \"-16.15.50.70\" [V191]"
     "\n" "    09.06.2016 05:56:24.00  16:47:17.48 -16.15.50.70 001 22.1"
     "\n" "                                        ^~~~~~~~~~~~"},
    {"V192", "lint/ssmas_lines", "lint night.ssm",
     "night.ssm:23:51: warning: negative magnitude \"0-1.2\" is read as 0 [V192]"
     "\n" "    31.06.2016 05:56:24.00  16:47:17.48 -16.15.50 001 0-1.2"
     "\n" "                                                      ^~~~~"},
    {"V195", "lint/mpc_lines", "lint --layer reader --layer person report.txt",
     "report.txt:6:1: error: observation of 79 bytes: skipped [V195]"
     "\n" "         K24Y04R  C2025 02 23.52234 12 30 12.34 01 20 30.1          18.5 G      L02"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V196", "lint/mpc_lines", "lint --layer reader --layer person report.txt",
     "report.txt:4:5: warning: the station L02 holds for all observations, also for those of L01 [V196]"
     "\n" "    COD L02"
     "\n" "        ^~~"},
    {"V197", "lint/mpc_lines", "lint --layer reader --layer person report.txt",
     "report.txt:9:1: error: an observation that begins with the keyword COM [V197]"
     "\n" "    COM12         C2025 02 23.55234 12 30 12.34 +01 20 30.1          18.5 G      L02"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V200", "check/series_too_high", "check task.xml",
     "task.xml:14:13: error: the track table /tavelin/dataVO/table.txt does not exist [V200]"},
    {"V201", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "cut_off_after_an_end.txt:6:1: error: 1 mark after the last ---: lost [V201]"
     "\n" "    A0126\\x092023-02-25\\x0912:"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V202", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "no_end_at_all.txt:2: warning: no --- in the table [V202]"},
    {"V203", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "no_column_of_times.txt:1: error: no column date [V203]"},
    {"V204", "lint/byte_order_mark_table", "lint table.txt",
     "table.txt:2:1: warning: 6 fields in a line where the header names 1 column [V204]"
     "\n" "    QRVName:Text\\x09date:Date\\x09time:Time\\x09RA:Float:deg\\x09DE:Float:deg\\x09m:Float:mag"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V205", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "empty_line.txt:4: error: empty line, read as a mark [V205]"},
    {"V206", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "end_with_a_blank.txt:4:1: error: --- with something after it, read as a mark [V206]"
     "\n" "    --- "
     "\n" "    ^~~~"},
    {"V207", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "blanks_for_tabs_in_the_header.txt:2:1: error: the header has blanks instead of tabs [V207]"
     "\n" "    QRVName:Text date:Date time:Time RA:Float:deg DE:Float:deg m:Float:mag"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V208", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "unknown_column.txt:2:1: note: unknown columns: mag [V208]"
     "\n" "    QRVName:Text\\x09date:Date\\x09time:Time\\x09RA:Float:deg\\x09DE:Float:deg\\x09mag:Float:mag"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V209", "lint/table_lines", "lint --as table angles_out_of_range.txt blanks_for_tabs_in_the_header.txt byte_order_mark.txt columns_twice.txt cut_off_after_an_end.txt date_that_is_none.txt empty.txt empty_line.txt end_after_the_header.txt end_with_a_blank.txt fewer_fields.txt header_alone.txt letters_for_numbers.txt more_fields.txt no_column_of_times.txt no_end_at_all.txt no_line_feed_at_the_end.txt no_version_line.txt two_bytes_at_the_ends_of_lines.txt two_ends_in_a_row.txt unknown_column.txt version_line_alone.txt",
     "columns_twice.txt:1:1: warning: column m stands twice; the first wins [V209]"
     "\n" "    QRVName\\x09Name\\x09date\\x09time\\x09RA\\x09DE\\x09m\\x09m"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V210", "check/first_track_without_marks", "check task.xml",
     "night/tavelin/dataVO/obj.txt:3:1: warning: track 0 has no marks [V210]"},
    {"V216", "check/no_configuration", "check task.xml",
     "task.xml:14:13: warning: no configuration below series/night1/ [V216]"},
    {"V217", "check/series_too_high", "check task.xml",
     "task.xml:14:13: error: the folder of the series is /, which is not searched [V217]"},
    {"V218", "check/backup_of_configuration", "check task.xml",
     "task.xml:14:13: warning: 2 configurations below series/night1/; the first in the order of the file system counts: series/night1/Copy of night1.conf [V218]"},
    {"V219", "check/backup_of_configuration", "check task.xml",
     "task.xml:14:13: error: series/night1/Copy of night1.conf is a backup and would be taken for the configuration [V219]"},
    {"V220", "check/broken_configuration", "check task.xml",
     "task.xml:14:13: error: the configuration series/night1/night1.conf cannot be loaded [V220]"},
    {"V221", "check/empty_item_in_configuration", "check task.xml",
     "task.xml:14:13: error: an empty item in the list ProcessingRawDark of series/night1/night1.conf [V221]"},
    {"V222", "check/no_entry_types", "check task.xml",
     "task.xml:14:13: warning: the file system of series/night1/ does not tell the kinds of its entries [V222]"},
    {"V223", "check/unknown_service", "check task.xml",
     "task.xml:14:13: warning: unknown Service \"asteroid\" in series/night1/night1.conf [V223]"},
    {"V224", "check/default_station", "check task.xml",
     "task.xml:14:13: error: the station \"500\" is the default [V224]"},
    {"V225", "check/filters_of_the_first_track", "check task.xml",
     "task.xml:12:13: error: the observer code is the placeholder \"CODEAAVSO\" [V225]"},
    {"V230", "check/empty_later_seria", "check task.xml",
     "task.xml:18:9: error: an empty seria after another one [V230]"},
    {"V231", "check/empty_first_seria", "check task.xml",
     "task.xml:12:5: error: no series: the first seria has no key [V231]"},
    {"V232", "check/seria_without_path", "check task.xml",
     "task.xml:18:9: error: a seria without path [V232]"},
    {"V233", "check/path_of_three_parts", "check task.xml",
     "task.xml:14:13: error: path \"tavelin/dataVO/table.txt\" has fewer than four parts, under eachseria [V233]"},
    {"V234", "check/exclusion_out_of_range", "check task.xml",
     "task.xml:17:13: error: the exclusion 0;3 names a mark that does not exist [V234]"},
    {"V235", "check/exclusions_not_numbers", "check task.xml",
     "task.xml:17:13: error: excludes \"0,1 first;2\" is not made of numbers [V235]"},
    {"V236", "check/exclusion_of_a_track_twice", "check task.xml",
     "task.xml:17:13: warning: track 0 occurs twice in excludes [V236]"},
    {"V237", "check/misread_number", "check task.xml",
     "task.xml:14:5: error: object 705032704 is not a track of the first series [V237]"},
    {"V238", "check/unknown_division", "check task.xml",
     "task.xml:10:5: error: unknown toSeparateFile \"eachObject\"; did you mean \"eachobject\"? [V238]"},
    {"V239", "check/odd_narrowing", "check task.xml",
     "task.xml:12:5: warning: whatSave \"Object\" keeps all tracks [V239]"},
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
    {"V242", "check/interval_not_a_number", "check task.xml",
     "task.xml:12:5: warning: interval \"nan\" is not a number [V242]"},
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
    {"V251", "check/hidden_file_of_all", "check task.xml",
     "task.xml:3:5: warning: the base name of the file is \".\" [V251]"},
    {"V252", "check/capital_true", "check task.xml",
     "task.xml: warning: PARTICIPANT_1 keeps its default word \"telescope\" [V252]"},
    {"V253", "check/table_twice", "check task.xml",
     "task.xml:19:13: warning: 2 series have the same track table series/night1/tavelin/dataVO/table.txt [V253]"},
    {"V254", "check/colliding_names", "check task.xml",
     "task.xml: note: object A has 2 filters and so 2 files [V254]"},
    {"V255", "check/two_stations", "check task.xml",
     "task.xml: warning: 2 stations in one report: the header is that of the first track [V255]"},
    {"V256", "check/filters_of_the_first_track", "check task.xml",
     "task.xml: warning: FILTER of 1 mark is that of the first track [V256]"},
    {"V301", "check/autoname_of_60_seconds", "check task.xml",
     "task.xml: note: tdm files are not for sending as they are (V340, V341); see tavelin ready --for ccsds [V301]"},
    {"V302", "lint/unknown_format", "lint poem.txt",
     "poem.txt: error: the format is not certain: none that is known [V302]"},
    {"V310", "check/wrong_station", "check task.xml",
     "task.xml: error: a line of 86 columns, where 80 are wanted, the first of 3 such marks [V310]"
     "\n" "    series 1 night1, track 0 12345, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    series 1 night1, track 0 12345, mark 1, 2023-02-25T12:01:00.000"
     "\n" "    series 1 night1, track 0 12345, mark 2, 2023-02-25T12:02:00.000"},
    {"V311", "check/conversion_to_mpc", "check task.xml",
     "task.xml: error: \"12345\" stands where numbers of minor planets stand, and is read as (12345), the first of 2 such marks [V311]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"},
    {"V312", "check/long_running_names", "check task.xml",
     "task.xml: error: the name \"AST10000\" begins in column 5: names begin in column 6 and have up to 7 letters and digits [V312]"
     "\n" "    series 1 night, track 9000 AST10000, mark 0, 2023-02-25T12:00:00.000"},
    {"V313", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:6:33: error: the right ascension has seconds of 60: \"12 30 60.00\" [V313]"
     "\n" "         K24Y04R  C2025 02 23.99998 12 30 60.00 +01 20 30.1          00.0 G      L01"
     "\n" "                                    ^~~~~~~~~~~"},
    {"V314", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:5:45: error: the declination has no sign in column 45 [V314]"
     "\n" "         K24Y04R  C2025 02 23.52234 12 30 12.34 01 20 30.1          18.5 G      L01"
     "\n" "                                                ^"},
    {"V315", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:6:66: warning: the magnitude is 00.0 [V315]"
     "\n" "         K24Y04R  C2025 02 23.99998 12 30 60.00 +01 20 30.1          00.0 G      L01"
     "\n" "                                                                     ^~~~"},
    {"V316", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:7:71: error: columns 71 to 77 hold \"C      \": the band C is no longer taken [V316]"
     "\n" "         K24Y04R  C2025 02 23.00000 12 30 12.34 +01 20 30.1          18.5 C      L01"
     "\n" "                                                                          ^~~~~~~"},
    {"V317", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:7:16: error: the last half second of 2025 02 23 is written as .00000 of that day [V317]"
     "\n" "         K24Y04R  C2025 02 23.00000 12 30 12.34 +01 20 30.1          18.5 C      L01"
     "\n" "                   ^~~~~~~~~~~~~~~~~"},
    {"V318", "check/satellite_in_mpc", "check task.xml",
     "task.xml: error: \"25544\" is an artificial satellite [V318]"
     "\n" "    series 1 night, track 0 25544, mark 0, 2023-02-25T12:00:00.000"},
    {"V319", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:9:1: error: the designation \"C/2023 A3\" is not packed [V319]"
     "\n" "    C/2023 A3     C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01"
     "\n" "    ^~~~~~~~~~~~"},
    {"V320", "lint/for_mpc", "lint --for mpc --layer receiver report.txt",
     "report.txt:2:5: error: the head of the report: the name \"John Tolkien\" is not written as \"J. R. Tolkien\" [V320]"
     "\n" "    OBS John Tolkien"
     "\n" "        ^~~~~~~~~~~~"},
    {"V321", "lint/for_mpc_characters", "lint --for mpc --layer receiver report.txt",
     "report.txt:3:13: warning: a character that is not ASCII [V321]"
     "\n" "    MEA A. B. Sm\\xC3\\xA5land"
     "\n" "                ^~~~"},
    {"V340", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:2:17: error: the creation date 0-00-00T00:00:00 is no date [V340]"
     "\n" "    CREATION_DATE = 0-00-00T00:00:00"
     "\n" "                    ^~~~~~~~~~~~~~~~"},
    {"V341", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:18:7: error: version 1.0 has no key MAG [V341]"
     "\n" "    MAG = 2025-02-23T12:00:00 nan"
     "\n" "          ^~~~~~~~~~~~~~~~~~~~~~~"},
    {"V342", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:13:19: error: REFERENCE_FRAME has the value \"J2000\", which is no frame of the standard [V342]"
     "\n" "    REFERENCE_FRAME = J2000"
     "\n" "                      ^~~~~"},
    {"V343", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:16:11: error: the angle 360.0000000 is not from -180 to below 360 [V343]"
     "\n" "    ANGLE_1 = 2025-02-23T12:00:00 360.0000000"
     "\n" "              ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V344", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:18:7: error: MAG has no finite number, \"nan\" [V344]"
     "\n" "    MAG = 2025-02-23T12:00:00 nan"
     "\n" "          ^~~~~~~~~~~~~~~~~~~~~~~"},
    {"V345", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:6:14: warning: START_TIME 2025-02-23T12:00:00 is not the earliest time of the data [V345]"
     "\n" "    START_TIME = 2025-02-23T12:00:00"
     "\n" "                 ^~~~~~~~~~~~~~~~~~~"},
    {"V346", "lint/for_ccsds", "lint --for ccsds --layer receiver night.tdm",
     "night.tdm:21:7: error: the end of the day is written as 2025-02-23T00:00:00.00000 [V346]"
     "\n" "    MAG = 2025-02-23T00:00:00.00000 21.2"
     "\n" "          ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V360", "lint/for_aavso", "lint --for aavso --layer receiver night.txt",
     "night.txt:10:1: error: 16 fields, where 15 are wanted: NAME is \"A\" [V360]"
     "\n" "    A,B,2457878.75315,12.847,0.011,V,NO,STD,ENSEMBLE,na,120,na,na,na,X17724AYH,na"
     "\n" "    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~"},
    {"V361", "check/conversion_to_aavso", "check task.xml",
     "task.xml: error: MAGERR is \"inf\": a number from 0 to below 1 is wanted, or na, the first of 2 such marks [V361]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    track 0 12345, mark 1, 2023-02-25T12:10:00.000"},
    {"V362", "check/conversion_to_aavso", "check task.xml",
     "task.xml: error: the magnitude is 0.000, the first of 2 such marks [V362]"
     "\n" "    track 0 12345, mark 0, 2023-02-25T12:00:00.000"
     "\n" "    track 0 12345, mark 1, 2023-02-25T12:10:00.000"},
    {"V363", "lint/for_aavso", "lint --for aavso --layer receiver night.txt",
     "night.txt:7:56: error: KNAME is \"\": empty, where na is wanted [V363]"
     "\n" "    V1023 Her,2457878.75315,0.000,inf,V,NO,STD,ENSEMBLE,na,,na,na,na,X17724AYH,na"
     "\n" "                                                           ^"},
    {"V364", "lint/for_aavso", "lint --for aavso --layer receiver night.txt",
     "night.txt:8:11: warning: the date 57878.25315 is no Julian date; a modified one? [V364]"
     "\n" "    V1023 Her,57878.25315,12.8471234,0.011,Clear,NO,STD,ENSEMBLE,na,120,na,na,na,X17724AYH,na"
     "\n" "              ^~~~~~~~~~~"},
    {"V380", "lint/for_ades", "lint --for ades --layer receiver night.psv",
     "night.psv:10:12: error: aperture is \".6\": a decimal above 0 of at most 6 characters [V380]"
     "\n" "    ! aperture .6"
     "\n" "               ^~"},
    {"V381", "lint/for_ades", "lint --for ades --layer receiver night.psv",
     "night.psv:14:66: error: band: the word \"C\" is not for new work [V381]"
     "\n" "    433||CCD|703|2025-02-30T12:17:46.176Z|360.0|1.341694|Gaia3|18.53|C"
     "\n" "                                                                     ^"},
    {"V382", "lint/for_ades", "lint --for ades --layer receiver night.psv",
     "night.psv:14:10: warning: stn is 703, and mpcCode of the block is 568 [V382]"
     "\n" "    433||CCD|703|2025-02-30T12:17:46.176Z|360.0|1.341694|Gaia3|18.53|C"
     "\n" "             ^~~"},
    {"V400", "run/other_code", "run code-1.xml",
     "code-1.xml: failed: the result reports code 7 where the plan expects code 0 [V400]"},
    {"V401", "run/no_result", "run silent-1.xml",
     "silent-1.xml: failed: no new result in out/result.xml [V401]"},
    {"V402", "run/no_tool", "run plain.xml",
     "tavelin: no vomar that can be run at ./missing [V402]"},
    {"V410", "run/died", "run dies-1.xml",
     "dies-1.xml: failed: the run died of an exception (status 134); it said \"terminate called after throwing an instance of 'std::runtime_error'; what():  broken\" [V410]"},
    {"V411", "run/crashed", "run crashes-1.xml",
     "crashes-1.xml: failed: the run was ended by SIGSEGV [V411]"},
    {"V412", "run/never_ends_runs_under_a_limit", "run endless.xml --anyway --time-limit 300ms",
     "endless.xml: failed: the run was ended at its time limit of 300 ms [V412]"},
    {"V413", "run/out_of_memory", "run night.xml --memory-limit 64M",
     "night.xml: failed: the run was out of memory at its limit of 64M [V413]"},
    {"V414", "run/several", "run plain.xml old-1.xml bad.xml good.xml",
     "old-1.xml: failed: o2/in.txt was not written, and one of an earlier run stands there [V414]"},
    {"V415", "run/crashed", "run crashes-1.xml",
     "crashes-1.xml: failed: out/in.txt is missing [V415]"},
    {"V416", "run/half_a_file", "run half-1.xml",
     "half-1.xml: failed: out/in.txt holds 1 mark and breaks off where 4 were to be written [V416]"},
    {"V417", "run/changed_value", "run alters-1.xml --verify full",
     "alters-1.xml: failed: out/in.txt differs from the plan at 12345, 2023-02-25T12:00:03.000: magnitude [V417]"},
    {"V418", "run/written_elsewhere", "run elsewhere-1.xml",
     "elsewhere-1.xml: warning: 1 file appeared that the plan does not know: out/elsewhere.txt [V418]"},
    {"V419", "run/input_changed", "run touches-1.xml",
     "touches-1.xml: failed: an input changed during the run: ./in.mea [V419]"},
    {"V420", "ready/ades_without_profile", "ready night.mea --for ades --band V --station K88 -o night.xml",
     "night.mea: error: the name of the submitter is not known: give it by submitter of --profile [V420]"},
    {"V421", "ready/station_twice", "ready night.mea --for mpc --profile k88.json --band V -o night.txt",
     "night.mea: error: the station is given twice: \"A77\" by the input, \"K88\" by the profile; --station would decide [V421]"},
    {"V422", "ready/ades_without_profile", "ready night.mea --for ades --band V --station K88 -o night.xml",
     "night.mea: error: 3 marks refused, nothing written [V422]"},
    {"V423", "ready/example", "ready night.mea --for mpc --profile k88.json --band V -o -",
     "night.mea: note: mended: the declination has its sign in column 45, 2 marks [V423]"},
    {"V424", "ready/new_names", "ready night.mea --for mpc --profile k88.json --band V --rename names.txt --new-names X --dry-run",
     "night.mea: note: AST1001 is now 2024 YR4 [V424]"},
    {"V440", "lint/schema", "lint --as result --schema note.xsd bad.xml broken.xml good.xml",
     "bad.xml:2: error: Element 'code': 'five' is not a valid value of the atomic type 'xs:int'. [V440]"},
    {"V450", "batch/nothing_matches", "batch t.xml --over \"archive/{night}/{scope}_*.tel\" --into work",
     "tavelin: the pattern \"archive/{night}/{scope}_*.tel\" matches nothing [V450]"},
    {"V451", "batch/field_differs_in_a_group", "batch report.xml --over \"{night}/{series}/tavelin/dataVO/table.txt\" --into work --group night",
     "report.xml: error: field {series} has 2 values in group 2025-02-23 [V451]"},
    {"V452", "batch/input_gone", "batch work",
     "work/tasks/000002_T9_2025-02-24.xml: warning: the input of task 2 is gone [V452]"},
    {"V453", "batch/run_elsewhere", "batch work",
     "work/tasks/000002_T9_2025-02-24.xml: warning: task 2 is being run elsewhere [V453]"},
    {"V454", "batch/damaged_plan", "batch work",
     "tavelin: the plan work/plan.json is damaged [V454]"},
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
