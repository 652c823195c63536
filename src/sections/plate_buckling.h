// Effective widths of compressed plates, and stiffeners that buckle torsionally.
#pragma once

#include <cstdint>
#include <optional>

namespace kez {

// The material factor sqrt(235 / fy) enters as the ratio e2 / e1.
struct PlatePanel {
  float b, t, e1, e2;
};

// EN 1993-1-5, 4.4 (4.2), with the buckling coefficient k and the stress ratio psi.
float reduction_factor(PlatePanel panel, float psi, float k);

struct EffectiveParts {
  float at_first, at_second;
};

// Of an internal panel with the edge stresses s1 and s2; none where no case applies.
std::optional<EffectiveParts> effective_parts(PlatePanel panel, float b_bar, float s1, float s2);

// Of a panel whose buckling coefficient follows from b / d. Beyond 0.6, and if the ratio is not a
// number, the coefficient stays as it is.
float effective_width(PlatePanel panel, float d, float& coefficient);

struct Stiffener {
  float t, b, z, a, s, fy, e, nu;
  std::int32_t n;
};

struct StiffenerReduction {
  float chi, t_red;
};

// Zeros if the iteration does not settle.
StiffenerReduction reduce_stiffener(const Stiffener& stiffener);

}  // namespace kez
