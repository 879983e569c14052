#include "task/checked_task_json.h"

#include <filesystem>

namespace companion {
namespace {

Json fileJson(const PlannedFile& file)
{
    std::error_code ignored;
    Json object = Json::object();
    setBytes(object, "path", file.path);
    return object.set("format", file.format)
        .set("tracks", file.tracks)
        .set("marks", file.marks)
        .set("exists", std::filesystem::exists(file.path, ignored));
}

} // namespace

Json planJson(const CheckedTask& checked)
{
    Json files = Json::list();
    for (const PlannedFile& file : checked.plan.files) {
        files.push(fileJson(file));
    }
    Json plan = Json::object();
    setBytes(plan, "result", checked.task.path_res);
    plan.set("code", checked.plan.dies ? Json() : Json(checked.plan.result.Code));
    if (checked.plan.dies) {
        plan.set("dies", true);
    }
    return plan.set("files", files);
}

Json accountingJson(const CheckedTask& checked)
{
    const FileAccount lines = checked.lines();
    const MarkAccount& marks = checked.plan.account;
    return Json::object()
        .set("lines", lines.lines)
        .set("head", lines.head)
        .set("blank", lines.blank)
        .set("marks", lines.marks)
        .set("parts", lines.parts)
        .set("ends", lines.ends)
        .set("passed", lines.passed)
        .set("lost", lines.lost)
        .set("refused", lines.refused)
        .set("repeated", lines.repeated)
        .set("read", marks.read)
        .set("excluded", marks.excluded)
        .set("narrowed", marks.narrowed)
        .set("cut", marks.cut)
        .set("unnamed", marks.unnamed)
        .set("overwritten", marks.overwritten)
        .set("unwritten", marks.unwritten)
        .set("written", marks.written);
}

} // namespace companion
