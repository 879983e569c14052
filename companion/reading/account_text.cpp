#include "reading/account_text.h"

namespace companion {

std::string accountText(const FileAccount& account)
{
    std::string text = counted(account.lines, "line") + ": " + counted(account.head) + " head";
    const auto add = [&text](std::size_t count, const std::string& what) {
        text += ", " + counted(count) + ' ' + what;
    };
    const auto addIfAny = [&add](std::size_t count, const std::string& what) {
        if (count > 0) {
            add(count, what);
        }
    };
    text += ", " + counted(account.marks, "mark");
    addIfAny(account.parts, "of marks");
    addIfAny(account.ends, account.ends == 1 ? "end" : "ends");
    addIfAny(account.blank, "blank");
    add(account.passed, "skipped");
    addIfAny(account.lost, "lost");
    addIfAny(account.refused, "refused");
    return text;
}

Json accountJson(const FileAccount& account)
{
    return Json::object()
        .set("all", account.lines)
        .set("head", account.head)
        .set("blank", account.blank)
        .set("marks", account.marks)
        .set("parts", account.parts)
        .set("ends", account.ends)
        .set("passed", account.passed)
        .set("lost", account.lost)
        .set("refused", account.refused);
}

std::string briefTotals(const FindingTotals& totals)
{
    std::string text;
    const auto add = [&text](std::size_t count, const char* noun) {
        if (count > 0) {
            text += (text.empty() ? "" : ", ") + counted(count, noun);
        }
    };
    add(totals.errors, "error");
    add(totals.warnings, "warning");
    add(totals.notes, "note");
    return text.empty() ? "nothing found" : text;
}

} // namespace companion
