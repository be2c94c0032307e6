#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "batch/converter_arguments.h"
#include "batch/record.h"

/// What coordinates say of themselves.
namespace vantelgis::batch {

class CoordinateCheck {
  public:
    /// For a conversion, which gives each number its columns.
    explicit CoordinateCheck(Conversion conversion);

    /// Takes the nodes of an object, whose number (from 1) is `object`.
    void add(std::int64_t object, std::span<const double> x, std::span<const double> y);

    [[nodiscard]] const Box& box() const { return box_; }
    /// They lie in the range of longitudes and latitudes and have more decimals than a survey.
    [[nodiscard]] bool looksLikeDegrees() const;
    /// The object (0 for none) with a coordinate that would be written as asterisks, or run
    /// together with the one beside it.
    [[nodiscard]] std::int64_t outsideObject() const { return outsideObject_; }
    [[nodiscard]] const std::string& outside() const { return outside_; }

  private:
    Box box_;
    double least_;  // that keeps a blank in front of it
    double most_;
    bool fine_ = false;
    std::int64_t outsideObject_ = 0;
    std::string outside_;
};

}  // namespace vantelgis::batch
