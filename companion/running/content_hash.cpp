#include "running/content_hash.h"

#include "base/bytes.h"

#include <cstdio>
#include <memory>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace companion {
namespace {

struct FreeState
{
    void operator()(XXH3_state_t* state) const
    {
        XXH3_freeState(state);
    }
};

// High half first, as such hashes are printed.
std::string digitsOf(const XXH128_hash_t& hash)
{
    char text[33];
    std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(hash.high64),
                  static_cast<unsigned long long>(hash.low64));
    return text;
}

} // namespace

std::string contentHash(std::string_view bytes)
{
    return digitsOf(XXH3_128bits(bytes.data(), bytes.size()));
}

std::optional<std::string> fileHash(const std::string& path)
{
    const tavelinUtils::OpenFile file = tavelinUtils::openForReading(path);
    if (file == nullptr) {
        return std::nullopt;
    }
    const std::unique_ptr<XXH3_state_t, FreeState> state(XXH3_createState());
    XXH3_128bits_reset(state.get());
    constexpr std::size_t pieceLength = std::size_t{1} << 18;
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceLength);
    while (const std::size_t count = std::fread(piece.get(), 1, pieceLength, file.get())) {
        XXH3_128bits_update(state.get(), piece.get(), count);
    }
    if (std::ferror(file.get()) != 0) {
        return std::nullopt;
    }
    return digitsOf(XXH3_128bits_digest(state.get()));
}

} // namespace companion
