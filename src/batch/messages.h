#pragma once

#include <string>
#include <string_view>

/// The converter's messages as the guide explains them; its page of messages is built into this
/// program.
namespace vantelgis::batch {

struct MessageHelp {
    std::string_view message;  ///< what the message begins with
    std::string cause;
    std::string cure;
};

/// The help for a line of the converter's console; with no text when the guide has none.
MessageHelp helpForMessage(std::string_view line);

/// The place (from 0) in a line of the console where a message that stops a run begins: "ERROR" and
/// the words of a message that the guide knows. `npos` when the line has none.
std::size_t findErrorMessage(std::string_view line);

}  // namespace vantelgis::batch
