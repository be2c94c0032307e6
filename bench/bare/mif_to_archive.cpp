#include "bare/archive_text.h"
#include "bare/loops.h"

namespace bench {

void mifToArchive(const std::string& in, const std::string& out) {
    Input mif(in + ".mif"), mid(in + ".mid");
    Output archive(out);
    while (const char* line = mif.line()) {
        if (std::memcmp(line, "Pline ", 6) != 0) {
            mif.leave(line);
            continue;
        }
        std::int32_t nodes = 0;
        mif.leaveAtEnd(readCount(line + 6, nodes));
        const char* row = mid.line();
        if (row == nullptr) return;
        begin2dString(archive, firstAttribute(row));
        mid.leave(row);
        for (; nodes > 0 && (line = mif.line()) != nullptr; --nodes) {
            double x;
            double y;
            line = readReal(line, x);
            mif.leaveAtEnd(readReal(line + 1, y));
            putVertex(archive, x, y);
        }
        endString(archive);
    }
}

}  // namespace bench
