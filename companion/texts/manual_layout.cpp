#include "texts/manual_layout.h"

#include "texts/option_texts.h"

#include <cstddef>

namespace companion {

std::string plain(std::string_view text)
{
    return backslashed(text, "\\*_#`~");
}

std::string bold(std::string_view text)
{
    return text.empty() ? "" : '*' + plain(text) + '*';
}

std::string manualItem(const std::string& term, const std::string& description)
{
    return term + "\n\t" + description + "\n\n";
}

std::string manualTable(const std::vector<std::vector<std::string>>& rows)
{
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += i == 0 ? "|[" : i + 1 == row.size() ? ":<" : ":[";
            text += row[i].empty() ? "\n" : ' ' + row[i] + '\n';
        }
    }
    return text + '\n';
}

} // namespace companion
