#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantelgis::gpkg {

// What a run says. Verdicts go to standard output; what is wrong or worth knowing goes to standard
// error, a line each, with the program's name or the kind of the line in front.

/// Why a run came to nothing, in the user's words. Thrown by `fail` alone and caught where runs
/// begin, so that files under construction go on the way.
struct Failure {
    std::string text;
};

/// Texts and numbers one behind the other.
template <typename... Parts>
[[nodiscard]] std::string joined(const Parts&... parts) {
    std::string text;
    const auto add = [&text](const auto& part) {
        if constexpr (std::integral<std::remove_cvref_t<decltype(part)>>) {
            text += std::to_string(part);
        } else {
            text += part;
        }
    };
    (add(parts), ...);
    return text;
}

template <typename... Parts>
[[noreturn]] void fail(const Parts&... parts) {
    throw Failure{joined(parts...)};
}

/// Nothing is said but failures.
void silenceReports();

void reportFailure(std::string_view text);  ///< "vantelgis-gpkg: " and the text
void reportWarning(std::string_view text);  ///< "warning: " and the text
void reportNote(std::string_view text);     ///< "note: " and the text
void reportVerdict(std::string_view text);

/// "1 string", "2 strings".
[[nodiscard]] std::string counted(std::int64_t count, std::string_view one,
                                  std::string_view several);

}  // namespace vantelgis::gpkg
