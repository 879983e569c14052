#include "receivers/ades_fields.h"

#include "base/numbers.h"
#include "base/tokens.h"

#include <libxml/xmlregexp.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace companion {
namespace {

using tavelinUtils::forEachToken;
using tavelinUtils::toDouble;
using tavelinUtils::toInt;

// Each pattern can be followed without going back, so that a long text costs no more than its length.
constexpr const char* anyText = R"(\s*[^|\s][^|]*)";
constexpr const char* anyWord = "[A-Za-z0-9_]+";
constexpr const char* anyDecimal = R"([+\-]?(0|[1-9][0-9]*)(\.[0-9]*)?)";
constexpr const char* anyPositive = R"((0|[1-9][0-9]*)(\.[0-9]*)?)";

constexpr AdesType text(const char* name, std::size_t longest, const char* rule)
{
    return {name, AdesKind::text, anyText, longest, false, nullptr, nullptr, false, false, rule};
}

constexpr AdesType word(const char* name, std::size_t longest, const char* rule)
{
    return {name, AdesKind::text, anyWord, longest, false, nullptr, nullptr, false, false, rule};
}

constexpr AdesType form(const char* name, const char* pattern, std::size_t longest, const char* rule)
{
    return {name, AdesKind::text, pattern, longest, false, nullptr, nullptr, false, false, rule};
}

constexpr AdesType positive(const char* name, std::size_t longest, const char* rule)
{
    return {name, AdesKind::decimal, anyPositive, longest, false, "0", "100000", false, false, rule};
}

constexpr AdesType decimal(const char* name, std::size_t longest, const char* rule)
{
    return {name, AdesKind::decimal, anyDecimal, longest, true, nullptr, nullptr, false, false, rule};
}

constexpr AdesType text25 = text("text25", 25, "not blank, at most 25 characters, no |");
constexpr AdesType text100 = text("text100", 100, "not blank, at most 100 characters, no |");
constexpr AdesType text300 = text("text300", 300, "not blank, at most 300 characters, no |");
constexpr AdesType word3 = word("word3", 3, "1 to 3 letters, digits or underscores");
constexpr AdesType positive6 = positive("positive6", 6, "a decimal above 0 of at most 6 characters");
constexpr AdesType positive7 = positive("positive7", 7, "a decimal above 0 of at most 7 characters");
constexpr AdesType positive8 = positive("positive8", 8, "a decimal above 0 of at most 8 characters");
constexpr AdesType decimal6 = decimal("decimal6", 6, "a decimal of at most 5 characters and a sign");
constexpr AdesType decimal14 = decimal("decimal14", 14, "a decimal of at most 13 characters and a sign");
constexpr AdesType number21{"number21",
                            AdesKind::number,
                            R"([+\-]?[0-9]+(\.[0-9]*)?([eE][+\-]?[0-9]+)?)",
                            21,
                            false,
                            nullptr,
                            nullptr,
                            false,
                            false,
                            "a number of at most 21 characters"};

constexpr AdesType permanent =
    form("permID",
         R"([0-9]+([PDI](-[A-Z]{1,2})?)?|(Mars|Jupiter|Saturn|Uranus|Neptune) [0-9]{1,3}|\([0-9]+\) [0-9]+)",
         25, "a number such as 433, 73P, 73P-B or 1I, or a natural satellite such as Jupiter 13 or (243) 1");
constexpr AdesType provisional =
    form("provID",
         R"([0-9]{4} ([A-HJ-Y][A-HJ-Z][0-9]*|P-L|T-[123])|)"
         R"([ADCPX]/[0-9]{4} [A-Z]{1,2}[0-9]+(-[A-Z]{1,2})?|)"
         R"(S/[0-9]{4} ([MJSUN] [0-9]+|\(([0-9]+|[0-9]{4} [A-HJ-Y][A-HJ-Z][0-9]*)\) [0-9]+))",
         25, "an unpacked designation such as 2023 AB12, 2040 P-L, C/2023 A3 or S/2003 J 2");
constexpr AdesType artificial =
    form("artSat", "[0-9]{4}-[0-9]{3}[A-Z]{1,3}", 25, "an international designator such as 1998-067A");
constexpr AdesType trackletName =
    form("trkSub", R"([\-A-Za-z0-9_]+)", 8, "1 to 8 letters, digits, hyphens or underscores");
constexpr AdesType station = form("station", "[A-Za-z0-9_]{3,4}", 4, "3 or 4 letters, digits or underscores");
constexpr AdesType system =
    form("system", "WGS84|ITRF|IAU|ICRF_AU|ICRF_KM", 7, "WGS84, ITRF, IAU, ICRF_AU or ICRF_KM");
constexpr AdesType center = form("center", "399", 3, "399, the Earth");
constexpr AdesType time{"time",
                        AdesKind::time,
                        R"([0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}(\.[0-9]{1,6})?Z)",
                        27,
                        false,
                        nullptr,
                        nullptr,
                        false,
                        false,
                        "a moment such as 2025-02-23T12:17:46.176Z, with at most 6 decimals"};
constexpr AdesType rightAscension{"ra",
                                  AdesKind::decimal,
                                  R"((0|[1-9][0-9]{0,2})?(\.[0-9]{0,9})?)",
                                  13,
                                  false,
                                  "0",
                                  "360",
                                  true,
                                  false,
                                  "degrees from 0 to below 360 without a sign, with at most 9 decimals"};
constexpr AdesType declination{"dec",
                               AdesKind::decimal,
                               R"([+\-]?(0|[1-9][0-9]?)?(\.[0-9]{0,9})?)",
                               13,
                               false,
                               "-90",
                               "90",
                               true,
                               true,
                               "degrees from -90 to 90, with at most 9 decimals"};
constexpr AdesType correlation{"correlation",
                               AdesKind::decimal,
                               R"([+\-]?0(\.[0-9]{0,11})?)",
                               14,
                               false,
                               "-1",
                               "1",
                               false,
                               false,
                               "above -1 and below 1, with at most 11 decimals"};
constexpr AdesType catalogue =
    form("catalogue", R"([.A-Za-z0-9_]+)", 8, "1 to 8 letters, digits, points or underscores");
constexpr AdesType magnitude{"magnitude", AdesKind::decimal,
                             anyDecimal,  8,
                             true,        "-5.0",
                             "35.0",      true,
                             true,        "a decimal from -5 to 35 of at most 7 characters and a sign"};
constexpr AdesType starCount{"starCount", AdesKind::integer, "[+]?[0-9]+", 6,    false,
                             "1",         "999999",          true,         true, "a number from 1 to 999999"};
constexpr AdesType discovery = form("discovery", R"([*+])", 1, "* or +");
constexpr AdesType noteLetters = form("notes", anyWord, 6, "1 to 6 letters");

constexpr AdesWords modes{"CCD CMO VID TDI OCC", "PHO ENC PMT MIC MER UNK", "", false};
constexpr AdesWords bands{"Lu Lg Lr Li Lz Ly VR Vj Rc Ic Bj Uj Sg Sr Si Sz Pg Pr Pi Pz Pw Py Ao Ac G Gb Gr W",
                          "U B V R I g r i z w y o c J H K Y", "C L u", false};
// The list has Gaia_2016 too, which is longer than the element may be.
constexpr AdesWords catalogues{
    "Gaia3 Gaia3E Gaia2 Gaia1 Gaia_Int PS1_DR1 PS1_DR2 ATLAS2 UCAC5 UCAC4 URAT1 2MASS NOMAD PPMXL UBSC",
    "UCAC3 UCAC2 UCAC1 USNOB1 USNOA2 USNOSA2 USNOA1 USNOSA1 Tyc2 Tyc1 Hip2 Hip1 ACT GSCACT GSC2.3 GSC2.2 "
    "GSC1.2 GSC1.1 GSC1.0 GSC SDSS8 SDSS7 CMC15 CMC14 SSTRC4 SSTRC1 MPOSC3 PPM AC SAO1984 SAO AGK3 FK4 ACRS "
    "LickGas Ida93 Perth70 COSMOS Yale ZZCAT IHW GZ UNK",
    "Gaia_2016", false};
constexpr AdesWords noteWords{"a B b c D d E e F f G g H h I K k L M m N n O P p R r S s T t U u V W w Z",
                              "A i o", "", true};

constexpr AdesField optical[] = {
    {"permID", AdesNeed::identification, &permanent, "", nullptr, "permanent number, unpacked"},
    {"provID", AdesNeed::identification, &provisional, "", nullptr, "provisional designation, unpacked"},
    {"artSat", AdesNeed::identification, &artificial, "", nullptr, "artificial satellite, by arrangement"},
    {"trkSub", AdesNeed::identification, &trackletName, "", nullptr, "the observer's name of the tracklet"},
    {"obsSubID", AdesNeed::optional, &text25, "", nullptr, "the observer's name of the observation"},
    {"mode", AdesNeed::demanded, &word3, "", &modes, "how the observation was made"},
    {"stn", AdesNeed::demanded, &station, "", nullptr, "code of the station"},
    {"sys", AdesNeed::location, &system, "", nullptr, "coordinate system of the observer's place"},
    {"ctr", AdesNeed::location, &center, "", nullptr, "origin of the coordinates"},
    {"pos1", AdesNeed::location, &decimal14, "by sys", nullptr, "first coordinate"},
    {"pos2", AdesNeed::location, &decimal14, "by sys", nullptr, "second coordinate"},
    {"pos3", AdesNeed::location, &decimal14, "by sys", nullptr, "third coordinate"},
    {"vel1", AdesNeed::locationDetail, &decimal14, "by sys", nullptr, "first component of the velocity"},
    {"vel2", AdesNeed::locationDetail, &decimal14, "by sys", nullptr, "second component of the velocity"},
    {"vel3", AdesNeed::locationDetail, &decimal14, "by sys", nullptr, "third component of the velocity"},
    {"posCov11", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"posCov12", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"posCov13", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"posCov22", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"posCov23", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"posCov33", AdesNeed::locationDetail, &number21, "by sys", nullptr, "covariance of the place"},
    {"obsTime", AdesNeed::demanded, &time, "UTC", nullptr, "middle of the exposure"},
    {"rmsTime", AdesNeed::optional, &positive8, "s", nullptr, "random error of the time"},
    {"ra", AdesNeed::demanded, &rightAscension, "deg", nullptr, "right ascension"},
    {"dec", AdesNeed::demanded, &declination, "deg", nullptr, "declination"},
    {"rmsRA", AdesNeed::optional, &positive7, "arcsec", nullptr, "error of RA, times the cosine of dec"},
    {"rmsDec", AdesNeed::optional, &positive7, "arcsec", nullptr, "error of dec"},
    {"rmsCorr", AdesNeed::optional, &correlation, "", nullptr, "correlation of the two errors"},
    {"astCat", AdesNeed::demanded, &catalogue, "", &catalogues, "catalogue of the reference positions"},
    {"mag", AdesNeed::photometry, &magnitude, "mag", nullptr, "magnitude"},
    {"rmsMag", AdesNeed::photometryDetail, &positive6, "mag", nullptr, "error of the magnitude"},
    {"band", AdesNeed::photometry, &word3, "", &bands, "band of the reference magnitudes"},
    {"fltr", AdesNeed::photometryDetail, &word3, "", nullptr, "filter in front of the detector"},
    {"photCat", AdesNeed::photometryDetail, &catalogue, "", &catalogues, "catalogue of the magnitudes"},
    {"photAp", AdesNeed::photometryDetail, &positive6, "arcsec", nullptr, "radius of the aperture"},
    {"logSNR", AdesNeed::optional, &decimal6, "", nullptr, "logarithm of the signal-to-noise ratio"},
    {"seeing", AdesNeed::optional, &positive6, "arcsec", nullptr, "size of the stars' images"},
    {"exp", AdesNeed::optional, &positive6, "s", nullptr, "time of exposure"},
    {"rmsFit", AdesNeed::optional, &positive6, "arcsec", nullptr, "residual of the reference stars"},
    {"nStars", AdesNeed::optional, &starCount, "", nullptr, "number of the reference stars"},
    {"disc", AdesNeed::optional, &discovery, "", nullptr, "discovery, normally set by the receiver"},
    {"uncTime", AdesNeed::optional, &positive8, "s", nullptr, "systematic error of the clock"},
    {"notes", AdesNeed::optional, &noteLetters, "", &noteWords, "notes, a letter each"},
    {"remarks", AdesNeed::optional, &text300, "", nullptr, "remarks"},
};

constexpr AdesContextField context[] = {
    {"obsContext", "observatory", true, false, nullptr},
    {"observatory", "mpcCode", true, false, &station},
    {"observatory", "name", false, false, &text100},
    {"obsContext", "submitter", true, false, nullptr},
    {"submitter", "name", true, false, &text100},
    {"submitter", "institution", false, false, &text100},
    {"obsContext", "observers", false, false, nullptr},
    {"observers", "name", true, true, &text100},
    {"obsContext", "measurers", true, false, nullptr},
    {"measurers", "name", true, true, &text100},
    {"obsContext", "telescope", true, false, nullptr},
    {"telescope", "name", false, false, &text100},
    {"telescope", "design", true, false, &text25},
    {"telescope", "aperture", true, false, &positive6},
    {"telescope", "detector", true, false, &text25},
    {"telescope", "fRatio", false, false, &positive6},
    {"telescope", "filter", false, false, &text25},
    {"telescope", "arraySize", false, false, &text25},
    {"telescope", "pixelScale", false, false, &positive6},
    {"obsContext", "software", false, false, nullptr},
    {"software", "astrometry", false, false, &text100},
    {"software", "fitOrder", false, false, &text25},
    {"software", "photometry", false, false, &text100},
    {"software", "objectDetection", false, false, &text100},
    {"obsContext", "coinvestigators", false, false, nullptr},
    {"coinvestigators", "name", true, true, &text100},
    {"obsContext", "collaborators", false, false, nullptr},
    {"collaborators", "name", true, true, &text100},
    {"obsContext", "fundingSource", false, false, &text100},
    {"obsContext", "comment", false, false, nullptr},
    {"comment", "line", true, true, &text100},
};

constexpr const char* identifications[] = {
    "permID provID? trkSub?",
    "provID trkSub?",
    "artSat trkSub?",
    "trkSub",
};

constexpr const char* notForSubmission[] = {
    "obsID",  "trkID",    "trkMPC", "prog",    "nucMag",     "ref",      "subFrm",
    "subFmt", "precTime", "precRA", "precDec", "deprecated", "localUse", "residuals",
};

constexpr const char* leapDays[] = {
    "1972-06-30", "1972-12-31", "1973-12-31", "1974-12-31", "1975-12-31", "1976-12-31", "1977-12-31",
    "1978-12-31", "1979-12-31", "1981-06-30", "1982-06-30", "1983-06-30", "1985-06-30", "1987-12-31",
    "1989-12-31", "1990-12-31", "1992-06-30", "1993-06-30", "1994-06-30", "1995-12-31", "1997-06-30",
    "1998-12-31", "2005-12-31", "2008-12-31", "2012-06-30", "2015-06-30", "2016-12-31",
};

struct FreeRegexp
{
    void operator()(xmlRegexp* pattern) const
    {
        xmlRegFreeRegexp(pattern);
    }
};
using Regexp = std::unique_ptr<xmlRegexp, FreeRegexp>;

const xmlChar* asXml(const std::string& bytes)
{
    return reinterpret_cast<const xmlChar*>(bytes.c_str());
}

bool fits(const std::string& text, const std::string& pattern)
{
    static std::mutex guard;
    static std::map<std::string, Regexp, std::less<>> compiled;
    const std::lock_guard<std::mutex> lock(guard);
    Regexp& regexp = compiled[pattern];
    if (regexp == nullptr) {
        regexp.reset(xmlRegexpCompile(asXml(pattern))); // no text fits a pattern that is none
    }
    return xmlRegexpExec(regexp.get(), asXml(text)) == 1;
}

std::size_t charactersOf(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    }));
}

bool isNarrow(const AdesType& type, std::string_view text)
{
    const bool hasSign = !text.empty() && (text[0] == '+' || text[0] == '-');
    const std::size_t width = charactersOf(text) + (type.signIsWide && !hasSign ? 1 : 0);
    return width <= type.longest;
}

bool isInRange(const AdesType& type, std::string_view text)
{
    const double value = toDouble(text);
    const double least = type.least == nullptr ? value - 1 : toDouble(type.least);
    const double most = type.most == nullptr ? value + 1 : toDouble(type.most);
    return (value > least || (type.takesLeast && value == least)) &&
           (value < most || (type.takesMost && value == most));
}

// A moment that fits its pattern and is one of the calendar.
bool isMoment(const std::string& text)
{
    using std::chrono::year_month_day;
    const std::string_view view = text;
    const auto number = [view](std::size_t at, std::size_t length) { return toInt(view.substr(at, length)); };
    const year_month_day date{std::chrono::year(number(0, 4)),
                              std::chrono::month(static_cast<unsigned>(number(5, 2))),
                              std::chrono::day(static_cast<unsigned>(number(8, 2)))};
    const int hour = number(11, 2);
    const bool isMidnight = hour == 24 && view.find_first_of("123456789", 14) == std::string_view::npos;
    const bool isTime = (hour < 24 && number(14, 2) < 60 && number(17, 2) < 60) || isMidnight;
    return number(0, 4) > 0 && date.ok() && (isTime || fits(text, adesLeapSecondPattern()));
}

std::string_view withoutBlanks(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool holds(const char* words, std::string_view word)
{
    bool found = false;
    forEachToken(words, ' ', [&found, word](std::string_view each) { found = found || each == word; });
    return found;
}

AdesWordState stateOfWord(const AdesWords& words, std::string_view word)
{
    if (holds(words.forNewWork, word)) {
        return AdesWordState::forNewWork;
    }
    if (holds(words.historic, word)) {
        return AdesWordState::historic;
    }
    return holds(words.refused, word) ? AdesWordState::refused : AdesWordState::unlisted;
}

} // namespace

std::span<const AdesField> adesOptical()
{
    return optical;
}

std::span<const AdesContextField> adesContext()
{
    return context;
}

std::span<const char* const> adesIdentifications()
{
    return identifications;
}

std::span<const char* const> adesNotForSubmission()
{
    return notForSubmission;
}

std::span<const char* const> adesLeapDays()
{
    return leapDays;
}

const AdesField* adesField(std::string_view name)
{
    static const std::unordered_map<std::string_view, const AdesField*> rows = [] {
        std::unordered_map<std::string_view, const AdesField*> all;
        for (const AdesField& each : optical) {
            all.emplace(each.name, &each);
        }
        return all;
    }();
    const auto row = rows.find(name);
    return row == rows.end() ? nullptr : row->second;
}

const AdesContextField* adesContextField(std::string_view parent, std::string_view name)
{
    const auto* const row =
        std::find_if(std::begin(context), std::end(context), [parent, name](const AdesContextField& each) {
            return each.parent == parent && each.name == name;
        });
    return row == std::end(context) ? nullptr : row;
}

bool adesTakes(const AdesType& type, std::string_view text)
{
    const bool isText = type.kind == AdesKind::text;
    const std::string value(isText ? text : withoutBlanks(text));
    if (value.find('\0') != std::string::npos || !isNarrow(type, value) || !fits(value, type.pattern)) {
        return false;
    }
    switch (type.kind) {
    case AdesKind::text: return true;
    case AdesKind::time: return isMoment(value);
    default: return value.find_first_of("0123456789") != std::string::npos && isInRange(type, value);
    }
}

AdesWordState adesWordState(const AdesWords& words, std::string_view word)
{
    if (!words.isLetters) {
        return stateOfWord(words, word);
    }
    AdesWordState worst = word.empty() ? AdesWordState::unlisted : AdesWordState::forNewWork;
    for (std::size_t i = 0; i < word.size(); ++i) {
        worst = std::max(worst, stateOfWord(words, word.substr(i, 1)));
    }
    return worst;
}

std::string adesLeapSecondPattern()
{
    std::string days;
    for (const char* day : leapDays) {
        days += std::string(day) + '|';
    }
    return '(' + days + R"((201[7-9]|20[2-9][0-9]|2[1-9][0-9]{2}|[3-9][0-9]{3})-(06-30|12-31)))" +
           R"(T23:59:60(\.[0-9]{1,6})?Z)";
}

} // namespace companion
