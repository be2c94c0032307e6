#include "toolkit/geometry.h"

#include <cmath>

#include "geometry/distance.h"

namespace vantelgis {

float CIRCLE_WIDTH(float radius, float depth) {
    constexpr float kSmallestDepth = 0.00001F;
    if (depth > 2 * radius - kSmallestDepth || depth < kSmallestDepth) return 0;
    const float height = depth - radius;
    return 2 * std::sqrt(radius * radius - height * height);
}

void HYD_PARAM(float x1, float y1, float x2, float y2, float level, float value, float& area,
               float& width, float& perimeter) {
    area = width = perimeter = 0;
    if (value <= 0) return;
    const bool firstWet = level >= y1, secondWet = level >= y2;
    if (firstWet && secondWet) {
        width = x2 - x1;
        area = (level - (y1 + y2) / 2) * width;
        perimeter = distanceBetween(x1, y1, x2, y2);
    } else if (firstWet) {
        width = (x2 - x1) * (level - y1) / (y2 - y1);
        area = (level - y1) * width / 2;
        perimeter = distanceBetween(x1, y1, x1 + width, level);
    } else if (secondWet) {
        width = (x2 - x1) * (level - y2) / (y1 - y2);
        area = (level - y2) * width / 2;
        perimeter = distanceBetween(x2 - width, level, x2, y2);
    }
}

void HYD_PARAM2(float x1, float y1, float value1, float x2, float y2, float value2, float level,
                float& area1, float& area2, float& width1, float& width2, float& perimeter1,
                float& perimeter2) {
    const float middleX = (x1 + x2) / 2, middleY = (y1 + y2) / 2;
    HYD_PARAM(x1, y1, middleX, middleY, level, value1, area1, width1, perimeter1);
    HYD_PARAM(middleX, middleY, x2, y2, level, value2, area2, width2, perimeter2);
}

}  // namespace vantelgis
