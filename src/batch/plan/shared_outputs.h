#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "batch/crew.h"

namespace vantelgis::batch {

/// Finds inputs that would write one file, or the file of another input, before anything is run.
class SharedOutputs {
  public:
    explicit SharedOutputs(const Crew& crew) : crew_(crew) {}

    /// Takes the results that the names of all inputs give. False at the first that is shared.
    bool takeAll();
    /// Takes results of an input that only its content gives, by names relative to its folder.
    bool take(std::size_t place, const std::vector<std::string>& names);

    /// What is shared, with both names.
    [[nodiscard]] const std::string& refusal() const { return refusal_; }

  private:
    bool takeOne(std::size_t place, const std::string& file);

    const Crew& crew_;
    std::unordered_map<std::size_t, std::uint32_t> writers_;  // hash of a file, place of its input
    std::unordered_map<std::size_t, std::uint32_t> inputs_;
    std::string refusal_;
};

}  // namespace vantelgis::batch
