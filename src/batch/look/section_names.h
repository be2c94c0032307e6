#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "archive/scanner.h"
#include "batch/look/look.h"

/// The files that the cross-sections of an archive become, by the names of its strings.
namespace vantelgis::batch {

class SectionNames {
  public:
    /// Takes the name of a string; one without a name gets a number, as in the run.
    void take(D12Object& object);
    /// The string taken last becomes a file.
    void takeFile(Look& look);
    void tell(Look& look) const;

  private:
    std::string name_;
    std::int64_t nameless_ = 0;
    std::set<std::string> keys_;  // of all files so far
    std::string long_;
    std::string twice_;
    std::string outside_;
};

}  // namespace vantelgis::batch
