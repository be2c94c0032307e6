#pragma once

#include <string>

namespace vantelgis::batch {

/// One screen: what the program does, examples, the options that are used most.
std::string shortHelp();
/// All options, as `options` lists them, with what the exit status means.
std::string longHelp(const std::string& options);
std::string versionLine();
/// What a look can find, as a table in Markdown.
std::string findingsTable();

}  // namespace vantelgis::batch
