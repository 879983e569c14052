// XML schemas: each as its whole text.

#pragma once

#include <string>
#include <string_view>

namespace companion {

/// Tasks in their recommended form: one that the schema takes neither hangs nor kills the tool, as long as
/// the folders and files that it names are there and good.
std::string taskSchema(std::string_view name = "task");

/// Configurations of series.
std::string configurationSchema(std::string_view name = "config");

/// Result documents.
std::string resultSchema(std::string_view name = "result");

/// ADES 2022 as it may be submitted, optical observations alone.
std::string adesSchema(std::string_view name = "ades");

} // namespace companion
