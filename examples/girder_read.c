#include <string.h>

#include "girder.h"

/* Second moments go up to the fourth power of a length and warping constants up to the sixth: 1e24
 * from 10 m. Below 0.1 mm the library's tolerance would begin to show. */
static const float largest = 10000, smallest = 0.1f;

const ShapeInfo shapes[SHAPES] = {
    [GIRDER] = {"girder", {"d", "b1", "b2", "t1", "t2", "tw"}, 6},
    [ROLLED] = {"rolled", {"h", "b", "tf", "tw", "r"}, 5},
    [TEE] = {"tee", {"b", "h", "tf", "tw"}, 4},
    [BOX] = {"box", {"bt", "bb", "tt", "tb", "h", "tw", "s"}, 7},
    [RHS] = {"rhs", {"b", "h", "t"}, 3},
    [ANGLES] = {"angles", {"a", "h", "s", "th", "tv"}, 5},
    [CHANNEL] = {"channel", {"b", "h", "c", "t", "sw", "yw", "nw"}, 7},
};

static bool may_be_zero(Shape shape, int dim) {
  return (shape == ANGLES && dim == 2) || (shape == CHANNEL && dim != 0 && dim != 1 && dim != 3);
}

static bool check_dims(Reader* reader, const Section* s) {
  const ShapeInfo* info = &shapes[s->shape];
  for (int i = 0; i < info->count; i++) {
    const float value = s->dims[i];
    if (value == 0 && may_be_zero(s->shape, i)) continue;
    if (!(value >= smallest && value <= largest))
      return complain(reader, "%s %g is outside 0.1 to 10000 mm", info->dims[i], (double)value);
  }
  return true;
}

static const char* channel_fault(float b, float h, float c, float t, float sw, float yw, float nw) {
  if (b <= 2 * t || h <= 2 * t) return "wall too thick for the channel";
  if (c > 0 && (c <= t || 2 * c >= h)) return "lips do not fit";
  if (nw != 0 && nw != 1 && nw != 2) return "0, 1 or 2 slots, no other number";
  if (nw > 0 && (sw == 0 || yw + sw / 2 >= h / 2 - t)) return "slots do not fit in the web";
  if (nw == 2 && yw <= sw / 2) return "slots overlap";
  return NULL;
}

/* What the builders would turn into contours that cross themselves. */
static const char* misfit(Shape shape, const float* d) {
  switch (shape) {
    case GIRDER:
      if (d[3] + d[4] >= d[0]) return "flanges leave no height for the web";
      return d[5] >= d[1] || d[5] >= d[2] ? "web thicker than a flange is wide" : NULL;
    case ROLLED:
      if (2 * (d[2] + d[4]) >= d[0]) return "flanges and fillets leave no height for the web";
      return d[3] + 2 * d[4] >= d[1] ? "web and fillets wider than the flanges" : NULL;
    case TEE:
      if (d[2] >= d[1]) return "flange leaves no height for the web";
      return d[3] >= d[0] ? "web thicker than the flange is wide" : NULL;
    case BOX:
      if (d[2] + d[3] >= d[4]) return "flanges leave no height for the webs";
      return d[6] + 2 * d[5] > d[0] || d[6] + 2 * d[5] > d[1] ? "webs wider apart than a flange is"
                                                              : NULL;
    case RHS:
      return 2 * d[2] >= d[0] || 2 * d[2] >= d[1] ? "wall too thick for the hollow section" : NULL;
    case ANGLES:
      return d[4] >= d[0] || d[3] >= d[1] ? "leg thicker than the other is long" : NULL;
    case CHANNEL:
      return channel_fault(d[0], d[1], d[2], d[3], d[4], d[5], d[6]);
    default:
      return NULL;
  }
}

static bool take_section(Reader* reader, Section* s, char* rest) {
  float n[MAX_DIMS + 3];
  const int count = shapes[s->shape].count;
  if (!take_numbers(reader, &rest, n, count + 3, 1e6f) || !take_name(reader, rest, s->name))
    return false;
  memcpy(s->dims, n, (size_t)count * sizeof *n);
  s->fy = n[count];
  s->N = 1e3f * n[count + 1];
  s->M = 1e6f * n[count + 2];
  if (!check_dims(reader, s)) return false;
  if (!(s->fy >= 100 && s->fy <= 1000))
    return complain(reader, "fy %g is outside 100 to 1000 N/mm2", (double)s->fy);
  const char* fault = misfit(s->shape, s->dims);
  return !fault || complain(reader, "%s", fault);
}

static bool take_item(Reader* reader, const char* word, char* rest, void* result) {
  Job* job = result;
  if (job->count == MAX_SECTIONS) return complain(reader, "more than %d sections", MAX_SECTIONS);
  for (Shape shape = GIRDER; shape < SHAPES; shape++)
    if (strcmp(word, shapes[shape].word) == 0) {
      Section* section = &job->sections[job->count++];
      section->shape = shape;
      return take_section(reader, section, rest);
    }
  return complain(reader, "unknown word '%s'", word);
}

bool read_job(const char* path, Job* job) {
  Reader reader = {.path = path};
  job->count = 0;
  if (!read_items(&reader, take_item, job)) return false;
  return job->count > 0 || complain(&reader, "no section");
}
