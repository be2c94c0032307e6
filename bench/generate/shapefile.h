#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "generate/output.h"

namespace bench {

// A field of a .dbf: its name, `C` or `N`, its width and its decimals.
struct TableField {
    std::string_view name;
    char type;
    char width;
    char decimals;
};

// The bytes of a .shp with its .shx and .dbf, written together at the end: their heads hold sizes.
class Shapefile {
  public:
    Shapefile(std::int32_t shapeType, std::vector<TableField> fields);

    // A record: what follows its shape type, and the row, as wide as the fields together.
    void add(const std::string& content, std::string_view row);
    // Writes the set and a Header.prj beside it.
    void write(const std::string& folder, const std::string& name) const;

  private:
    std::int32_t shapeType_;
    std::vector<TableField> fields_;
    std::int64_t records_ = 0;
    std::string shp_, shx_, dbf_;  // behind their heads
};

// `value` in `width` columns: a number at the right, a text at the left.
std::string numberColumns(std::int64_t value, int decimals, std::size_t width);
std::string textColumns(std::string_view value, std::size_t width);

}  // namespace bench
