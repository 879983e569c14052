// Signatures: any bytes are recognised as one format or none, with points from 0 to 100, and their form has
// known words.

#include "reading/signatures.h"
#include "reading/text_front.h"

#include "input_file.h"

#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const companion::Recognition recognition = companion::recognised(text);
    mustHold(recognition.points >= 0 && recognition.points <= 100);
    mustHold(recognition.secondPoints <= recognition.points);
    mustHold(recognition.format.empty() == (recognition.points == 0));
    mustHold(recognition.format.empty() || companion::isFormatName(recognition.format));
    mustHold(recognition.second.empty() || companion::isFormatName(recognition.second));
    mustHold(recognition.second.empty() || recognition.second != recognition.format);

    const InputFile file(bytes, size);
    const companion::Recognition again = companion::recognisedFile(file.path());
    mustHold(again.format == recognition.format && again.points == recognition.points);
    mustHold(companion::textFormOf(file.path()).bytes == size);
    return 0;
}
