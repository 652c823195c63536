// Principal axes of a symmetric 2 x 2 tensor: second moments of a plane figure.
#pragma once

namespace kez {

struct PrincipalAxes {
  float u, v;   // moments about the first and the second axis
  float theta;  // from the x axis to the first
};

// p about x, q about y, r the product moment.
PrincipalAxes principal_axes(float p, float q, float r);

}  // namespace kez
