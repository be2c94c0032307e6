#include "batch/tell/output.h"

#include <cstdio>

#include "batch/files.h"
#include "batch/processes.h"
#include "text/characters.h"

namespace vantelgis::batch {

ReportKind reportKindOf(std::string_view file) {
    constexpr struct {
        std::string_view extension;
        ReportKind kind;
    } kKinds[] = {
        {".csv", ReportKind::csv}, {".json", ReportKind::json}, {".html", ReportKind::html}};
    const std::string_view extension = extensionPart(namePart(file));
    for (const auto& known : kKinds)
        if (sameIgnoringCase(extension, known.extension)) return known.kind;
    return ReportKind::none;
}

void printOut(std::string_view text) {
    static bool closed = false;
    if (!closed)
        closed = std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
                 std::fflush(stdout) != 0;
}

std::string objectsShown(const Record& record) {
    return std::to_string(record.objects) + (record.notLookedAt.empty() ? "" : "+");
}

// A result was counted whole.
std::string verticesShown(const Record& record) {
    const bool whole = record.notLookedAt.empty() || record.verdict == Verdict::well ||
                       record.verdict == Verdict::suspicious;
    return std::to_string(record.vertices) + (whole ? "" : "+");
}

bool outputHasColours() {
    return outputIsTerminal() && environmentText("NO_COLOR").empty();
}

bool errorHasColours() {
    return errorIsTerminal() && environmentText("NO_COLOR").empty();
}

}  // namespace vantelgis::batch
