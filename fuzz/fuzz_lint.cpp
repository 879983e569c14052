// Lint: of any bytes, read as any format, each line has one fate, and each finding has a place in the file.
// The first byte chooses the format.

#include "reading/file_info.h"
#include "reading/lint.h"
#include "reading/signatures.h"

#include "input_file.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace {

const char* const receivers[] = {"", "mpc", "ccsds", "aavso", "ades"};

// The account may disagree where the reader throws for the file as a whole: an SSMAS report whose marks come
// again a million times.
void mustAgree(const companion::FileAccount& account)
{
    mustHold(account.agrees() || account.tracks == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const std::vector<std::string> formats = companion::formatNames();
    const std::string& format = formats[bytes[0] % formats.size()];
    companion::LintSettings settings;
    settings.receiver = receivers[bytes[0] / formats.size() % std::size(receivers)];
    settings.forCheck = bytes[0] >= 128;
    const std::string_view text(reinterpret_cast<const char*>(bytes) + 1, size - 1);
    const InputFile file(bytes + 1, size - 1);

    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) +
                       (text.empty() || text.back() == '\n' ? 0U : 1U);
    const auto found = [&](const companion::Finding& each) {
        mustHold(each.code != companion::FindingCode("V490"));
        mustHold(each.line <= lines);
        mustHold(each.column <= text.size() + 1);
        for (const companion::FindingPlace& place : each.places) {
            mustHold(place.column == 0 || place.column <= place.snippet.size() + 1 ||
                     place.snippet.size() >= 4096);
        }
    };
    const companion::FileAccount account = companion::lintFile(file.path(), format, settings, found);
    mustHold(account.lines == lines);
    mustAgree(account);

    const companion::FileInfo info = companion::fileInfo(file.path(), format, 100, true);
    mustHold(info.bytes == text.size());
    return 0;
}
