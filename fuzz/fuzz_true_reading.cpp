// True reading: of any bytes, read as any format with any settings, marks have lines of the file, the reader
// of the library finds the marks that the normal form counts, and the normal form of a normal form is itself.
// The first byte chooses the format and the settings.

#include "reading/normal_form.h"
#include "reading/signatures.h"
#include "reading/true_reading.h"

#include "input_file.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using companion::NormalForm;
using companion::TrueSettings;

constexpr std::array formats{"mea", "telegram", "tdm", "ssmas", "mpc", "table", "tdm.xml"};

TrueSettings settingsOf(std::uint8_t bits)
{
    constexpr std::array clocks{"", "UTC", "GPS", "TT"};
    TrueSettings settings;
    settings.timeSystem = clocks[bits % clocks.size()];
    settings.acceptFrame = (bits & 4U) != 0;
    settings.applyCorrections = (bits & 8U) != 0;
    if ((bits & 16U) != 0) {
        settings.magnitude = 12.5;
    }
    return settings;
}

bool hasFailedAccount(const NormalForm& form)
{
    return std::any_of(form.findings.begin(), form.findings.end(), [](const companion::Finding& each) {
        return each.code == companion::FindingCode("V490");
    });
}

void readTracks(const std::string& path, const std::string& format, const TrueSettings& settings,
                std::size_t bytes)
{
    companion::readAsMeant(path, format, settings, [bytes](companion::TrueTrack& track) {
        mustHold(track.marks.size() == track.track.Marks.size());
        for (const companion::TrueMark& mark : track.marks) {
            mustHold(mark.line <= bytes + 1);
        }
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const std::string format = formats[bytes[0] % formats.size()];
    const TrueSettings settings = settingsOf(static_cast<std::uint8_t>(bytes[0] / formats.size()));
    const InputFile file(bytes + 1, size - 1);
    try {
        readTracks(file.path(), format, settings, size);
        const NormalForm once = companion::normalFormOf(file.path(), format, settings);
        mustHold(!hasFailedAccount(once));
        if (!once.isRefused) {
            const InputFile copy(reinterpret_cast<const std::uint8_t*>(once.text.data()), once.text.size());
            const std::string copied = format == "tdm.xml" ? "tdm" : format;
            const NormalForm twice = companion::normalFormOf(copy.path(), copied, settings);
            mustHold(twice.text == once.text || twice.isRefused);
            mustHold(twice.marks == once.marks || twice.isRefused);
        }
    } catch (const companion::WrongUsage&) {
        // XML that is not well-formed cannot be read.
    }
    return 0;
}
