#include "channel.h"

#include "../frame/tolerance.h"

namespace kez {

namespace {

// The walls' centre-lines.
struct CentreLines {
  float h, b, c, t;
  bool lipped;
};

CentreLines centre_lines(Channel channel) {
  return {channel.height - channel.t, channel.flange - channel.t, channel.lip - channel.t / 2,
          channel.t, above_tolerance(channel.lip)};
}

// Ix about the axis of symmetry is t / 12 times this.
float second_moment_sum(float h, float b, float c) {
  return ((6 * (b + c) + h) * h - 12 * (c * c)) * h + 8 * (c * c * c);
}

// The shear centre lies t b / (12 Ix) times this outside the web.
float shear_sum(float h, float b, float c) {
  return (6 * (h * h) - 8 * (c * c)) * c + 3 * b * (h * h);
}

}  // namespace

// Centroid and shear centre lie on opposite sides of the web: their distances from it add up.
float shear_centre_offset(Channel channel) {
  const auto [h, b, c, t, lipped] = centre_lines(channel);
  if (!lipped) return b * b / (h + 2 * b) + 3 * (b * b) / (6 * b + h);

  const float centroid = (c + (b + c)) * (b * t) / ((h + 2 * b + 2 * c) * t);
  const float ix = t * second_moment_sum(h, b, c) / 12;
  return centroid + b * t * shear_sum(h, b, c) / ix / 12;
}

// Grouping and order of the steps fix the rounding.
float warping_constant(Channel channel) {
  const auto [h, b, c, t, lipped] = centre_lines(channel);
  if (!lipped) return h * h * t * (b * b * b) * (3 * b + 2 * h) / (6 * b + h) / 12;

  const float area = (h + 2 * b + 2 * c) * t;
  const float ix = second_moment_sum(h, b, c) * t / 12;
  const float m = shear_sum(h, b, c) * (t * b) / ix / 12;
  const float centroid = t * b * (b + 2 * c) / area;
  const float h2 = h * h, b2 = b * b, c2 = c * c, m2 = m * m;

  const float t1 = centroid * area * h2 * (b2 / 3 - b * m + m2) / t;
  const float t2 = t1 + (h2 * h * m2 + b2 * c2 * (2 * c + 3 * h)) * area / t / 3;
  const float t3 = t2 - ix * m2 * (2 * h + 4 * c) / t;
  const float t4 = c2 * m * (2 * m * ((c - h) * (2 * c) + (2 * c - 3 * h) * b) + 8 * b2 * c) / 3;
  const float t5 = b2 * h2 * ((3 * c + b) * (h + 4 * c) - 6 * c2) / 6;
  return t * t * (t3 + t4 + t5 - m2 * (h2 * h2) / 4) / area;
}

}  // namespace kez
