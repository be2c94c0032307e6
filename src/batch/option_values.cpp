#include "batch/option_values.h"

#include <algorithm>
#include <charconv>

namespace vantelgis::batch {

namespace {

bool takeInteger(std::string_view text, int& value) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size();
}

}  // namespace

bool takeShard(std::string_view text, Options& options) {
    const std::size_t slash = text.find('/');
    return slash != std::string_view::npos && takeInteger(text.substr(0, slash), options.shard) &&
           takeInteger(text.substr(slash + 1), options.shards) && options.shard >= 1 &&
           options.shard <= options.shards;
}

bool takePair(const std::string& text, Options& options) {
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos || equals + 1 == text.size()) return false;
    if (text.find('=', equals + 1) != std::string::npos) return false;
    options.pairs.emplace_back(text.substr(0, equals), text.substr(equals + 1));
    return true;
}

bool takeProgress(std::string_view text, Options& options) {
    constexpr std::string_view kNames[] = {"auto", "lines", "json", "none"};
    const auto found = std::find(std::begin(kNames), std::end(kNames), text);
    if (found == std::end(kNames)) return false;
    options.progress = static_cast<Progress>(found - std::begin(kNames));
    return true;
}

}  // namespace vantelgis::batch
