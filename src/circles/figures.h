// Arc lengths, and the areas and moments of plane figures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

struct ArcLengths {
  float shorter, longer;
};

// The arcs into which the rays to p and q divide the circle through p.
std::optional<ArcLengths> divide_circle(Vec2 centre, Vec2 p, Vec2 q);

struct FirstMoments {
  float x, y;  // about the x axis: the integral of y; about the y axis: that of x
};

struct SecondMoments {
  float x, y, product;
};

// Of an outline, which is closed first. Positive for counter-clockwise ones, so that holes given
// clockwise subtract.
float polygon_area(const PlanePoints& outline);
FirstMoments polygon_first_moments(const PlanePoints& outline);
SecondMoments polygon_second_moments(const PlanePoints& outline);

struct PlacedArea {
  float area;
  Vec2 centroid;
};

// What the chord from p to q cuts from the circle about `centre` through p: the complement, or for
// any other figure the segment of the smaller angle. If the chord is a diameter, the centroid may
// be on either side or not a number.
PlacedArea circular_segment(Vec2 centre, Vec2 p, Vec2 q, Figure figure);

// The number of points that a figure uses of its list: a polygon of n vertices uses n + 1.
std::size_t points_used(Figure figure, std::int32_t n);

// The list holds points_used() points. Any other figure gives `otherwise`, also times the factor.
float figure_area(Figure figure, const PlanePoints& points, float stated, float factor,
                  float otherwise);
FirstMoments figure_first_moments(Figure figure, const PlanePoints& points, float stated,
                                  float factor, FirstMoments otherwise);

}  // namespace kez
