// SPDX-License-Identifier: Apache-2.0
#include "touch/Glide.h"

#include "raster/Saturate.h"

#include <algorithm>
#include <cmath>

void Glide::Axis::begin(int position, double speed) {
    start = position;
    velocity = std::isfinite(speed) ? speed : 0.0;
    moving = std::abs(velocity) >= REST_SPEED;
}

void Glide::Axis::stopAt(int position) {
    start = position;
    velocity = 0.0;
    moving = false;
}

int Glide::Axis::at(double elapsed) {
    if (!moving) {
        return saturateToInt(start);
    }
    const double duration = TIME_CONSTANT * std::log(std::abs(velocity) / REST_SPEED);
    const double time = std::min(elapsed, duration);
    const double position = start + velocity * TIME_CONSTANT * (1.0 - std::exp(-time / TIME_CONSTANT));
    const int pixel = saturateToInt(std::round(position));
    if (elapsed >= duration) {
        stopAt(pixel);
    }
    return pixel;
}

void Glide::start(const CpPoint& position, double velocityX, double velocityY, double now) {
    mX.begin(position.x, velocityX);
    mY.begin(position.y, velocityY);
    mStartTime = now;
}

void Glide::stop() {
    mX.moving = false;
    mY.moving = false;
}

CpPoint Glide::at(double now) {
    const double elapsed = std::max(0.0, now - mStartTime);
    return {mX.at(elapsed), mY.at(elapsed)};
}

void Glide::shift(int dx, int dy) {
    mX.start += dx;
    mY.start += dy;
}
