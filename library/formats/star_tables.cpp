#include "formats/star_tables.h"

#include "base/numbers.h"
#include "base/stored_index.h"
#include "files/text_files.h"
#include "text/angle_text.h"
#include "text/written_text.h"

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

// The fields of a star's line after the first.
void appendStar(TextBuffer& out, const TRecCat2& star)
{
    out += '\t';
    out += star.Name;
    out += '\t';
    appendCell(out, star.RA, 5, '\t');
    appendCell(out, star.DE, 5, '\t');
    appendRA(out, star.RA, 2, ':');
    out += '\t';
    appendDE(out, star.DE, 1, ':');
    out += '\t';
    appendCell(out, star.m, 1, '\n');
}

void appendMatch(TextBuffer& out, const TRecLabelPervichka_File& blob, const TRecLabelPervichka_File& star)
{
    appendCell(out, blob.X_bf, 3, '\t');
    appendCell(out, blob.Y_bf, 3, '\t');
    appendCell(out, star.RA, 6, '\t');
    appendCell(out, star.DE, 6, '\t');
    appendCell(out, star.X_bf, 3, '\t');
    appendCell(out, star.Y_bf, 3, '\t');
    appendCell(out, star.m, 3, '\n');
}

} // namespace

void sStars(std::string path, const std::vector<TRecCat2>& stars)
{
    TextBuffer text;
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
    TextBuffer text;
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
    TextBuffer text;
    text.reserve(points.size() * usualLineLength);
    for (std::size_t i = 0; i < points.size(); ++i) {
        text += std::to_string(i);
        text += '\t';
        appendCell(text, points[i].X, 1, '\t');
        appendCell(text, points[i].Y, 1, '\t');
        appendCell(text, points[i].Value9, 1, '\n');
    }
    writeText(path, text);
}

void sRefStars(std::string path, std::vector<TRepresent>& representatives,
               const std::vector<TRecLabelPervichka_File>& blobs,
               const std::vector<TRecLabelPervichka_File>& stars)
{
    TextBuffer text(refStarColumns);
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
