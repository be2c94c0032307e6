#include "toolkit/lines.h"

#include "text/free_format.h"
#include "text/strings.h"
#include "toolkit/line_pieces.h"

namespace vantelgis {

namespace {

// Gives the fields of a line one after the other.
class Fields {
  public:
    explicit Fields(std::string_view line) : rest_(cutLine(line)) {}
    bool next(std::string_view& field) {
        if (ended_) return false;
        const std::size_t comma = rest_.find(',');
        ended_ = comma == std::string_view::npos;
        field = rest_.substr(0, comma);
        if (!ended_) rest_.remove_prefix(comma + 1);
        return true;
    }

  private:
    std::string_view rest_;
    bool ended_ = false;
};

}  // namespace

std::int32_t CSVCOLUMN(std::string_view line, std::string_view name, std::int32_t fallback) {
    Fields fields(line);
    std::string_view field;
    for (std::int32_t column = 1; fields.next(field); ++column)
        if (looselyEqual(field, name)) return column;
    return fallback;
}

bool CSVVALUE(std::string_view line, std::int32_t column, float& value) {
    value = 0;
    Fields fields(line);
    std::string_view field;
    std::int32_t reached = 0;
    while (reached < column && fields.next(field)) ++reached;
    if (column < 1 || reached < column) return false;
    FreeFormat list(field);
    float number;
    if (takeReal(list, number) != Item::value) return false;
    if (!withoutTrailingBlanks(list.rest()).empty()) return false;
    value = number;
    return true;
}

}  // namespace vantelgis
