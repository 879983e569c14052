// Template: a task with fields in braces, of which the tasks of an archive are made.
//
//   <path_in>{path}</path_in>
//   <out_dir>reports/{night}</out_dir>
//
// Fields are those of the pattern that the file was found by, those that are set, and the fixed ones: {path},
// {folder}, {name}, {stem} of the file, {number} of the task in six digits. "{{" is a brace. Values are
// escaped for XML.

#pragma once

#include "findings/finding.h"
#include "task/pattern.h"

#include <cstddef>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A file of an archive, with the fields of the pattern that it was found by.
struct ArchiveFile
{
    std::string path;
    FieldValues values;

    /// The value of a field, also of a fixed one but the number; a null pointer where the file has no such
    /// field.
    const std::string* value(std::string_view field) const;
};

/// A file with its fixed fields among the values.
ArchiveFile archiveFile(std::string path, FieldValues values);

/// The files of patterns, in the order of bytes, each once: the first pattern that it fits gives its fields.
/// Throws WrongUsage (V450) where a pattern fits none.
std::vector<ArchiveFile> archiveFiles(std::span<const Pattern> patterns);

/// A template of tasks.
class TaskTemplate
{
public:
    /// Reads a template from its bytes. Each setting gives a field its value, or where the template has no
    /// such field a key of the task. Throws WrongUsage for a brace that is neither a field nor doubled
    /// (V001), and for a setting of neither (V002).
    TaskTemplate(std::string path, std::string bytes, const std::map<std::string, std::string>& settings);

    /// Divides it for groups: the one seria is repeated for each file of a group. Throws WrongUsage (V001)
    /// where there is not just one.
    void divideForGroups();

    /// The task of a number for the files of a group, or for one file. A field outside the seria that differs
    /// within the group is a finding (V451). Throws WrongUsage (V002) for a field that a file does not have.
    std::string task(std::size_t number, const std::string& group, std::span<const ArchiveFile> files,
                     std::vector<Finding>& findings) const;

private:
    struct Piece
    {
        std::string text;
        bool isField;
    };
    using Pieces = std::vector<Piece>;

    Pieces piecesOf(std::string_view text, std::size_t firstLine) const;
    std::string valueOf(const std::string& field, std::size_t number, const ArchiveFile& file) const;
    std::set<std::string> valuesOf(const std::string& field, std::size_t number,
                                   std::span<const ArchiveFile> files) const;

    std::string path;
    std::string bytes;
    FieldValues set;
    Pieces front;
    Pieces seria{};
    Pieces back{};
};

/// "000047": how numbers of tasks are written in names of files.
std::string numberText(std::size_t number);

} // namespace companion
