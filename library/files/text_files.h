// Text files: lists of lines in, and out in one step.
//
// Lines leave with one line feed each and come in without line feeds, carriage returns and tabs at their
// ends. The writers create no folders.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// The lines of a file; none for a file that is missing or cannot be read, or is a folder.
std::vector<std::string> ReadFromFile(std::string path);

/// The lines of a file as integers; a line without a number at its front is 0.
std::vector<int> ReadFromFileInt(std::string path);

/// Replaces the file by one line. What cannot be written is passed over.
void Write(std::string path, const std::string& line);

/// Replaces the file by the lines. Throws TavelinException with code 7 and the path when the file cannot
/// be opened, written or closed: the one form that does.
void Write(std::string path, const std::vector<std::string>& lines);

/// Replaces the file by one number a line, with 5 decimals. What cannot be written is passed over.
void Write(std::string path, const std::vector<double>& values);

/// Replaces the file by one row a line, its numbers with 5 decimals and a tab between them.
/// What cannot be written is passed over.
void Write(std::string path, const std::vector<std::vector<double>>& rows);

/// Add lines to a file, and create it where it is missing. A number has six significant digits. A file
/// that cannot be opened is passed over in silence.
void append(std::string path, std::string line);
void append(std::string path, double value);
void append(std::string path, const std::vector<std::string>& lines);
void append(std::string path, const std::vector<double>& values);

/// The same, after the file was removed.
void rewrite(std::string path, std::string line);
void rewrite(std::string path, double value);
void rewrite(std::string path, const std::vector<std::string>& lines);
void rewrite(std::string path, const std::vector<double>& values);

/// Replaces the file by a text made of whole lines. Throws as Write of lines does.
void writeText(const std::string& path, std::string_view text);

/// Add a text made of whole lines to a file, or remove the file and make it anew. What cannot be written is
/// passed over.
void appendText(const std::string& path, std::string_view text);
void rewriteText(const std::string& path, std::string_view text);

} // namespace tavelinUtils
