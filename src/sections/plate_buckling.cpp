#include "plate_buckling.h"

#include <cmath>

#include "../frame/quiet.h"
#include "../frame/tolerance.h"

namespace kez {

float reduction_factor(PlatePanel panel, float psi, float k) {
  const float lambda_p =
      quiet::divide(panel.b, quiet::divide(panel.e2, panel.e1) * 28.4f * quiet::sqrt(k) * panel.t);
  if (std::islessequal(lambda_p, 0.5f + quiet::sqrt(0.085f - 0.055f * psi))) return 1;
  const float rho = (1 - 0.055f * (3 + psi) / lambda_p) / lambda_p;
  return rho > 1 ? 1 : rho;
}

namespace {

// How the effective width is shared between the edges.
enum class Share { none, evenly, by_stress_ratio, bending };

// Without a share no case applies. Not an optional, which would be stored in parts and reloaded
// whole.
struct StressCase {
  float psi, k;
  Share share;
};

// EN 1993-1-5, table 4.1. The cases overlap within the tolerance, and the last that applies counts;
// psi = -3 lies in none of them.
StressCase stress_case(float s1, float s2) {
  if (!(s1 > 0)) return {};
  const float psi = s2 / s1, magnitude2 = std::fabs(s2);
  StressCase found{};
  if (equal(s1, s2) && s2 > 0) found = {1, 4.0f, Share::evenly};
  if (equal(s2, 0)) found = {0, 7.81f, Share::by_stress_ratio};
  if (s2 > 0 && s1 - s2 > 0) found = {psi, 8.2f / (1.05f + psi), Share::by_stress_ratio};
  if (s2 < 0) {
    if (s1 > magnitude2) {
      found = {psi, (9.78f * psi - 6.29f) * psi + 7.81f, Share::bending};
    } else if (magnitude2 > s1 && s1 > magnitude2 / 3) {
      found = {psi, 5.98f * ((1 - psi) * (1 - psi)), Share::bending};
    }
    // Deliberate: strict, unlike the other tests (kezef2).
    if (below_tolerance(std::fabs(s1 - magnitude2))) found = {-1, 23.9f, Share::bending};
  }
  return found;
}

bool is_mostly_in_tension(float s1, float s2) {
  return s1 > 0 && s2 < 0 && std::fabs(s2) / 3 > s1;
}

}  // namespace

std::optional<EffectiveParts> effective_parts(PlatePanel panel, float b_bar, float s1, float s2) {
  if (equal(s1, 0) && equal(s2, 0)) return std::nullopt;
  if (is_mostly_in_tension(s1, s2)) return EffectiveParts{0.5f * b_bar, 0.5f * b_bar};
  const auto [psi, k, share] = stress_case(s1, s2);
  if (share == Share::none) return std::nullopt;

  const float b_eff = reduction_factor(panel, psi, k) * b_bar;
  switch (share) {
    case Share::none:
      break;
    case Share::evenly:
      return EffectiveParts{0.5f * b_eff, 0.5f * b_eff};
    case Share::by_stress_ratio: {
      const float at_first = 2 * b_eff / (5 - psi);
      return EffectiveParts{at_first, b_eff - at_first};
    }
    case Share::bending:
      return EffectiveParts{0.4f * b_eff, 0.6f * b_eff};
  }
  return std::nullopt;
}

float effective_width(PlatePanel panel, float d, float& coefficient) {
  const float ratio = quiet::divide(panel.b, d), beyond = ratio - 0.35f;
  if (std::islessequal(ratio, 0.35f)) {
    coefficient = 0.5f;
  } else if (std::islessequal(ratio, 0.6f)) {
    coefficient = beyond * beyond / 3 + 0.5f;
  }
  return reduction_factor(panel, 1, coefficient) * panel.b;
}

namespace {

// EN 1993-1-3, 5.5.3.1 (5.12).
float distortional_reduction(float lambda) {
  if (lambda <= 0.65f) return 1;
  if (lambda <= 1.38f) return 1.47f - 0.723f * lambda;
  return 0.66f / lambda;
}

// Of the full stiffener on the spring that the bent plate gives it: EN 1993-1-3, 5.5.3.2 (5.15)
// with the spring stiffness of 5.5.3.1 (5.10b).
float stiffener_slenderness(const Stiffener& stiffener) {
  const float a = stiffener.a, b = stiffener.b, t = stiffener.t, s = stiffener.s;
  if (a + b == 0) return not_a_number;  // no area, and so no centroid
  const float area = (a + b) * t;
  const float ca = a * a / (2 * (a + b)), cb = b * b / (2 * (a + b));
  const float from_middle = a / 2 - ca;
  const float second_moment =
      (a * a * a / 12 + from_middle * from_middle * a + ca * ca * b + b * (t * t) / 12) * t;
  const float arm = stiffener.z - cb, nu = stiffener.nu;
  const float spring = quiet::divide(
      stiffener.e * (t * t * t),
      (1 - nu * nu) * 4 * (s + arm + 0.5f * static_cast<float>(stiffener.n) * s) * (arm * arm));
  const float critical_stress =
      quiet::divide(2 * quiet::sqrt(stiffener.e * second_moment * spring), area);
  return quiet::sqrt(quiet::divide(stiffener.fy, critical_stress));
}

}  // namespace

// A reduced stiffener attracts less stress, so its slenderness is sqrt(chi) times the full one's.
StiffenerReduction reduce_stiffener(const Stiffener& stiffener) {
  constexpr int most_iterations = 100;
  const float lambda = stiffener_slenderness(stiffener);
  if (!std::isfinite(lambda)) return {0, 0};  // what the iteration does not settle
  float previous = distortional_reduction(lambda);
  for (int k = 1; k <= most_iterations; ++k) {
    const float chi = distortional_reduction(std::sqrt(previous) * lambda);
    if (std::fabs(chi - previous) <= 0.001f) return {chi, chi * stiffener.t};
    previous = chi;
  }
  return {0, 0};
}

}  // namespace kez
