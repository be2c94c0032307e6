#include "batch/look/drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostNodes = 40'000;
constexpr double kFinest = 1.0 / 4000;  // of the extent: nodes closer together show as one
constexpr double kSide = 1000;          // of the drawing

bool close(double dx, double dy, double tolerance) {
    return std::fabs(dx) < tolerance && std::fabs(dy) < tolerance;
}

void appendStep(std::string& path, char command, int x, int y) {
    path += command;
    path += std::to_string(x);
    if (y >= 0) path += ' ';
    path += std::to_string(y);
}

}  // namespace

void Drawing::add(Shown shown, std::span<const double> x, std::span<const double> y) {
    if (!wanted_ || x.empty()) return;
    const std::size_t start = x_.size();
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (!std::isfinite(x[i]) || !std::isfinite(y[i])) continue;
        const bool last = i + 1 == x.size();
        const bool near =
            x_.size() > start && close(x[i] - x_.back(), y[i] - y_.back(), tolerance_);
        if (near && !last) continue;
        x_.push_back(x[i]);
        y_.push_back(y[i]);
        box_.add(x[i], y[i]);
    }
    if (x_.size() > start) paths_.push_back({shown, start, x_.size() - start});
    if (x_.size() > kMostNodes) thin();
}

// Twice as coarse until half of the nodes are gone. What is as small as the tolerance goes whole,
// but for what needs an eye.
void Drawing::thin() {
    const double extent = std::max(box_.xMax - box_.xMin, box_.yMax - box_.yMin);
    Drawing kept;
    kept.wanted_ = true;
    kept.tolerance_ = std::max(2 * tolerance_, extent * kFinest);
    std::size_t order = 0;
    const bool coarse = tolerance_ > extent / 50;
    for (const Path& path : paths_) {
        const bool dropped = coarse && order++ % 2 == 1;
        if (!dropped)
            kept.add(path.shown, {x_.data() + path.start, path.count},
                     {y_.data() + path.start, path.count});
    }
    kept.box_ = box_;
    *this = std::move(kept);
    if (x_.size() > kMostNodes / 2 && tolerance_ < extent) thin();
}

std::string Drawing::pathData(const Path& path, double scale) const {
    std::string text;
    int atX = 0;
    int atY = 0;
    for (std::size_t i = path.start; i < path.start + path.count; ++i) {
        const int x = static_cast<int>(std::lround((x_[i] - box_.xMin) * scale));
        const int y = static_cast<int>(std::lround((box_.yMax - y_[i]) * scale));
        const bool first = text.empty();
        if (!first && x == atX && y == atY && path.count > 2) continue;
        appendStep(text, first ? 'M' : 'l', first ? x : x - atX, first ? y : y - atY);
        atX = x;
        atY = y;
    }
    if (path.count == 1) text += "h0";  // a round line end shows it
    return text;
}

std::string Drawing::text(std::size_t most) const {
    if (paths_.empty()) return {};
    const double extent = std::max({box_.xMax - box_.xMin, box_.yMax - box_.yMin, 1e-9});
    std::string texts[kShown];
    std::size_t length = 0;
    // What needs an eye comes first where there is no room for all.
    for (int shown = kShown - 1; shown >= 0; --shown) {
        for (const Path& path : paths_) {
            if (static_cast<int>(path.shown) != shown || length > most) continue;
            const std::string data = pathData(path, kSide / extent);
            length += data.size();
            texts[shown] += data;
        }
    }
    char frame[100];
    std::snprintf(frame, sizeof frame, "%.17g %.17g %.17g %.0f\n", box_.xMin, box_.yMax, extent,
                  kSide / extent * (box_.yMax - box_.yMin));
    std::string all = frame;
    for (int shown = 0; shown < kShown; ++shown) {
        if (!texts[shown].empty())
            all.append(std::to_string(shown)).append(":").append(texts[shown]) += '\n';
    }
    return all;
}

}  // namespace vantelgis::batch
