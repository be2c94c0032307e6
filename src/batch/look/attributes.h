#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "batch/look/look.h"

/// What the first attributes of the records would become.
namespace vantelgis::batch {

class AttributeCheck {
  public:
    enum class Wish { none, name, elevation, value, valueAndAngle };

    explicit AttributeCheck(Wish wish) : wish_(wish) {}
    void wish(Wish wish) { wish_ = wish; }

    /// Takes the record of an object, as one line of text with commas.
    void add(std::int64_t object, std::string_view record);
    /// Tells what was found.
    void tell(Look& look) const;

    [[nodiscard]] std::int64_t kept() const { return kept_; }

  private:
    void addName(std::int64_t object, std::string_view record);
    void addNumbers(std::int64_t object, std::string_view record);
    void addLongNumber(std::int64_t object, float number);

    Wish wish_;
    std::int64_t kept_ = 0;
    std::int64_t longNames_ = 0;
    std::int64_t quotedNames_ = 0;
    std::int64_t notNumbers_ = 0;
    std::int64_t firstNotNumber_ = 0;
    std::int64_t firstBlank_ = 0;
    std::string notNumber_;
    std::int64_t longNumbers_ = 0;
    std::int64_t firstLongNumber_ = 0;
    float longNumber_ = 0;
};

}  // namespace vantelgis::batch
