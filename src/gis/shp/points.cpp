#include "gis/shp/points.h"

#include <algorithm>
#include <string_view>

#include "run/unit_writing.h"

namespace vantelgis {

namespace {

constexpr std::size_t kBytes = kPointBytes;

void takePoint(const char* bytes, double& x, double& y) {
    x = fromLittleEndian<double>(bytes);
    y = fromLittleEndian<double>(bytes + sizeof(double));
}

// A point whose first bytes, `atHand`, are the last ones in the unit's buffer.
ReadResult readSplitPoint(int unit, std::string_view atHand, double& x, double& y) {
    char bytes[kBytes];
    std::copy(atHand.begin(), atHand.end(), bytes);
    const ReadResult result = readBytes(unit, bytes + atHand.size(), kBytes - atHand.size());
    if (result == ReadResult::ok) takePoint(bytes, x, y);
    return result;
}

}  // namespace

ReadResult shpReadPoints(int unit, double* x, double* y, std::size_t count) {
    while (count > 0) {
        const std::string_view bytes = readSome(unit, count * kBytes);
        const std::size_t whole = bytes.size() / kBytes;
        for (std::size_t i = 0; i < whole; ++i) takePoint(bytes.data() + i * kBytes, x[i], y[i]);
        x += whole;
        y += whole;
        count -= whole;
        if (count == 0) break;
        const ReadResult result = readSplitPoint(unit, bytes.substr(whole * kBytes), *x, *y);
        if (result != ReadResult::ok) return result;
        ++x;
        ++y;
        --count;
    }
    return ReadResult::ok;
}

void shpWritePoints(int unit, const double* x, const double* y, std::size_t count) {
    while (count > 0) {
        const std::size_t n = std::min(count, kLargestReserve / kBytes);
        char* out = reserve(unit, n * kBytes);
        for (std::size_t i = 0; i < n; ++i) out = placeLittle(placeLittle(out, x[i]), y[i]);
        commit(unit, out);
        x += n;
        y += n;
        count -= n;
    }
}

}  // namespace vantelgis
