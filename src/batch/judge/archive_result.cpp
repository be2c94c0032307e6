#include <string_view>

#include "batch/input_file.h"
#include "batch/judge/results.h"
#include "batch/pulse.h"

namespace vantelgis::batch {

namespace {

// Where the columns of a vertex begin, behind four blanks: 16 for x, 16 for y, in strings of three
// numbers 12 for z. Results stand apart by a blank.
constexpr std::size_t kYColumn = 20;
constexpr std::size_t kZColumn = 36;

bool touches(std::string_view line) {
    return (line.size() > kYColumn && line[kYColumn] != ' ') ||
           (line.size() > kZColumn && line[kZColumn] != ' ');
}

struct ArchiveReader {
    ResultFacts facts;
    bool results = false;
    bool inData = false;
    bool inSymbols = false;
    int open = 0;  // blocks

    void takeData(std::string_view line) {
        if (line.starts_with("  }")) {
            inData = false;
            --open;
            return;
        }
        ++facts.vertices;
        if (results) ++facts.strings;
        if (line.find('*') != std::string_view::npos)
            ++facts.asterisks;
        else if (!results && touches(line))
            ++facts.touching;
    }

    void takeOther(std::string_view line) {
        if (line.starts_with("string ")) ++facts.strings;
        const bool number = line.starts_with("      size ") || line.starts_with("      rotation ");
        if (number && line.find('*') != std::string_view::npos) ++facts.asterisks;
        if (line.starts_with("  data {") || line.starts_with("  data_3d {")) inData = true;
        if (line.starts_with("  name ")) return;  // may hold a brace
        if (line.ends_with('{'))
            ++open;
        else if (line.ends_with('}'))
            --open;
    }
};

}  // namespace

ResultFacts readArchiveResult(const std::string& path, bool results) {
    ArchiveReader reader;
    reader.results = results;
    InputFile file(path);
    std::string_view line;
    bool head = false;
    while (file.nextLine(line) && pulse()) {
        if (line.starts_with("model "))
            head = true;
        else if (reader.inData)
            reader.takeData(line);
        else
            reader.takeOther(line);
    }
    ResultFacts& facts = reader.facts;
    if (!file.isOpen() || file.failed())
        facts.fault = "the result can't be read";
    else if (!head)
        facts.fault = "the result has no \"model\" line";
    else if (reader.open != 0 || reader.inData)
        facts.fault = "the result ends within a string";
    return facts;
}

}  // namespace vantelgis::batch
