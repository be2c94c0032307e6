#pragma once

#include <string_view>

namespace vantelgis {

/// The forms of message boxes. On a platform without them a box is a question on the console with
/// the same answers.
enum class BoxForm { stop, retry, yesNo, yesNoCancel, pause, exit };

enum class BoxAnswer { ok, cancel, retry, yes, no };

/// Shows a box whose caption is the host's title, with its version where there is a choice to make,
/// and gives the answer. A text is cut at 256 characters; CR begins a new line. At the end of
/// standard input, or without a box, the answer is Cancel where the form has it, else No, else OK.
BoxAnswer showBox(BoxForm form, std::string_view text);

/// The same, shown again until the answer is OK.
inline void showBoxUntilOk(BoxForm form, std::string_view text) {
    while (showBox(form, text) != BoxAnswer::ok) {
    }
}

}  // namespace vantelgis
