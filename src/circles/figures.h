// Arc lengths, and the areas and moments of plane figures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "../frame/outline.h"
#include "../frame/types.h"

namespace kez {

struct ArcLengths {
  float shorter, longer;
};

// The arcs into which the rays to p and q divide the circle through p.
std::optional<ArcLengths> divide_circle(Vec2 centre, Vec2 p, Vec2 q) noexcept;

struct FirstMoments {
  float x, y;  // about the x axis: the integral of y; about the y axis: that of x
};

struct SecondMoments {
  float x, y, product;
};

// Polygons: the lists end with the place for the closing vertex, which is written first. Positive
// for counter-clockwise outlines, so that holes given clockwise subtract.
float polygon_area(std::span<float> xs, std::span<float> ys) noexcept;
FirstMoments polygon_first_moments(std::span<float> xs, std::span<float> ys) noexcept;
SecondMoments polygon_second_moments(std::span<float> xs, std::span<float> ys) noexcept;

struct Segment {
  float area;
  Vec2 centroid;  // not a number, or on either side, where the chord is a diameter
};

// What the chord from p to q cuts from the circle about `centre` through p: the complement, or for
// any other figure the segment of the smaller angle.
Segment circular_segment(Vec2 centre, Vec2 p, Vec2 q, Figure figure) noexcept;

// Entries that a figure takes of its lists: a polygon of n vertices one more than n.
std::size_t points_used(Figure figure, std::int32_t n) noexcept;

// The lists hold points_used() entries. What is no figure gives `otherwise`, times the factor too.
float figure_area(Figure figure, std::span<float> xs, std::span<float> ys, float stated,
                  float factor, float otherwise) noexcept;
FirstMoments figure_first_moments(Figure figure, std::span<float> xs, std::span<float> ys,
                                  float stated, float factor, FirstMoments otherwise) noexcept;

}  // namespace kez
