#include "generate/shapefile.h"

#include <utility>

namespace bench {

namespace {

constexpr std::size_t kShapeHead = 100;
constexpr std::size_t kBox = 64;  // nobody here looks at it

std::string shapeHead(std::int32_t shapeType, std::size_t bytesBehind) {
    return big(9994) + std::string(20, '\0') +
           big(static_cast<std::int64_t>((kShapeHead + bytesBehind) / 2)) +
           little(std::int32_t{1000}) + little(shapeType) + std::string(kBox, '\0');
}

std::string tableHead(const std::vector<TableField>& fields, std::int64_t records) {
    std::size_t rowSize = 1;
    std::string descriptors;
    for (const TableField& field : fields) {
        std::string name(field.name);
        name.resize(11, '\0');
        descriptors += name + field.type + std::string(4, '\0') + field.width + field.decimals +
                       std::string(14, '\0');
        rowSize += static_cast<std::size_t>(field.width);
    }
    return std::string("\3\x7c\5\1", 4) + little(static_cast<std::int32_t>(records)) +
           little(static_cast<std::int16_t>(33 + descriptors.size())) +
           little(static_cast<std::int16_t>(rowSize)) + std::string(20, '\0') + descriptors + '\r';
}

}  // namespace

Shapefile::Shapefile(std::int32_t shapeType, std::vector<TableField> fields)
    : shapeType_(shapeType), fields_(std::move(fields)) {}

void Shapefile::add(const std::string& content, std::string_view row) {
    const auto words = static_cast<std::int64_t>((content.size() + 4) / 2);
    shx_ += big(static_cast<std::int64_t>((kShapeHead + shp_.size()) / 2)) + big(words);
    shp_ += big(++records_) + big(words) + little(shapeType_) + content;
    dbf_.append(" ").append(row);
}

void Shapefile::write(const std::string& folder, const std::string& name) const {
    Output(folder + "/" + name + ".shp") << shapeHead(shapeType_, shp_.size()) << shp_;
    Output(folder + "/" + name + ".shx") << shapeHead(shapeType_, shx_.size()) << shx_;
    Output(folder + "/" + name + ".dbf") << tableHead(fields_, records_) << dbf_ << "\x1a";
    Output(folder + "/Header.prj") << "PROJCS[\"GDA2020_MGA_Zone_56\"]\n";
}

std::string numberColumns(std::int64_t value, int decimals, std::size_t width) {
    std::int64_t unit = 1;
    for (int i = 0; i < decimals; ++i) unit *= 10;
    std::string text = std::to_string(value / unit);
    if (decimals > 0) text.append(".").append(std::to_string(unit + value % unit), 1, 19);
    return std::string(width - text.size(), ' ') + text;
}

std::string textColumns(std::string_view value, std::size_t width) {
    std::string columns(value);
    columns.resize(width, ' ');
    return columns;
}

}  // namespace bench
