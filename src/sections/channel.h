// Section constants of thin-walled channels, from the centre-lines of their walls.
#pragma once

namespace kez {

// Overall dimensions; a lip of at most the tolerance is none.
struct Channel {
  float flange, height, lip, t;
};

// From the centroid to the shear centre.
float shear_centre_offset(Channel channel);

float warping_constant(Channel channel);

}  // namespace kez
