// Lists of reals in which entries near one another count as one.
#pragma once

#include <cstdint>
#include <span>

namespace kez {

// Each entry strikes out the later ones less than tol away. Sorts what is left, and returns its
// number. The entries beyond stay as they were, with markers over those struck out.
std::int32_t keep_distinct(std::span<float> list, float tol);

// The counts as the host gave them: a negative one shortens what is cleared.
struct PairCounts {
  std::int32_t a, b;
};

// Writes the positions of all pairs at most tol apart, and returns their number. There may be more
// than a + b pairs; if there are fewer, the other positions up to a + b become 0.
std::int32_t pair_near(std::span<const float> a, std::span<const float> b, float tol,
                       PairCounts given, std::int32_t in_a[], std::int32_t in_b[]);

struct NearDuplicates {
  std::int32_t count;
  float marker;
};

// Marks the entries at most tol behind an earlier one, and writes their positions: fewer than the
// list has entries, even where they overlap it.
NearDuplicates mark_near_duplicates(std::span<float> list, float tol,
                                    std::span<std::int32_t> positions);

// Leaves in front the entries more than tol away from the value, and returns their number. The
// entries beyond stay as they were.
std::int32_t remove_near(std::span<float> list, float value, float tol);

// Writes the distinct values that are more than tol away from the given one, and for each entry of
// the list the last position among them within tol of it, or 0. Returns their number.
std::int32_t map_distinct(std::span<const float> list, float value, float tol,
                          std::span<float> distinct, std::span<std::int32_t> map);

}  // namespace kez
