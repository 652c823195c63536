#include "../frame/arguments.h"
#include "line_intersections.h"

using namespace kez;

extern "C" {

void KEZ_CALL kezlni(const float* a1, const float* b1, const float* c1, const float* a2,
                     const float* b2, const float* c2, int32_t* status, float* x, float* y) {
  const LineMeeting meeting = intersect(load_line(a1, b1, c1), load_line(a2, b2, c2));
  if (meeting.status == Meeting::one_point) store(meeting.point, x, y);
  *status = number(meeting.status);
}

}  // extern "C"
