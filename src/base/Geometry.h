#pragma once

namespace lumeroom {

// Lengths are in the toolkit's device-independent points; y runs downwards.

struct Point {
    float x = 0;
    float y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    float width = 0;
    float height = 0;

    bool operator==(const Size&) const = default;
};

struct Rectangle {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;

    bool operator==(const Rectangle&) const = default;
};

} // namespace lumeroom
