#include "receivers/catalogue_names.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

struct Catalogue
{
    std::string_view net;
    std::string_view ades;
};

constexpr Catalogue catalogues[] = {
    {"Gaia-DR1", "Gaia1"},
    {"Gaia-DR2", "Gaia2"},
    {"Gaia-EDR3", "Gaia3E"},
    {"Gaia-DR3", "Gaia3"},
    {"Gaia_Int", "Gaia_Int"},
    {"Gaia2016", "Gaia_2016"},
    {"UCAC-5", "UCAC5"},
    {"PS1-DR1", "PS1_DR1"},
    {"PS1-DR2", "PS1_DR2"},
    {"2MASS", "2MASS"},
    {"PPMXL", "PPMXL"},
    {"USNO-A1.0", "USNOA1"},
    {"USNO-SA1.0", "USNOSA1"},
    {"Tycho-1", "Tyc1"},
    {"GSC-1.0", "GSC1.0"},
    {"UCAC-4", "UCAC4"},
    {"UCAC-3", "UCAC3"},
    {"UCAC-2", "UCAC2"},
    {"UCAC-1", "UCAC1"},
    {"URAT-1", "URAT1"},
    {"ATLAS-2", "ATLAS2"},
    {"NOMAD", "NOMAD"},
    {"USNO-B1.0", "USNOB1"},
    {"USNO-A2.0", "USNOA2"},
    {"USNO-SA2.0", "USNOSA2"},
    {"Tycho-2", "Tyc2"},
    {"GSC-1.1", "GSC1.1"},
    {"GSC-2.2", "GSC2.2"},
    {"GSC-2.3", "GSC2.3"},
    {"GSC", "GSC"},
    {"ACT", "ACT"},
    {"GSC-ACT", "GSCACT"},
    {"PPM", "PPM"},
    {"SDSS-DR7", "SDSS7"},
    {"SDSS-DR8", "SDSS8"},
    {"CMC-14", "CMC14"},
    {"CMC-15", "CMC15"},
    {"USNO-UBAD", "UBSC"},
    {"Hipparcos", "Hip1"},
    {"Hipparcos 2", "Hip2"},
    {"GSC-1.2", "GSC1.2"},
};

const Catalogue* catalogueOf(std::string_view name)
{
    const auto* const row =
        std::find_if(std::begin(catalogues), std::end(catalogues),
                     [name](const Catalogue& each) { return each.net == name || each.ades == name; });
    return row == std::end(catalogues) ? nullptr : row;
}

} // namespace

std::string catalogueForNet(std::string_view name)
{
    const Catalogue* const row = catalogueOf(name);
    return std::string(row == nullptr ? name : row->net);
}

std::string catalogueForAdes(std::string_view name)
{
    const Catalogue* const row = catalogueOf(name);
    return std::string(row == nullptr ? name : row->ades);
}

} // namespace companion
