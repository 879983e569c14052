#include "formats/star_tables.h"

#include "base/numbers.h"
#include "base/stored_index.h"
#include "files/text_files.h"
#include "text/angle_text.h"

#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr int noBlob = -1;
constexpr std::string_view refStarColumns = "xBlob\tyBlob\tRACat\tDECat\txCat\tyCat\tmCat\n";
constexpr std::size_t usualLineLength = 80;

bool isMatch(const TRepresent& representative)
{
    return representative.Items.size() >= 2;
}

int blobOf(const TRepresent& match)
{
    return match.Items[0].BlobIndex;
}

int starOf(const TRepresent& match)
{
    return match.Items[1].BlobIndex;
}

void appendLastNumber(std::string& out, double value, int decimals)
{
    appendFixed(out, value, decimals);
    out += '\n';
}

// What stands behind the first field of a star's line.
void appendStar(std::string& out, const TRecCat2& star)
{
    out += '\t';
    out += star.Name;
    out += '\t';
    appendColumn(out, star.RA, 5);
    appendColumn(out, star.DE, 5);
    appendRA(out, star.RA, 2, ":");
    out += '\t';
    appendDE(out, star.DE, 1, ":");
    out += '\t';
    appendLastNumber(out, star.m, 1);
}

void appendMatch(std::string& out, const TRecLabelPervichka_File& blob, const TRecLabelPervichka_File& star)
{
    appendColumn(out, blob.X_bf, 3);
    appendColumn(out, blob.Y_bf, 3);
    appendColumn(out, star.RA, 6);
    appendColumn(out, star.DE, 6);
    appendColumn(out, star.X_bf, 3);
    appendColumn(out, star.Y_bf, 3);
    appendLastNumber(out, star.m, 3);
}

} // namespace

void sStars(std::string path, const std::vector<TRecCat2>& stars)
{
    std::string text;
    text.reserve(stars.size() * usualLineLength);
    for (std::size_t i = 0; i < stars.size(); ++i) {
        text += std::to_string(i);
        appendStar(text, stars[i]);
    }
    writeText(path, text);
}

void sStars(std::string path, const std::vector<TRepresent>& representatives,
            const std::vector<TRecCat2>& stars)
{
    std::vector<int> blobs(stars.size(), noBlob);
    for (const TRepresent& representative : representatives) {
        if (!isMatch(representative)) {
            continue;
        }
        if (int* const blob = elementAt(blobs, starOf(representative)); blob != nullptr) {
            *blob = blobOf(representative);
        }
    }
    std::string text;
    text.reserve(stars.size() * usualLineLength);
    for (std::size_t i = 0; i < stars.size(); ++i) {
        if (blobs[i] != noBlob) {
            appendInt(text, blobs[i]);
        }
        appendStar(text, stars[i]);
    }
    writeText(path, text);
}

void sBlobs(std::string path, const std::vector<TRecTRI>& points)
{
    std::string text;
    text.reserve(points.size() * usualLineLength);
    for (std::size_t i = 0; i < points.size(); ++i) {
        text += std::to_string(i);
        text += '\t';
        appendColumn(text, points[i].X, 1);
        appendColumn(text, points[i].Y, 1);
        appendLastNumber(text, points[i].Value9, 1);
    }
    writeText(path, text);
}

void sRefStars(std::string path, std::vector<TRepresent>& representatives,
               const std::vector<TRecLabelPervichka_File>& blobs,
               const std::vector<TRecLabelPervichka_File>& stars)
{
    std::string text(refStarColumns);
    text.reserve((representatives.size() + 1) * usualLineLength);
    for (const TRepresent& representative : representatives) {
        if (!isMatch(representative)) {
            continue;
        }
        const TRecLabelPervichka_File* const blob = elementAt(blobs, blobOf(representative));
        const TRecLabelPervichka_File* const star = elementAt(stars, starOf(representative));
        if (blob != nullptr && star != nullptr) {
            appendMatch(text, *blob, *star);
        }
    }
    writeText(path, text);
}

} // namespace tavelinUtils
