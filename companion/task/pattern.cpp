#include "task/pattern.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/characters.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>

namespace companion {
namespace {

using Kind = PatternPiece::Kind;
using Pieces = std::vector<PatternPiece>;

constexpr std::size_t longestPattern = 4095; // as a path
constexpr std::size_t mostSteps = 1'000'000; // of a pattern whose fields come again

WrongUsage wrongPattern(const std::string& pattern, const std::string& problem)
{
    return wrongCall("--over", '"' + pattern + "\" " + problem);
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '-';
}

// Cuts a pattern into its pieces.
class PatternReader
{
public:
    explicit PatternReader(const std::string& pattern) : whole(pattern), left(pattern)
    {
    }

    Pieces pieces()
    {
        if (whole.size() > longestPattern) {
            throw wrongPattern(whole.substr(0, 40) + "...", "is longer than a path can be");
        }
        while (!left.empty()) {
            left.front() == '{' ? takeBrace() : left.front() == '*' ? takeStars() : addText(1);
        }
        return std::move(all);
    }

private:
    void addText(std::size_t count)
    {
        if (all.empty() || all.back().kind != Kind::text) {
            all.push_back({});
        }
        all.back().text += left.front();
        left.remove_prefix(count);
    }

    void takeBrace()
    {
        const FieldBrace brace = fieldBraceOf(left);
        if (brace.isDoubled) {
            addText(brace.length);
            return;
        }
        if (brace.length == 0) {
            throw wrongPattern(whole, "has a brace that is neither a field nor doubled");
        }
        if (isFixedField(brace.name)) {
            throw wrongPattern(whole, "has the field {" + std::string(brace.name) +
                                          "}, which every task has by itself");
        }
        all.push_back({Kind::field, std::string(brace.name)});
        left.remove_prefix(brace.length);
    }

    void takeStars()
    {
        const std::size_t count = std::min(left.find_first_not_of('*'), left.size());
        const bool isWholeName = count > 1 && (all.empty() || all.back().text.ends_with('/')) &&
                                 left.substr(count).starts_with('/');
        all.push_back({isWholeName ? Kind::folders : count > 1 ? Kind::deep : Kind::star});
        left.remove_prefix(isWholeName ? count + 1 : count);
    }

    const std::string& whole;
    std::string_view left;
    Pieces all;
};

// Holds a path against pieces.
class Matching
{
public:
    Matching(const Pieces& ofPattern, std::string_view ofPath, bool withRepeats)
        : pieces(ofPattern), path(ofPath), hasRepeats(withRepeats),
          failed(withRepeats ? 0 : (pieces.size() + 1) * (path.size() + 1))
    {
    }

    bool fits()
    {
        return fitsFrom(0, 0);
    }

    FieldValues values;
    bool isTooLong = false;

private:
    bool fitsFrom(std::size_t piece, std::size_t at)
    {
        if (piece == pieces.size()) {
            return at == path.size();
        }
        const std::size_t state = piece * (path.size() + 1) + at;
        if (isTooLong || (!hasRepeats && failed[state])) {
            return false;
        }
        isTooLong = hasRepeats && ++steps > mostSteps;
        const bool fit = fitsPiece(piece, at);
        if (!fit && !hasRepeats) {
            failed[state] = true;
        }
        return fit;
    }

    bool fitsPiece(std::size_t piece, std::size_t at)
    {
        const PatternPiece& wanted = pieces[piece];
        if (wanted.kind == Kind::text) {
            return fitsText(wanted.text, piece, at);
        }
        if (wanted.kind == Kind::field) {
            const auto known = values.find(wanted.text);
            return known != values.end() ? fitsText(std::string(known->second), piece, at)
                                         : fitsField(wanted.text, piece, at);
        }
        return fitsStar(wanted.kind, piece, at);
    }

    bool fitsText(std::string_view text, std::size_t piece, std::size_t at)
    {
        return path.substr(at).starts_with(text) && fitsFrom(piece + 1, at + text.size());
    }

    bool fitsField(const std::string& name, std::size_t piece, std::size_t at)
    {
        for (std::size_t end = at + 1; end <= path.size() && canTake(end - 1) && path[end - 1] != '/'; ++end)
        {
            values[name] = std::string(path.substr(at, end - at));
            if (fitsFrom(piece + 1, end)) {
                return true;
            }
        }
        values.erase(name);
        return false;
    }

    bool fitsStar(Kind kind, std::size_t piece, std::size_t at)
    {
        for (std::size_t end = at;; ++end) {
            const bool isEnd = kind != Kind::folders || end == at || path[end - 1] == '/';
            if (isEnd && fitsFrom(piece + 1, end)) {
                return true;
            }
            if (end == path.size() || !canTake(end) || (kind == Kind::star && path[end] == '/')) {
                return false;
            }
        }
    }

    // A hidden name is for a point of the pattern alone.
    bool canTake(std::size_t at) const
    {
        return path[at] != '.' || (at > 0 && path[at - 1] != '/');
    }

    const Pieces& pieces;
    std::string_view path;
    bool hasRepeats;
    std::vector<bool> failed;
    std::size_t steps = 0;
};

bool fieldsComeAgain(const Pieces& pieces)
{
    std::set<std::string> known;
    return std::any_of(pieces.begin(), pieces.end(), [&known](const PatternPiece& each) {
        return each.kind == Kind::field && !known.insert(each.text).second;
    });
}

// The pieces of one name of a path.
using Level = Pieces;

bool isDeep(const Level& level)
{
    return std::any_of(level.begin(), level.end(), [](const PatternPiece& each) {
        return each.kind == Kind::deep || each.kind == Kind::folders;
    });
}

// Cuts the pieces at the slashes of their texts. What follows "**" is one level with it.
std::vector<Level> levelsOf(const Pieces& pieces)
{
    std::vector<Level> levels(1);
    for (const PatternPiece& piece : pieces) {
        std::string_view left = piece.text;
        std::size_t slash = 0;
        const bool cuts = piece.kind == Kind::text && !isDeep(levels.back());
        while (cuts && (slash = left.find('/')) != std::string_view::npos) {
            levels.back().push_back({Kind::text, std::string(left.substr(0, slash))});
            levels.emplace_back();
            left.remove_prefix(slash + 1);
        }
        levels.back().push_back({piece.kind, std::string(left)});
    }
    return levels;
}

struct CloseFolder
{
    void operator()(DIR* folder) const
    {
        closedir(folder);
    }
};

bool isFolderItself(const std::string& path)
{
    struct stat state = {}; // of no kind where the path cannot be looked at
    lstat(path.c_str(), &state);
    return S_ISDIR(state.st_mode);
}

// Walks through the folders that a pattern names and calls a function with each path that may fit.
template <class Use>
class Walk
{
public:
    Walk(const Pieces& pieces, Use useOf) : levels(levelsOf(pieces)), use(useOf)
    {
    }

    void run() const
    {
        enter("", 0);
    }

private:
    // The front is the path up to here, with its slash.
    void enter(const std::string& front, std::size_t level) const
    {
        const Level& wanted = levels[level];
        if (isDeep(wanted)) {
            enterAll(front);
        } else if (std::all_of(wanted.begin(), wanted.end(),
                               [](const PatternPiece& each) { return each.kind == Kind::text; }))
        {
            std::string name;
            for (const PatternPiece& each : wanted) {
                name += each.text;
            }
            goOn(front + name, level);
        } else {
            for (const std::string& name : namesIn(front)) {
                Matching matching(wanted, name, fieldsComeAgain(wanted));
                if (matching.fits() || matching.isTooLong) {
                    goOn(front + name, level);
                }
            }
        }
    }

    void goOn(const std::string& path, std::size_t level) const
    {
        level + 1 == levels.size() ? use(path) : enter(path + '/', level + 1);
    }

    void enterAll(const std::string& front) const
    {
        for (const std::string& name : namesIn(front)) {
            use(front + name);
            if (name.front() != '.' && isFolderItself(front + name)) {
                enterAll(front + name + '/');
            }
        }
    }

    static std::vector<std::string> namesIn(const std::string& front)
    {
        std::vector<std::string> names;
        const std::unique_ptr<DIR, CloseFolder> folder(opendir(front.empty() ? "." : front.c_str()));
        while (const dirent* const entry = folder == nullptr ? nullptr : readdir(folder.get())) {
            const std::string name = entry->d_name;
            if (name != "." && name != "..") {
                names.push_back(name);
            }
        }
        return names;
    }

    std::vector<Level> levels;
    Use use;
};

} // namespace

Pattern::Pattern(const std::string& text)
    : whole(text), pieces(PatternReader(text).pieces()), hasRepeats(fieldsComeAgain(pieces))
{
    for (const PatternPiece& piece : pieces) {
        if (piece.kind == Kind::field && std::find(names.begin(), names.end(), piece.text) == names.end()) {
            names.push_back(piece.text);
        }
    }
}

std::optional<FieldValues> Pattern::match(std::string_view path) const
{
    Matching matching(pieces, path, hasRepeats);
    const bool fits = matching.fits();
    if (matching.isTooLong) {
        throw wrongPattern(whole, "has too many ways to fit " + std::string(path));
    }
    return fits ? std::optional(std::move(matching.values)) : std::nullopt;
}

std::vector<std::pair<std::string, FieldValues>> Pattern::files() const
{
    std::vector<std::pair<std::string, FieldValues>> found;
    Walk(pieces, [&](const std::string& path) {
        if (auto values = tavelinUtils::isRegular(path) ? match(path) : std::nullopt) {
            found.emplace_back(path, std::move(*values));
        }
    }).run();
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    return found;
}

bool isFixedField(std::string_view name)
{
    constexpr std::string_view fixed[] = {"path", "folder", "name", "stem", "number"};
    return std::find(std::begin(fixed), std::end(fixed), name) != std::end(fixed);
}

FieldBrace fieldBraceOf(std::string_view text)
{
    if (text.starts_with("{{")) {
        return {true, {}, 2};
    }
    const std::size_t end = text.find('}');
    const std::string_view name = text.substr(1, end == std::string_view::npos ? end : end - 1);
    const bool isName =
        end != std::string_view::npos && !name.empty() && std::all_of(name.begin(), name.end(), isLetter);
    return {false, isName ? name : std::string_view(), isName ? end + 1 : 0};
}

} // namespace companion
