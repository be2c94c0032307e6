#include "batch/tell/plan_view.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "batch/look/drawing.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kClasses[kShown] = {"p", "c", "d", "e", "u"};
constexpr std::string_view kMeanings[kShown] = {"passed over", "converted", "dangling lines",
                                                "ends without a point", "unsnapped points"};

struct Frame {
    double west = 0, north = 0, side = 0;
    double height = 0;  ///< of the drawing
};

std::string svgStart(double height) {
    return "<svg class=\"plan\" viewBox=\"-15 -15 1030 " +
           std::to_string(std::lround(height) + 30) + "\" role=\"img\" aria-label=\"plan\">";
}

bool readFrame(std::string_view plan, Frame& frame) {
    const char* at = plan.data();
    const char* const end = at + std::min(plan.find('\n'), plan.size());
    for (double* const value : {&frame.west, &frame.north, &frame.side, &frame.height}) {
        const auto result = std::from_chars(at, end, *value);
        if (result.ec != std::errc{}) return false;
        at = result.ptr == end ? end : result.ptr + 1;
    }
    return frame.side > 0;
}

double middleOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

std::string escapedForHtml(std::string_view text) {
    std::string escaped;
    for (const char c : readable(text)) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

std::string planView(const Record& record) {
    std::string_view plan = record.plan;
    const std::size_t head = plan.find('\n');
    if (head == std::string_view::npos) return {};
    Frame frame;
    readFrame(plan, frame);
    plan.remove_prefix(head + 1);
    const bool converted = record.verdict != Verdict::notRun && record.verdict != Verdict::failed;
    std::string view = svgStart(frame.height) + "<g id=\"r" + std::to_string(record.number) +
                       (converted ? "\">" : "\" class=\"off\">");
    for (; !plan.empty(); plan.remove_prefix(std::min(plan.find('\n'), plan.size() - 1) + 1)) {
        const std::string_view line = plan.substr(0, plan.find('\n'));
        const int shown = line.empty() ? kShown : line.front() - '0';
        if (shown < 0 || shown >= kShown || line.size() < 2) continue;
        view.append("<path class=\"").append(kClasses[shown]).append("\" d=\"");
        view.append(escapedForHtml(line.substr(2))).append("\"/>");
    }
    return view += "</g></svg>";
}

std::string planLegend() {
    std::string legend = "<p class=\"legend\">";
    for (const Shown shown : {Shown::converted, Shown::passedOver, Shown::dangling,
                              Shown::danglingEnd, Shown::unsnapped}) {
        const auto kind = static_cast<std::size_t>(shown);
        const bool point = shown == Shown::danglingEnd || shown == Shown::unsnapped;
        legend.append("<span><svg viewBox=\"0 0 30 10\"><path class=\"").append(kClasses[kind]);
        legend.append("\" d=\"")
            .append(point ? "M15 5h0" : "M2 5h26")
            .append("\"/></svg>")
            .append(kMeanings[kind])
            .append("</span> ");
    }
    return legend +=
           "<span class=\"off\"><svg viewBox=\"0 0 30 10\"><path class=\"c\" d=\"M2 5h26\"/></svg>"
           "not converted</span></p>";
}

std::size_t Overview::size() const {
    constexpr std::size_t kMostOfOne = 100;
    return placed_.size() * kMostOfOne;
}

void Overview::add(const Record& record) {
    Frame frame;
    if (readFrame(record.plan, frame))
        placed_.push_back({record.number, frame.west, frame.north, frame.side});
}

// A layer in another coordinate system would leave all others no room: what lies far off from most
// is not drawn.
std::vector<Overview::Placed> Overview::together() const {
    std::vector<double> xs, ys, sides, distances;
    for (const Placed& one : placed_) {
        xs.push_back(one.west + one.side / 2);
        ys.push_back(one.north - one.side / 2);
        sides.push_back(one.side);
    }
    const double x = middleOf(xs);
    const double y = middleOf(ys);
    for (std::size_t i = 0; i < xs.size(); ++i)
        distances.push_back(std::hypot(xs[i] - x, ys[i] - y));
    const double reach = 20 * (middleOf(distances) + middleOf(sides));
    std::vector<Placed> near;
    for (std::size_t i = 0; i < placed_.size(); ++i)
        if (distances[i] <= reach && sides[i] <= reach) near.push_back(placed_[i]);
    return near;
}

std::string Overview::view() const {
    if (placed_.size() < 2) return {};
    const std::vector<Placed> near = together();
    if (near.size() < 2) return {};
    Box box;
    for (const Placed& one : near) {
        box.add(one.west, one.north - one.side);
        box.add(one.west + one.side, one.north);
    }
    const double side = std::max(box.xMax - box.xMin, box.yMax - box.yMin);
    std::string view = svgStart((box.yMax - box.yMin) / side * 1000);
    for (const Placed& one : near) {
        char use[200];
        std::snprintf(use, sizeof use,
                      "<use href=\"#r%lld\" transform=\"translate(%.2f %.2f) scale(%.6f)\"/>",
                      static_cast<long long>(one.number), (one.west - box.xMin) / side * 1000,
                      (box.yMax - one.north) / side * 1000, one.side / side);
        view += use;
    }
    view += "</svg>";
    if (near.size() < placed_.size())
        view += "<p>" + std::to_string(placed_.size() - near.size()) +
                " inputs lie far off and are not drawn here.</p>";
    return view;
}

}  // namespace vantelgis::batch
