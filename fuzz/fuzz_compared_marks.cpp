// Compared marks: any bytes, read as any format, are the same as themselves, by their objects and by their
// places. The first byte chooses the format.

#include "reading/compared_marks.h"
#include "reading/mark_comparison.h"
#include "reading/signatures.h"

#include "input_file.h"

#include <cmath>
#include <cstddef>
#include <iterator>

namespace {

const char* const formats[] = {"mea", "telegram", "tdm",   "ssmas",    "mpc",      "tdm.xml",
                               "mag", "aavso",    "table", "ades.xml", "ades.psv", "horizons"};

std::vector<companion::ComparedMark> marksOf(const std::string& path, const companion::ComparedForm& form,
                                             companion::ComparedTexts& texts)
{
    companion::MarkGathering gathering(form, form, texts);
    companion::readMarks(path, form,
                         [&gathering](const companion::TrueTrack& track) { gathering.add(track); });
    return std::move(gathering.marks);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const companion::ComparedForm& form = *companion::comparedForm(formats[bytes[0] % std::size(formats)]);
    const InputFile file(bytes + 1, size - 1);
    companion::ComparedTexts texts;
    std::vector<companion::ComparedMark> a;
    try {
        a = marksOf(file.path(), form, texts);
    } catch (const companion::WrongUsage&) {
        return 0;
    }
    auto b = marksOf(file.path(), form, texts);
    mustHold(a.size() == b.size());

    companion::MarkTolerance tolerance;
    tolerance.angle = 0;
    const companion::MarkComparison comparison(form, form, tolerance, texts);
    std::size_t pairs = 0;
    comparison.byObject(a, b, [&pairs](const companion::ComparedPair& pair) {
        mustHold(pair.isEqual());
        ++pairs;
    });
    mustHold(pairs == a.size());
    std::size_t marks = 0;
    comparison.byPosition(a, b, [&marks](const companion::ComparedPair& pair) {
        marks += (pair.a != nullptr ? 1U : 0U) + (pair.b != nullptr ? 1U : 0U);
    });
    mustHold(marks == a.size() + b.size());
    return 0;
}
