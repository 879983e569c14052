// Text files: reading lists of lines, and writing them in one step.
//
// Lines are written with one line feed each and read without the line feeds, carriage returns and tabs at
// their ends. The writers create no folders.

#pragma once

#include "../export.h"

#include <string>
#include <string_view>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The lines of a file; none for a file that is missing or cannot be read, or is a folder.
std::vector<std::string> ReadFromFile(std::string path);

/// The lines of a file as integers; a line without a number at its front is 0.
std::vector<int> ReadFromFileInt(std::string path);

/// Replaces the file with one line. A file that cannot be written is skipped in silence.
void Write(std::string path, const std::string& line);

/// Replaces the file with the lines. Throws TavelinException with code 7 and the path if the file cannot be
/// opened, written or closed: the only form that does.
void Write(std::string path, const std::vector<std::string>& lines);

/// Replaces the file with one number per line, with 5 decimals. A file that cannot be written is skipped in
/// silence.
void Write(std::string path, const std::vector<double>& values);

/// Replaces the file with one row per line, its numbers with 5 decimals and a tab between them. A file that
/// cannot be written is skipped in silence.
void Write(std::string path, const std::vector<std::vector<double>>& rows);

/// Append lines to a file, which is created if it is missing. A number has six significant digits. A file
/// that cannot be opened is skipped in silence.
void append(std::string path, std::string line);
void append(std::string path, double value);
void append(std::string path, const std::vector<std::string>& lines);
void append(std::string path, const std::vector<double>& values);

/// The same, after removing the file.
void rewrite(std::string path, std::string line);
void rewrite(std::string path, double value);
void rewrite(std::string path, const std::vector<std::string>& lines);
void rewrite(std::string path, const std::vector<double>& values);

/// Replaces the file with a text of whole lines. Throws as Write of lines does.
void writeText(const std::string& path, std::string_view text);

/// Append a text of whole lines to a file, or remove the file first. A file that cannot be written is skipped
/// in silence.
void appendText(const std::string& path, std::string_view text);
void rewriteText(const std::string& path, std::string_view text);

} // namespace tavelinUtils
