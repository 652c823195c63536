/**
 * @file kezlib.h
 * KezLib: single-precision numeric routines for programs that design steel structures.
 *
 * Every routine is a procedure. It takes all its arguments by reference, reads its inputs, writes
 * its results into the caller's variables and returns nothing. There is nothing to initialise, to
 * open or to free. Reals are IEEE single precision, integers are signed 32-bit. Angles are in
 * radians, and lengths in any unit that the caller uses throughout.
 *
 * How to read a routine's comment:
 * - `in` is only read, `out` is only written, `in,out` is both.
 * - An array argument begins with its extent, e.g. `[n + 1]`. The routine may read or write that
 *   many entries, never more, and none when the extent is below 1. sum(nv, nc) is the sum of the
 *   first nc entries of nv. Positions are 1-based, and a result position of 0 means "none".
 * - An output marked "kept when X" is not written in case X: the variable keeps its old value. For
 *   `in,out` arguments this reads "unchanged when X". Of an array marked "kept beyond count" (or
 *   "unchanged beyond count") only entries 1 to count are written. All other outputs are always
 *   written.
 * - A scalar input may be the same variable as a scalar output: every input is read before an
 *   output is written. Two outputs must be different variables. An array that is written must not
 *   overlap any other argument, unless the comment says otherwise. Nothing outside the arguments is
 *   ever touched.
 * - "Name" is a readable name for the routine, beside the name that programs call.
 * - "Measures through" names the routines whose computation or decision this one uses. What they
 *   say of tolerance and accuracy holds here too.
 * - "Deliberate" states behaviour that may surprise but is intended.
 * - "Degenerate input" says what empty, equal, zero or not-a-number input gives.
 * - "Accuracy" gives measured errors. "Typically" is the median error of many random calls, "at
 *   worst" their largest error, rounded up.
 * - "Time" is the worst-case running time. Routines without it take constant time, or time
 *   proportional to the number of entries, points or vertices.
 * - "Source" names the clause that a design value comes from.
 * - "Kept value" says what the routine remembers from one call to the next. The host must serialise
 *   calls of such a routine. Routines without this paragraph are re-entrant.
 *
 * "Equal" means within the tolerance of 1.0e-5 in the units of the arguments: |a - b| <= 1.0e-5.
 * "Non-zero" means |a| > 1.0e-5. Any other comparison is spelt out where it occurs. There is no
 * error code common to all routines: each reports a degenerate case through a status of its own.
 * Not-a-number and infinities travel through the arithmetic as IEEE 754 says. Only the tests that
 * the comments name reject them.
 *
 * Coordinates far from the origin:
 * Single precision holds about 7 digits. The c of a line, the D of a plane, the F of a circle,
 * areas and moments are differences of products of coordinates. Far from the origin these products
 * are large, and rounding takes the digits that the result needs. The error grows with the square
 * of the distance, or faster. With coordinates in mm, 100 times the size of the figure is an
 * everyday distance. Move the origin near the figure first (`keztra`, `kez3tra`), call the routine,
 * and move the results back.
 *
 * Figures far from size 1:
 * The tolerance is absolute, but determinants and discriminants are products of lengths. With
 * coordinates in mm their rounding alone exceeds 1.0e-5: parallel lines count as crossing, and
 * lines in one plane as skew. Among very small numbers the opposite happens. Scale the figure to a
 * size of about 1 first, and divide each line by sqrt(a^2 + b^2).
 *
 * What a host provides:
 * - Floating-point exceptions masked, if its input may be degenerate. A call with ordinary input
 *   and finite results raises no invalid, divide-by-zero or overflow exception, unless its comment
 *   says that it divides by zero. Underflow and inexact must always be masked.
 * - Rounding to nearest and denormal numbers, as a process starts with. On 32-bit Linux leave the
 *   x87 control word at its default: results of the C library pass through the x87.
 * - No null pointer, not even for an array without entries. On x86 an argument may have any
 *   address; elsewhere its address must be a multiple of 4.
 * - 20 KiB of free stack for routines that sort lists; others need less than 2 KiB. Lists of up to
 *   500 entries never take memory from the heap. For longer lists some routines take it while they
 *   run.
 * - A callback that returns normally. It must not leave by longjmp or an exception.
 */
#ifndef KEZLIB_H
#define KEZLIB_H

#include <stdint.h>

#define KEZ_VERSION_MAJOR 1
#define KEZ_VERSION_MINOR 0
#define KEZ_VERSION_PATCH 0

#if defined(_WIN32) && !defined(_WIN64)
#define KEZ_CALL __stdcall
#ifndef KEZ_API
#define KEZ_API __declspec(dllimport)
#endif
#else
#define KEZ_CALL
#ifndef KEZ_API
#define KEZ_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @defgroup points Points and vectors
 *
 * A segment is given by its two end points. Its vector is the second point minus the first. Two
 * points coincide when each of their coordinate differences is within the tolerance: a box, not a
 * distance. For points in the plane pass 0 for z.
 * @{
 */

/**
 * Distance between two points.
 *
 * @par Name
 * distance
 *
 * @param[in] x1,y1,z1 first point (length)
 * @param[in] x2,y2,z2 second point (length)
 * @param[out] d distance (length)
 */
KEZ_API void KEZ_CALL kezpds(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, float *d);

/**
 * Difference of two points, and whether they coincide.
 *
 * @par Name
 * difference
 *
 * @param[in] x1,y1,z1 first point (length)
 * @param[in] x2,y2,z2 second point (length)
 * @param[out] dx,dy,dz second point minus first (length)
 * @param[out] same 1 when all three differences are within the tolerance, else 0
 */
KEZ_API void KEZ_CALL kezcnt(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, float *dx, float *dy, float *dz,
                             int32_t *same);

/**
 * Whether three values are all exactly zero.
 *
 * @par Name
 * is_exactly_zero
 *
 * @par Deliberate
 * The comparison has no tolerance.
 *
 * @param[in] a,b,c values; a negative zero is zero, not-a-number is not
 * @param[out] zero 1 when all three are 0.0, else 0
 */
KEZ_API void KEZ_CALL kezcnt1(const float *a, const float *b, const float *c, int32_t *zero);

/**
 * Point at a parameter along a segment, P1 + t (P2 - P1).
 *
 * @par Name
 * point_along_segment
 *
 * @param[in] x1,y1,z1 first end, t = 0 (length)
 * @param[in] x2,y2,z2 second end, t = 1 (length)
 * @param[in] t parameter, not limited to 0..1
 * @param[out] x,y,z the point (length); kept when same is 1
 * @param[out] same 1 when the ends coincide, else 0
 */
KEZ_API void KEZ_CALL kez123(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *t, float *x, float *y,
                             float *z, int32_t *same);

/**
 * Midpoint of a segment.
 *
 * @par Name
 * midpoint
 *
 * @param[in] x1,y1,z1 first end (length)
 * @param[in] x2,y2,z2 second end (length)
 * @param[out] xm,ym,zm midpoint (length)
 */
KEZ_API void KEZ_CALL kezmed(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, float *xm, float *ym, float *zm);

/**
 * Cross product of the vectors of two segments, (P2 - P1) x (P4 - P3).
 *
 * @par Name
 * cross_product
 *
 * @param[in] x1,y1,z1,x2,y2,z2 ends of the first segment (length)
 * @param[in] x3,y3,z3,x4,y4,z4 ends of the second segment (length)
 * @param[out] c [3] x, y and z of the product (length^2)
 */
KEZ_API void KEZ_CALL kezpre(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             float c[]);

/**
 * Dot product of the vectors of two segments. The vectors are P2 - P1 and P4 - P3.
 *
 * @par Name
 * dot_product
 *
 * @param[in] x1,y1,z1,x2,y2,z2 ends of the first segment (length)
 * @param[in] x3,y3,z3,x4,y4,z4 ends of the second segment (length)
 * @param[out] d the product (length^2)
 */
KEZ_API void KEZ_CALL kezpri(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             float *d);

/**
 * Determinant of the 2 x 2 matrix with the rows (a, b) and (c, d).
 *
 * @par Name
 * determinant_2x2
 *
 * @param[in] a,b,c,d the entries, row by row
 * @param[out] det a d - b c
 */
KEZ_API void KEZ_CALL kezdtr2(const float *a, const float *b, const float *c, const float *d,
                              float *det);

/**
 * Determinant of a 3 x 3 matrix, expanded along the first row.
 *
 * @par Name
 * determinant_3x3
 *
 * @param[in] a11,a12,a13,a21,a22,a23,a31,a32,a33 the entries, row by row
 * @param[out] det the determinant
 */
KEZ_API void KEZ_CALL kezdtr3(const float *a11, const float *a12, const float *a13,
                              const float *a21, const float *a22, const float *a23,
                              const float *a31, const float *a32, const float *a33, float *det);

/**
 * Whether the vectors P2 - P1, P4 - P3 and P6 - P5 span space. They do unless they are coplanar,
 * that is, unless their triple product is within the tolerance of zero.
 *
 * @par Name
 * span_space
 *
 * @par Accuracy
 * The triple product has the unit length^3, but the tolerance is fixed. Coplanar vectors between
 * points with rounded coordinates count as coplanar only up to a size of about 2 units; from 10
 * units on, most of them span. Vectors that are all shorter than 0.02 never span. Scale the figure
 * to size 1 first.
 *
 * @param[in] x1,y1,z1,x2,y2,z2 ends of the first segment (length)
 * @param[in] x3,y3,z3,x4,y4,z4 ends of the second segment (length)
 * @param[in] x5,y5,z5,x6,y6,z6 ends of the third segment (length)
 * @param[out] spans 1 when the triple product is non-zero, else 0
 */
KEZ_API void KEZ_CALL kez3sp(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             const float *x5, const float *y5, const float *z5, const float *x6,
                             const float *y6, const float *z6, int32_t *spans);

/**
 * Side by the sign of one value. Only b is read; the other arguments are part of the signature.
 *
 * @par Name
 * side_by_sign
 *
 * @param[in] a ignored
 * @param[in] b the value
 * @param[in] c,d,e ignored
 * @param[out] side 1 when b > 0, else 2 (also for zero and not-a-number)
 */
KEZ_API void KEZ_CALL kezvin(const float *a, const float *b, const float *c, const float *d,
                             const float *e, int32_t *side);

/**
 * Division of two values by a third that may be zero. Note the order: p is c / a, and q is b / a.
 *
 * @par Name
 * guarded_quotients
 *
 * @param[in] a divisor
 * @param[in] b,c dividends
 * @param[out] p c / a, or 0 when |a| <= 1.0e-5 or a is not a number
 * @param[out] q b / a, or 0 likewise
 */
KEZ_API void KEZ_CALL kezgrc(const float *a, const float *b, const float *c, float *p, float *q);

/** @} */

/**
 * @defgroup lines Lines in the plane
 *
 * A line is the triple (a, b, c) of a x + b y + c = 0. (a, b) is its normal; the unit of c is that
 * of a and b times length. The triple is not normalised: its scale depends on the routine that made
 * it.
 * @{
 */

/**
 * Line through two points. Its (a, b) points to the right, seen from the first point towards the
 * second.
 *
 * @par Name
 * line_through_points
 *
 * @par Degenerate input
 * The same point twice gives (0, 0, 0).
 *
 * @par Accuracy
 * c loses accuracy far from the origin, with the square of the coordinates. With coordinates of 100
 * times the distance d of the points, the line is typically 0.00007 d off the points, at worst
 * 0.0005 d. With 1000 times d it is typically 0.006 d off, at worst 0.05 d. Move the origin near
 * the line first (`keztra`).
 *
 * @param[in] x1,y1 first point (length)
 * @param[in] x2,y2 second point (length)
 * @param[out] a,b,c the line, with a = y2 - y1 and b = x1 - x2
 */
KEZ_API void KEZ_CALL kezln3(const float *x1, const float *y1, const float *x2, const float *y2,
                             float *a, float *b, float *c);

/**
 * Line through a point in a given direction. If p is exactly 0, it is x = x0, given as (1, 0, -x0).
 * Else it is y = (q / p) x + c, given as (q / p, -1, c).
 *
 * @par Name
 * line_in_direction
 *
 * @param[in] x0,y0 the point (length)
 * @param[in] p,q direction
 * @param[in] e ignored
 * @param[out] a,b,c the line
 */
KEZ_API void KEZ_CALL kezln4(const float *x0, const float *y0, const float *p, const float *q,
                             const float *e, float *a, float *b, float *c);

/**
 * Line through a point at an angle to the x axis. If theta is less than 1.0e-5 away from pi/2 or
 * -pi/2, it is x = x0, given as (1, 0, -x0). Else it is y = tan(theta) x + c, given as (tan(theta),
 * -1, c). Other odd multiples of pi/2 go through the tangent.
 *
 * @par Name
 * line_at_angle
 *
 * @param[in] x0,y0 the point (length)
 * @param[in] theta angle (rad)
 * @param[out] a,b,c the line
 */
KEZ_API void KEZ_CALL kezln1(const float *x0, const float *y0, const float *theta, float *a,
                             float *b, float *c);

/**
 * Parallel to a line at a signed distance. The distance is positive on the side to which (a, b)
 * points.
 *
 * @par Name
 * parallel_line
 *
 * @param[in] a,b,c the line
 * @param[in] d distance (length)
 * @param[out] a2,b2,c2 the parallel, with the same a and b
 */
KEZ_API void KEZ_CALL kezln2(const float *a, const float *b, const float *c, const float *d,
                             float *a2, float *b2, float *c2);

/**
 * Inner bisector of the angle between two rays. Its (a, b) points towards the first ray.
 *
 * @par Name
 * angle_bisector
 *
 * @par Degenerate input
 * Rays in the same direction give (0, 0, 0) except for rounding, and so does a ray of no length.
 *
 * @param[in] x0,y0 vertex (length)
 * @param[in] x1,y1 point on the first ray (length)
 * @param[in] x2,y2 point on the second ray (length)
 * @param[out] a,b,c the line
 */
KEZ_API void KEZ_CALL kezln5(const float *x0, const float *y0, const float *x1, const float *y1,
                             const float *x2, const float *y2, float *a, float *b, float *c);

/**
 * Signed distance of a point from a line. It is positive on the side to which (a, b) points. For a
 * line by `kezln3` that is the right side, seen from the first point towards the second.
 *
 * @par Name
 * signed_distance_to_line
 *
 * @par Degenerate input
 * If a = b = 0, or if a^2 + b^2 is outside 1.2e-38 to 3.4e38, the result is meaningless or not
 * finite.
 *
 * @par Accuracy
 * The routine multiplies by an approximate reciprocal square root of a^2 + b^2, accurate to about
 * 22 bits: the distance is typically 5e-8 of itself off, at worst 4e-7. The rounding of a x + b
 * y + c comes on top; it grows with the coordinates.
 *
 * @param[in] x,y the point (length)
 * @param[in] a,b,c the line
 * @param[out] d the distance (length)
 */
KEZ_API void KEZ_CALL kezlds(const float *x, const float *y, const float *a, const float *b,
                             const float *c, float *d);

/**
 * Intersection of two lines in the plane. The tests for parallel and equal lines take the
 * determinants of the coefficients as they are.
 *
 * @par Name
 * intersect_lines
 *
 * @par Accuracy
 * Lines with small coefficients can count as parallel although they cross. Parallel lines through
 * points with rounded coordinates (`kezln3`) can count as crossing: a few pairs in 100 at a size of
 * 10 units, at least half of them from 100 units on. Divide each line by sqrt(a^2 + b^2) first. The
 * point is as accurate as the c of both lines, see `kezln3`.
 *
 * @param[in] a1,b1,c1 first line a x + b y + c = 0
 * @param[in] a2,b2,c2 second line
 * @param[out] status 0 one point, 1 the lines coincide, 2 parallel and distinct
 * @param[out] x,y the point (length); kept when status is 1 or 2
 */
KEZ_API void KEZ_CALL kezlni(const float *a1, const float *b1, const float *c1, const float *a2,
                             const float *b2, const float *c2, int32_t *status, float *x, float *y);

/**
 * Feet of the perpendiculars from two points on the line P1 P2. Heights are distances from the line
 * in the x-y plane. All other distances are in space, and with different z the positions include
 * the height differences.
 *
 * @par Name
 * drop_perpendiculars
 *
 * @par Measures through
 * `kezln3`, `kezlds`
 *
 * @par Degenerate input
 * P1 and P2 with the same x and y give not-a-number.
 *
 * @par Accuracy
 * If the foot of P0 is at P1, a0 should be 0. It is typically below 0.0004 h0, at worst 0.002 h0 or
 * not-a-number. The same holds for a3 - L and h3, if the foot of P3 is at P2. Move the origin near
 * the line first (`keztra`).
 *
 * @param[in] x0,y0,z0 P0 (length)
 * @param[in] x1,y1,z1 P1, first point of the line (length)
 * @param[in] x2,y2,z2 P2, second point of the line (length)
 * @param[in] x3,y3,z3 P3 (length)
 * @param[out] h0 distance of P0 from the line (length)
 * @param[out] a0 distance from P1 to the foot of P0, without a sign (length)
 * @param[out] h3 distance of P3 from the line (length)
 * @param[out] a3 position of the foot of P3 from P1, as L less its distance from P2 (length)
 * @param[out] L distance from P1 to P2 (length)
 */
KEZ_API void KEZ_CALL kezhin(const float *x0, const float *y0, const float *z0, const float *x1,
                             const float *y1, const float *z1, const float *x2, const float *y2,
                             const float *z2, const float *x3, const float *y3, const float *z3,
                             float *h0, float *a0, float *h3, float *a3, float *L);

/** @} */

/**
 * @defgroup angles Angles and directions
 *
 * An angle is the arc cosine of (dot product / first length) / second length: unsigned, from 0 to
 * pi. The cosine is not clamped. Nearly parallel directions may round past 1 or -1, and the angle
 * is then not-a-number. For small angles, and for angles near pi, take atan2(sina, cosa) from
 * `keztrg`.
 *
 * The angle is coarse near 0 and pi. An angle below 0.0003 typically comes out as 0 or 0.00035, at
 * worst as 0.0009 or not-a-number. At an angle phi from 0.001 on the error is typically 5e-8 / phi,
 * at worst 5e-7 / phi; near pi the same holds for the angle's distance from pi.
 * @{
 */

/**
 * Cosine and sine of the angle between two segments. The angle is unsigned, between 0 and 180
 * degrees. The sine is therefore never negative.
 *
 * @par Name
 * cosine_and_sine
 *
 * @par Accuracy
 * atan2(sina, cosa) is accurate for all angles: its error is typically 1e-8 rad, at worst 3e-7 rad.
 *
 * @param[in] x1,y1,z1,x2,y2,z2 ends of the first segment (length)
 * @param[in] x3,y3,z3,x4,y4,z4 ends of the second segment (length)
 * @param[out] cosa,sina cosine and sine; kept when status is 1
 * @param[out] status 0, or 1 when the ends of either segment coincide
 */
KEZ_API void KEZ_CALL keztrg(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             float *cosa, float *sina, int32_t *status);

/**
 * Plane angle at a vertex between the rays to two points.
 *
 * @par Name
 * vertex_angle
 *
 * @par Measures through
 * `kezphi1`
 *
 * @par Accuracy
 * Coarse near 0 and pi, see the group. Take `keztrg` there.
 *
 * @param[in] x0,y0 vertex (length)
 * @param[in] x1,y1 point on the first ray (length)
 * @param[in] x2,y2 point on the second ray (length)
 * @param[out] phi angle, 0 unless both rays are longer than 1.0e-5 (rad)
 */
KEZ_API void KEZ_CALL kezphi(const float *x0, const float *y0, const float *x1, const float *y1,
                             const float *x2, const float *y2, float *phi);

/**
 * Angle between two vectors.
 *
 * @par Name
 * angle_between_vectors
 *
 * @par Degenerate input
 * A vector whose length is not a number counts as too short: the angle is 0. Nearly parallel
 * vectors may give not-a-number.
 *
 * @par Accuracy
 * Coarse near 0 and pi, see the group. Take `keztrg` there.
 *
 * @param[in] ux,uy,uz first vector
 * @param[in] wx,wy,wz second vector
 * @param[out] phi angle, 0 unless both vectors are longer than 1.0e-5 (rad)
 */
KEZ_API void KEZ_CALL kezphi1(const float *ux, const float *uy, const float *uz, const float *wx,
                              const float *wy, const float *wz, float *phi);

/**
 * Angle in space at a vertex between the rays to two points.
 *
 * @par Name
 * vertex_angle_in_space
 *
 * @par Measures through
 * `kezphi1`
 *
 * @par Accuracy
 * Coarse near 0 and pi, see the group. Take `keztrg` there.
 *
 * @param[in] x0,y0,z0 vertex (length)
 * @param[in] x1,y1,z1 point on the first ray (length)
 * @param[in] x2,y2,z2 point on the second ray (length)
 * @param[out] phi angle, 0 unless both rays are longer than 1.0e-5 (rad)
 */
KEZ_API void KEZ_CALL kezphi3(const float *x0, const float *y0, const float *z0, const float *x1,
                              const float *y1, const float *z1, const float *x2, const float *y2,
                              const float *z2, float *phi);

/**
 * Angle between two lines given by their directions. It is between 0 and pi/2 and does not depend
 * on the orientation of the lines.
 *
 * @par Name
 * angle_between_lines
 *
 * @par Deliberate
 * Success leaves the flag alone. Preset it before the call, e.g. to 0.
 *
 * @par Degenerate input
 * Nearly parallel directions may give not-a-number; this counts as success.
 *
 * @par Accuracy
 * Coarse near 0, see the group. Take `keztrg` there.
 *
 * @param[in] ux,uy,uz first direction
 * @param[in] wx,wy,wz second direction
 * @param[out] phi angle (rad); kept when a direction is not longer than 1.0e-5
 * @param[out] fail -1 when a direction is not longer than 1.0e-5; kept when both are longer
 */
KEZ_API void KEZ_CALL kezphip(const float *ux, const float *uy, const float *uz, const float *wx,
                              const float *wy, const float *wz, float *phi, int32_t *fail);

/**
 * Angle from the positive x axis to a vector. It is negative below the axis.
 *
 * @par Name
 * direction_angle
 *
 * @par Measures through
 * `kezphi`
 *
 * @par Degenerate input
 * A vector with |y| <= 1.0e-5 gets no sign: 0 or pi. A vector of at most 1.0e-5 gets the angle 0.
 *
 * @par Accuracy
 * Coarse near the axis, see the group. Within 0.001 of the axis the error is typically 0.00005, at
 * worst 0.0005.
 *
 * @param[in] x,y the vector
 * @param[out] phi the angle, -pi to pi (rad)
 */
KEZ_API void KEZ_CALL kezaxph(const float *x, const float *y, float *phi);

/**
 * Angles between two segments as they appear in the three coordinate planes. Each is unsigned.
 *
 * @par Name
 * projected_angles
 *
 * @par Measures through
 * `kezphi1`
 *
 * @par Degenerate input
 * An angle is 0 if one of the two projections is not longer than 1.0e-5.
 *
 * @par Accuracy
 * Coarse near 0 and pi, see the group. Take `keztrg` there.
 *
 * @param[in] x1,y1,z1,x2,y2,z2 ends of the first segment (length)
 * @param[in] x3,y3,z3,x4,y4,z4 ends of the second segment (length)
 * @param[out] ax in the y-z plane, about the x axis (rad)
 * @param[out] ay in the x-z plane, about the y axis (rad)
 * @param[out] az in the x-y plane, about the z axis (rad)
 */
KEZ_API void KEZ_CALL kezmov(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             float *ax, float *ay, float *az);

/**
 * Points against the angle between two rays from one vertex.
 *
 * | flag | meaning                                                                             |
 * |------|-------------------------------------------------------------------------------------|
 * | -1   | not classified: the angle is at most 1.0e-5, or a ray has no length                 |
 * | 1    | the signed distances from the lines P0 P1 and P0 P2 agree in sign or one is 0, and  |
 * |      | the foot on P0 P1 is not beyond P0 (position 4 of `kezpsl`)                         |
 * | 2    | any other point                                                                     |
 *
 * @par Name
 * points_in_angle
 *
 * @par Measures through
 * `kezphi`, `kezln3`, `kezln4`, `kezlds`, `kezlni`, `kezpsl`
 *
 * @par Degenerate input
 * If the rays have the same direction or opposite ones, the angle may be not-a-number. Points are
 * then classified all the same.
 *
 * @par Accuracy
 * An angle below 0.0003 may count as 0 (`kezphi`); the flags are then -1. Far from the origin the
 * lines lose accuracy (`kezln3`): move the origin to P0 first.
 *
 * @param[in] x0,y0 P0, the vertex (length)
 * @param[in] x1,y1 P1, a point on the first ray (length)
 * @param[in] x2,y2 P2, a point on the second ray (length)
 * @param[in] n number of points; nothing is written when below 1
 * @param[in] X,Y [n] the points (length)
 * @param[out] flag [n] one flag a point
 */
KEZ_API void KEZ_CALL kezapp(const float *x0, const float *y0, const float *x1, const float *y1,
                             const float *x2, const float *y2, const int32_t *n, const float X[],
                             const float Y[], int32_t flag[]);

/**
 * Relation of two directions. They are the same, opposite or perpendicular if their cosine is 1, -1
 * or 0 within the tolerance. That is up to about 0.26 degrees from parallel, and 0.0006 degrees
 * from perpendicular. A direction with all components within the tolerance is null.
 *
 * @par Name
 * relate_directions
 *
 * @par Degenerate input
 * A component that is not a number gives 0, unless the other direction is null.
 *
 * @param[in] ux,uy,uz first direction
 * @param[in] wx,wy,wz second direction
 * @param[out] rel 0 oblique, 1 same, 2 opposite, 3 perpendicular, 4 a direction is null
 */
KEZ_API void KEZ_CALL kezdir(const float *ux, const float *uy, const float *uz, const float *wx,
                             const float *wy, const float *wz, int32_t *rel);

/**
 * Relation of two directions as lines through the origin.
 *
 * @par Name
 * relate_lines_through_origin
 *
 * @par Measures through
 * `kezdirl`
 *
 * @param[in] ux,uy,uz first direction
 * @param[in] wx,wy,wz second direction
 * @param[in] e,f ignored
 * @param[out] rel -1 when the first direction is exactly (0, 0, 0), else the `kezdirl` relation: 0
 *   oblique, 3 same, 4 opposite, 5 perpendicular, 7 when either is within the tolerance of zero
 */
KEZ_API void KEZ_CALL kezplv(const float *ux, const float *uy, const float *uz, const float *wx,
                             const float *wy, const float *wz, const float *e, const float *f,
                             int32_t *rel);

/**
 * Class of the direction from one point to another. It says which components of the direction are
 * non-zero (X) and which are zero within the tolerance (0).
 *
 * | code | x y z | direction      |
 * |------|-------|----------------|
 * | 0    | 0 0 0 | null           |
 * | 1    | X X X | general        |
 * | 2    | X 0 0 | parallel to x  |
 * | 3    | 0 X 0 | parallel to y  |
 * | 4    | 0 0 X | parallel to z  |
 * | 5    | X X 0 | parallel to xy |
 * | 6    | 0 X X | parallel to yz |
 * | 7    | X 0 X | parallel to xz |
 *
 * @par Name
 * classify_direction
 *
 * @par Degenerate input
 * A component that is not a number gives 1.
 *
 * @param[in] x1,y1,z1 first point (length)
 * @param[in] x2,y2,z2 second point (length)
 * @param[out] code class of the direction, 0 to 7, see above
 */
KEZ_API void KEZ_CALL kezpsn(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, int32_t *code);

/** @} */

/**
 * @defgroup tables Tables and sampling
 *
 * Whether a table ascends is not checked. Mind the order of the arguments: here the count stands
 * before the table, in the sorts (`kezord`, `kezord1`) after it.
 * @{
 */

/**
 * Linear interpolation between (x1, y1) and (x2, y2), extrapolating outside. Mind the order of the
 * arguments: x1, x2, y1, y2.
 *
 * @par Name
 * interpolate
 *
 * @par Degenerate input
 * Only exactly equal x1 and x2 divide by zero; there is no tolerance.
 *
 * @param[in] x1,x2 abscissae
 * @param[in] y1,y2 ordinates
 * @param[in] x abscissa sought
 * @param[out] y y1 + (y2 - y1) (x - x1) / (x2 - x1)
 */
KEZ_API void KEZ_CALL kezint(const float *x1, const float *x2, const float *y1, const float *y2,
                             const float *x, float *y);

/**
 * Interval of an ascending table that holds a value. It is the first i with x(i) <= v < x(i + 1). A
 * value equal to the last entry lies in none.
 *
 * @par Name
 * find_interval
 *
 * @param[in] n entries of the table
 * @param[in] x [n] the table
 * @param[in] v value sought
 * @param[out] i interval 1 to n - 1, or 0 for none
 */
KEZ_API void KEZ_CALL kezpos(const int32_t *n, const float x[], const float *v, int32_t *i);

/**
 * Place of a value in an ascending table. An entry that equals the value comes before an interval
 * that holds it.
 *
 * @par Name
 * find_entry_or_interval
 *
 * @param[in] n entries of the table
 * @param[in] x [n] the table
 * @param[in] v value sought
 * @param[out] code 1 when v equals an entry, 2 when v lies strictly inside an interval, else 0
 * @param[out] i the first such entry or interval, or 0 for none
 */
KEZ_API void KEZ_CALL kezpos1(const int32_t *n, const float x[], const float *v, int32_t *code,
                              int32_t *i);

/**
 * Entries of an ascending table that lie in a range. Both ends are included, without tolerance. If
 * no entry lies inside, the result is the two neighbouring entries between which the range lies,
 * with d1 and d2 both 0. Two entries that are exactly lo and hi look the same: to tell them apart,
 * compare the first entry with lo.
 *
 * @par Name
 * find_in_range
 *
 * @par Degenerate input
 * With hi below lo no entry lies in the range, and the range counts as lying at lo.
 *
 * @param[in] n entries of the table
 * @param[in] x [n] the table
 * @param[in] lo,hi ends of the range
 * @param[out] count number of positions, 0 when the range lies nowhere or n is below 1
 * @param[out] idx [n] the positions, ascending; kept beyond count
 * @param[out] d1 distance from lo to the first entry inside; kept when count is 0
 * @param[out] d2 distance from the last entry inside to hi; kept when count is 0
 */
KEZ_API void KEZ_CALL kezlul(const int32_t *n, const float x[], const float *lo, const float *hi,
                             int32_t *count, int32_t idx[], float *d1, float *d2);

/**
 * Positions at which an integer table holds a value, ascending.
 *
 * @par Name
 * find_positions
 *
 * @param[in] n entries of the table
 * @param[in] ia [n] the table
 * @param[in] v value sought
 * @param[out] count number of positions
 * @param[out] idx [n] the positions; kept beyond count
 */
KEZ_API void KEZ_CALL kezsel1(const int32_t *n, const int32_t ia[], const int32_t *v,
                              int32_t *count, int32_t idx[]);

/**
 * Division of a segment into equal steps close to a wanted one. It takes the fewest steps that are
 * less than 0.1 per cent longer than wanted. A length that exceeds a multiple by rounding therefore
 * gets no extra segment. Above about 1000 steps there are slightly fewer than length / step.
 *
 * @par Name
 * divide_segment
 *
 * @param[in] x1,y1,z1 first end (length)
 * @param[in] x2,y2,z2 second end (length)
 * @param[in] step wanted step (length)
 * @param[out] realstep length of a segment, 0 unless step > 0.001 (length)
 * @param[out] nseg number of segments, 0 unless step > 0.001, then at least 1 (also for a length
 *   that is not a number) and at most 2147483647
 * @param[out] npts number of points with both ends: nseg + 1; at most 2147483647
 */
KEZ_API void KEZ_CALL kezpas(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *step, float *realstep,
                             int32_t *nseg, int32_t *npts);

/**
 * Points along a segment at multiples of a step. The first point is P1 and the last P2. The points
 * between them are at multiples of the step from P1, and may go beyond P2. `kezpas` chooses step
 * and number. With n = 1 the point is P2.
 *
 * @par Name
 * sample_segment
 *
 * @par Kept value
 * The last interior point written. Coinciding ends have no direction: every interior point then
 * gets the kept one, which is (0, 0, 0) before there is any.
 *
 * @param[in] x1,y1,z1 P1, the first point (length)
 * @param[in] x2,y2,z2 P2, the last point (length)
 * @param[in] step distance between points (length)
 * @param[in] n number of points; nothing is written when below 1
 * @param[out] xs,ys,zs [n] the points (length)
 */
KEZ_API void KEZ_CALL keznst(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *step, const int32_t *n,
                             float xs[], float ys[], float zs[]);

/**
 * Integral of evenly spaced samples from a to b by a trapezoid rule. It is
 * h ((y(1) + y(n)) / 2 + y(2) + ... + y(n - 2)), with h = (b - a) / (n - 1).
 *
 * @par Name
 * integrate_samples
 *
 * @par Deliberate
 * The rule leaves out the last interior sample, y(n - 1). With n < 4 there is no interior sample
 * left.
 *
 * @param[in] n number of samples; 1 divides by zero
 * @param[in] y [n] the samples
 * @param[in] a,b abscissae of the first and the last sample
 * @param[out] s the integral, 0 when n is below 1
 */
KEZ_API void KEZ_CALL kezinr(const int32_t *n, const float y[], const float *a, const float *b,
                             float *s);

/**
 * Splits the run of indexes from i1 to i2, in either direction, into two lists of alternate
 * members. The first list gets the first, third, fifth, ... index, the second the second, fourth,
 * sixth, ... one.
 *
 * @par Name
 * split_alternately
 *
 * @param[in] i1,i2 ends of the run, 1-based
 * @param[in] nmax largest index; both counts are 0 when an end lies outside 1..nmax
 * @param[out] count1 entries of list1
 * @param[out] list1 [(nmax + 1) / 2] first, third, ... index; kept beyond count1
 * @param[out] count2 entries of list2
 * @param[out] list2 [nmax / 2] second, fourth, ... index; kept beyond count2
 */
KEZ_API void KEZ_CALL kezpar(const int32_t *i1, const int32_t *i2, const int32_t *nmax,
                             int32_t *count1, int32_t list1[], int32_t *count2, int32_t list2[]);

/** @} */

/**
 * @defgroup circles Circles and arcs
 *
 * A circle is the triple (D, E, F) of x^2 + y^2 + D x + E y + F = 0. F has the unit length^2, D and
 * E the unit length.
 * @{
 */

/**
 * Circle from centre and radius, with D = -2 xc, E = -2 yc and F = xc^2 + yc^2 - r^2.
 *
 * @par Name
 * circle_about_centre
 *
 * @par Accuracy
 * Far from the origin F loses the digits of the radius. `kezlci` says how far off the points of
 * such a circle are. Move the origin near the circle first.
 *
 * @param[in] xc,yc centre (length)
 * @param[in] r radius; its sign does not matter (length)
 * @param[out] D,E,F the circle
 */
KEZ_API void KEZ_CALL kezcer(const float *xc, const float *yc, const float *r, float *D, float *E,
                             float *F);

/**
 * Intersection of a line and a circle. The first point is the one with the larger y; on a
 * horizontal line it is the one with the larger x.
 *
 * The line touches if the discriminant of the quadratic in y (or x) is within 1.0e-5 of zero. The
 * discriminant grows with the fourth power of the line's coefficients. Scale the line so that
 * a^2 + b^2 is about 1. With much smaller coefficients even a line through the centre counts as
 * touching; with coefficients in the hundreds only an exact tangent does. With a^2 + b^2 = 1 the
 * line touches if the two points are at most 0.0032 / |a| apart, or on a horizontal line 0.0032.
 *
 * @par Name
 * intersect_line_circle
 *
 * @par Deliberate
 * A line with |a| <= 1.0e-5 counts as the horizontal b y + c = 0, whatever is left of a.
 *
 * @par Degenerate input
 * A line with a = b = 0, or a horizontal one with b = 0, gives n = 1 and no finite point.
 *
 * @par Accuracy
 * Nearly level lines lose accuracy in x = -(b y + c) / a, with the square of b / a. On a circle of
 * radius 1 about the origin, the points of a line that rises 1 in 100 are typically 1e-5 off the
 * circle, at worst 2e-4. To avoid this, pass b, a, c, E, D, F and read the points as (y, x).
 *
 * Far from the origin F has lost accuracy. These figures are for lines at 45 degrees or more to
 * the x axis that pass the centre within R / 2. With coordinates of 100 R the points are typically
 * R / 3000 off the circle, at worst R / 300; with 1000 R typically R / 40, at worst R / 3. Nearly
 * level lines are worse, and may miss the circle. Move the origin near the circle first (`keztra`).
 *
 * @param[in] a,b,c the line a x + b y + c = 0
 * @param[in] D,E,F the circle
 * @param[out] n number of points: 0, 1 (touching) or 2
 * @param[out] x1,y1 first point (length); kept when n is 0
 * @param[out] x2,y2 second point (length); kept when n is 0 or 1
 */
KEZ_API void KEZ_CALL kezlci(const float *a, const float *b, const float *c, const float *D,
                             const float *E, const float *F, int32_t *n, float *x1, float *y1,
                             float *x2, float *y2);

/**
 * Intersection of two circles. It is the intersection of their radical line with the first circle.
 * Circles of about the same radius R count as touching if their centres are less than
 * 0.02 / sqrt(R) apart, because the line's coefficients are twice the distance of the centres.
 *
 * @par Name
 * intersect_circles
 *
 * @par Measures through
 * `kezlci`
 *
 * @par Deliberate
 * The radical line counts as horizontal if its a, D2 - D1, is within the tolerance (`kezlci`).
 *
 * @par Degenerate input
 * Circles about the same centre, |D2 - D1| + |E2 - E1| <= 1.0e-5, give n = 0.
 *
 * @par Accuracy
 * That of `kezlci`: far from the origin F has lost accuracy. Move the origin near the circles
 * first.
 *
 * @param[in] D1,E1,F1 first circle
 * @param[in] D2,E2,F2 second circle
 * @param[out] n number of points: 0, 1 (touching) or 2
 * @param[out] x1,y1 first point (length); kept when n is 0
 * @param[out] x2,y2 second point (length); kept when n is 0 or 1
 */
KEZ_API void KEZ_CALL kezc12(const float *D1, const float *E1, const float *F1, const float *D2,
                             const float *E2, const float *F2, int32_t *n, float *x1, float *y1,
                             float *x2, float *y2);

/**
 * Region of a circle against a dividing line and the x axis. The routine also writes a report of
 * the result to the file "OUTPUT.TXT". Only the number of cut points and the height of the centre
 * decide. A line that touches counts as not cutting, although x2 and y2 are then written.
 *
 * | k | meaning                                                                              |
 * |---|--------------------------------------------------------------------------------------|
 * | 1 | the line does not cut and Y(1) > 0: the circle is in the positive region             |
 * | 2 | the line does not cut and Y(1) <= 0: the circle is in the negative region            |
 * | 3 | the line cuts and Y(1) < 0: the segment of angle phi is in the positive region       |
 * | 4 | the line cuts and Y(1) >= 0: that of angle 2 pi - phi is in the positive region      |
 *
 * Each call adds three records in Greek (code page Windows-1253) to the report. Each record begins
 * with a blank.
 * - The first says that it is about a circle.
 * - The second is "KC; " and k.
 * - The third is the meaning of k. For 3 and 4 "x2; ... ;y2; ... ;x3; ... ;y3; ..." follows, with
 *   numbers that read back to the same values.
 *
 * Together they have 43 bytes for k = 1, 46 for k = 2 and at most 137 for 3 and 4. Lines end in a
 * line feed. On Windows they end in a carriage return and a line feed, which makes three bytes
 * more.
 *
 * Trouble with the file never changes a result. If it cannot be opened, the records of the call are
 * lost and the next call tries again. If there is no room, the end of the records or all of them is
 * lost, and those of later calls follow. Links are followed, but only a regular file is used. A
 * host with a limit on the size of files must ignore SIGXFSZ, or the signal ends it as with any
 * other write. Processes that report at the same time need a directory each.
 *
 * @par Name
 * classify_circle
 *
 * @par Measures through
 * `kezcer`, `kezlci`
 *
 * @par Deliberate
 * The line counts as horizontal if its a is within the tolerance (`kezlci`).
 *
 * @par Accuracy
 * That of `kezlci`. Move the origin near the circle first, but only along the x axis: the sign of
 * Y(1) decides.
 *
 * @par Kept value
 * The report: a file in the directory that is current at the first call that can open it. That call
 * replaces what an earlier process has left there. The file stays open until the process ends or
 * the library is unloaded; no child process inherits it. The records of every call are in the file
 * when the call returns. Calls that are not serialised may mix their records and lose some of the
 * first ones, but do no other harm.
 *
 * @param[in] X,Y [2] centre, and a point on the circle (length)
 * @param[in] a,b,c the line a x + b y + c = 0
 * @param[out] k the region
 * @param[out] x2,y2 first cut point as of `kezlci` (length); kept when the line misses
 * @param[out] x3,y3 second cut point (length); kept when the line misses or touches
 */
KEZ_API void KEZ_CALL kezcin(const float X[], const float Y[], const float *a, const float *b,
                             const float *c, int32_t *k, float *x2, float *y2, float *x3,
                             float *y3);

/**
 * Centres of the circles of a given radius through two points, and the choice of one. The choice is
 * made by a centre's signed distance e from the line of the chord (`kezln3`). The first centre is
 * chosen if its e sense >= 0. The second replaces it if its own e sense > 0. A sense of 0 therefore
 * chooses the first.
 *
 * | status | meaning                                                                           |
 * |--------|-----------------------------------------------------------------------------------|
 * | 0      | no centre (one point twice, R <= 1.0e-5 or short for the chord), or a level chord |
 * | 1      | one centre, written as both: the chord is a diameter, or the two centres are at   |
 * |        | most 0.0032 abs(y2 - y1) / (length of the chord) apart                            |
 * | 2      | two centres; the first has the larger x                                           |
 *
 * @par Name
 * arc_centres
 *
 * @par Measures through
 * `kezln3`, `kezlds`
 *
 * @par Deliberate
 * A level chord, with |y2 - y1| < 1.0e-5, has status 0 although its two centres are written and one
 * of them is chosen. The first is the one with the smaller y.
 *
 * @par Degenerate input
 * A radius too short for a level chord makes the centres not-a-number, and none is chosen. Points
 * that are closer than 1.0e-5 but not the same count as a level chord; their centres mean nothing.
 *
 * @par Accuracy
 * Coordinates that are large against R spoil the centres and the status, above all for nearly level
 * chords. With coordinates of 100 R and a chord that rises 1 in 10 the centres are typically R / 50
 * off, at worst R. The same holds with 10 R and 1 in 100. With the origin moved to the middle of
 * the chord (`keztra`) they are typically 5e-8 R off, at worst 4e-7 R, for chords of up to 1.9 R.
 *
 * @param[in] x1,y1 first point (length)
 * @param[in] x2,y2 second point (length)
 * @param[in] sense chooses by its sign
 * @param[in] R radius (length)
 * @param[out] c1x,c1y first centre (length); kept when there is none
 * @param[out] c2x,c2y second centre (length); kept when there is none
 * @param[out] cx,cy chosen centre (length); kept when there is none or neither choice holds
 * @param[out] status see above
 */
KEZ_API void KEZ_CALL kezcer2(const float *x1, const float *y1, const float *x2, const float *y2,
                              const int32_t *sense, const float *R, float *c1x, float *c1y,
                              float *c2x, float *c2y, float *cx, float *cy, int32_t *status);

/**
 * Radius and centre of the arc through two points that rises to a given height over the middle of
 * their chord. The radius is (f^2 + c^2 / 4) / (2 f) over a chord of length c.
 *
 * @par Name
 * arc_by_rise
 *
 * @par Measures through
 * `kezcer2`
 *
 * @par Deliberate
 * A level chord has status 0 although its centre is written (`kezcer2`).
 *
 * @par Degenerate input
 * A rise below 1.0e-5 gives status 0, and nothing else is written.
 *
 * @par Accuracy
 * The radius is computed through an angle. Its relative error is typically 4e-8, at worst 4e-7,
 * times the larger of c / f and f / c. The centre loses accuracy as that of `kezcer2`: move the
 * origin to the middle of the chord first.
 *
 * @param[in] x1,y1 first point (length)
 * @param[in] x2,y2 second point (length)
 * @param[in] sense chooses the centre as in `kezcer2`
 * @param[in] f rise, at least 1.0e-5 (length)
 * @param[out] R radius (length); kept when f < 1.0e-5
 * @param[out] cx,cy chosen centre (length); kept when `kezcer2` would keep it or f < 1.0e-5
 * @param[out] status that of `kezcer2`, 0 also for a level chord; 0 when f < 1.0e-5
 */
KEZ_API void KEZ_CALL kezcer1(const float *x1, const float *y1, const float *x2, const float *y2,
                              const int32_t *sense, const float *f, float *R, float *cx, float *cy,
                              int32_t *status);

/**
 * Lengths of the two arcs into which two rays divide a circle.
 *
 * @par Name
 * arc_lengths
 *
 * @par Measures through
 * `kezphi`
 *
 * @par Degenerate input
 * Rays in the same direction, or in opposite ones as for a half circle, may give lengths that are
 * not numbers.
 *
 * @par Accuracy
 * An s1 of less than 0.0003 R, or that close to a half circle, is typically 0.0002 R off, at worst
 * 0.0009 R or not-a-number. There take R atan2(sina, cosa) from `keztrg`.
 *
 * @param[in] x0,y0 centre (length)
 * @param[in] x1,y1 point of the circle on the first ray (length)
 * @param[in] x2,y2 point on the second ray; need not lie on the circle (length)
 * @param[out] s1 the shorter arc (length); kept when status is 0
 * @param[out] s2 the rest of the circumference (length); kept when status is 0
 * @param[out] status 1, or 0 when the radius or the distance of the points is at most 1.0e-5
 */
KEZ_API void KEZ_CALL kezarc1(const float *x0, const float *y0, const float *x1, const float *y1,
                              const float *x2, const float *y2, float *s1, float *s2,
                              int32_t *status);

/** @} */

/**
 * @defgroup guides Points along a guide
 *
 * A guide is the segment from P1 to P2. P1 lies on the circle about P0 and so fixes its radius R;
 * P2 need not lie on it. "sense" chooses between two crossings by its sign. "Rejected" input gives
 * status 0 and writes nothing else. No test rejects a value that is not a number.
 *
 * The lines that carry points to the circle meet it as by `kezlci`. That counts a line as touching
 * also when it is nearly level without being level: on circles of a few units, slopes from 1e-5 to
 * about 1e-3. `kezcer4` and `kezcer5` work in a frame with its origin at P1 and the guide along
 * its x axis; there, "level" means along the guide.
 * @{
 */

/**
 * Point of a circle on the line through its centre and the point that is measured along a guide. It
 * is the first crossing of line and circle (as of `kezlci`) if sense times the z component of
 * (P1 - P0) x (first crossing - P0) is below 0, else the second. Seen from the centre, a positive
 * sense gives the crossing clockwise of P1, and a negative sense the other one. Either may be on
 * the side of the measured point or opposite to it.
 *
 * @par Name
 * guided_point_along_ray
 *
 * @par Measures through
 * `kezln3`, `kezcer`, `kezlci`
 *
 * @par Deliberate
 * The number of crossings is not looked at. If `kezlci` finds fewer than two, each missing one is
 * replaced by the kept one, and status is still 1. An L within 0.001 of the diameter 2 R is
 * rejected whatever the guide's direction. A line whose a is within the tolerance counts as
 * horizontal.
 *
 * @par Degenerate input
 * Rejected are R <= 0.001, a guide of d <= 0.001, L <= 0.001, d - L <= 0.001 and |L - 2 R| < 0.001.
 *
 * @par Accuracy
 * That of `kezlci`: move the origin near the circle first (`keztra`).
 *
 * @par Kept value
 * The last two crossings, (0, 0) before there are any. They replace the missing ones if the
 * measured point is near the centre, the line is nearly level, or the circle is tiny. Rejected
 * calls keep them.
 *
 * @param[in] x0,y0 centre P0 (length)
 * @param[in] x1,y1 P1, point of the circle and start of the guide (length)
 * @param[in] x2,y2 P2, end of the guide (length)
 * @param[in] sense chooses by its sign; 0 chooses the second crossing
 * @param[in] L distance from P1 along the guide (length)
 * @param[out] x,y the point (length); kept when status is 0
 * @param[out] status 1, or 0 when the input is rejected
 */
KEZ_API void KEZ_CALL kezcer6(const float *x0, const float *y0, const float *x1, const float *y1,
                              const float *x2, const float *y2, const int32_t *sense,
                              const float *L, float *x, float *y, int32_t *status);

/**
 * Point of a circle square across a guide from the point that is measured along it. The crossing is
 * chosen as by `kezcer6`. If the measured point is inside the circle, a positive sense gives the
 * crossing on the left of the guide, seen from P1 towards P2, and a negative sense the one on the
 * right.
 *
 * @par Name
 * guided_point_across
 *
 * @par Measures through
 * `kezln3`, `kezln4`, `kezcer`, `kezlci`
 *
 * @par Deliberate
 * The number of crossings is not looked at. If `kezlci` finds fewer than two, each missing one is
 * replaced by the kept one, and status is still 1. A line whose a is within the tolerance counts as
 * horizontal.
 *
 * @par Degenerate input
 * Rejected are R <= 0.001, a guide of d <= 0.001, L <= 0.001 and d - L <= 0.001.
 *
 * @par Accuracy
 * That of `kezlci`: move the origin near the circle first (`keztra`).
 *
 * @par Kept value
 * The last two crossings, (0, 0) before there are any. Both replace the crossings of a
 * perpendicular that misses the circle. A perpendicular that touches refreshes the first only.
 * Rejected calls keep both.
 *
 * @param[in] x0,y0 centre P0 (length)
 * @param[in] x1,y1 P1, point of the circle and start of the guide (length)
 * @param[in] x2,y2 P2, end of the guide (length)
 * @param[in] sense chooses by its sign; 0 chooses the second crossing
 * @param[in] L distance from P1 along the guide (length)
 * @param[out] x,y the point (length); kept when status is 0
 * @param[out] status 1, or 0 when the input is rejected
 */
KEZ_API void KEZ_CALL kezcer8(const float *x0, const float *y0, const float *x1, const float *y1,
                              const float *x2, const float *y2, const int32_t *sense,
                              const float *L, float *x, float *y, int32_t *status);

/**
 * Edges of an opening in a circle, carried square across a guide. Point a is carried from L - w/2,
 * point b from L + w/2. For each the crossing is chosen as by `kezcer8`, by its own first crossing.
 *
 * @par Name
 * guided_opening_across
 *
 * @par Measures through
 * `kezln3`, `kezln4`, `kezcer`, `kezlci`
 *
 * @par Deliberate
 * The number of crossings is not looked at. If `kezlci` finds fewer than two, each missing one is
 * replaced by the kept one, and status is still 1. A line whose a is within the tolerance counts as
 * horizontal.
 *
 * @par Degenerate input
 * Rejected are R <= 0.001, a guide of d <= 0.001, L <= 0.001, w <= 0.001 and d - L <= 0.001.
 * Rejected are also L - w/2 < 0.001 and (d - L) - w/2 < 0.001; here exactly 0.001 is enough.
 *
 * @par Accuracy
 * That of `kezlci`: move the origin near the circle first (`keztra`).
 *
 * @par Kept value
 * The last two crossings of point a and those of point b, (0, 0) before there are any. Each point
 * uses its own as `kezcer8` does.
 *
 * @param[in] x0,y0 centre P0 (length)
 * @param[in] x1,y1 P1, point of the circle and start of the guide (length)
 * @param[in] x2,y2 P2, end of the guide (length)
 * @param[in] sense chooses by its sign; 0 chooses the second crossings
 * @param[in] L distance from P1 along the guide to the middle of the opening (length)
 * @param[in] w width of the opening (length)
 * @param[out] xa,ya point a (length); kept when status is 0
 * @param[out] xb,yb point b (length); kept when status is 0
 * @param[out] status 1, or 0 when the input is rejected
 */
KEZ_API void KEZ_CALL kezcer9(const float *x0, const float *y0, const float *x1, const float *y1,
                              const float *x2, const float *y2, const int32_t *sense,
                              const float *L, const float *w, float *xa, float *ya, float *xb,
                              float *yb, int32_t *status);

/**
 * Point of a circle on the line at an angle to a guide through the point that is measured along it.
 * The work is done in a frame with its origin at P1 and the guide along its x axis. The result is
 * the first crossing (as of `kezlci`), or the second if the first is on the centre's side of the
 * guide. That is the case if the product of their signed distances from the guide exceeds 1.0e-5. L
 * may lie before P1 or beyond P2.
 *
 * The guide's angle is that of `kezphi`, negative if y2 < y1. Unlike `kezaxph`, it keeps the sign
 * of a difference within the tolerance.
 *
 * @par Name
 * guided_point_at_angle
 *
 * @par Measures through
 * `kezphi`, `kezln1`, `kezln3`, `kezlds`, `kezcer`, `kezlci`
 *
 * @par Deliberate
 * A line that misses the circle is not detected: the kept result serves, and status is 1. A line
 * whose a is within the tolerance counts as horizontal (`kezlci`).
 *
 * @par Degenerate input
 * Rejected are R <= 1.0e-5, a guide of at most 1.0e-5 or with coinciding ends, and a line that
 * touches the circle.
 *
 * @par Accuracy
 * If the guide is within 0.001 of the x axis, the line is typically 0.00005 off theta, at worst
 * 0.0005 (`kezphi`). Coordinates of 100 R cost only their own rounding: typically 1e-6 R, at worst
 * 6e-6 R.
 *
 * @par Kept value
 * The last result, (0, 0) before there is one. If the line misses the circle, the kept result is
 * treated as a point of the guide's frame. It is carried back like a crossing and becomes the
 * result.
 *
 * @param[in,out] x0,y0 centre P0 (length); after success carried into the guide's frame and back,
 *   with the rounding of that; unchanged when status is 0
 * @param[in,out] x1,y1 P1, point of the circle and start of the guide (length); carried likewise;
 *   unchanged when status is 0
 * @param[in,out] x2,y2 P2, end of the guide (length); carried likewise; unchanged when status is 0
 * @param[in] L distance from P1 along the guide (length)
 * @param[in] theta angle from the guide to the line, counter-clockwise (rad)
 * @param[out] x,y the point (length); kept when status is 0
 * @param[out] status 1, or 0 when the input is rejected
 */
KEZ_API void KEZ_CALL kezcer4(float *x0, float *y0, float *x1, float *y1, float *x2, float *y2,
                              const float *L, const float *theta, float *x, float *y,
                              int32_t *status);

/**
 * Meeting point of a guide's line and a line at an angle to it. The line is drawn from P1 after
 * turning it about the centre. For the point only the direction of P2 matters; its angle is taken
 * as by `kezcer4`.
 *
 * @par Name
 * guided_meeting_point
 *
 * @par Measures through
 * `kezphi`, `kezln1`, `kezln3`, `kezlni`, `kezpsl`
 *
 * @par Deliberate
 * Success and rejection both give status 0: check R and the guide's length before the call. A point
 * on the guide's line away from both P1 and P2 makes the status 0 whatever the lines are.
 *
 * @par Degenerate input
 * Rejected are R <= 1.0e-5 and a guide of at most 1.0e-5.
 *
 * @par Accuracy
 * If the guide is near the x axis, the line is off theta as in `kezcer4`.
 *
 * @par Kept value
 * The last meeting point as found, in the frame with its origin at P1 and the guide along
 * its x axis; (0, 0) before there is one. If the lines coincide or are parallel, it is treated as a
 * point of the present guide's frame and carried back into x and y.
 *
 * @param[in,out] x0,y0 centre P0 (length); carried into the guide's frame and back, with the
 *   rounding of that; unchanged when the input is rejected
 * @param[in,out] x1,y1 P1, point of the circle and start of the guide (length); carried likewise;
 *   unchanged when the input is rejected
 * @param[in,out] x2,y2 P2, end of the guide (length); carried likewise; unchanged when the input is
 *   rejected
 * @param[in] dphi angle of the turn about P0, counter-clockwise (rad)
 * @param[in] theta angle from the guide to the line, counter-clockwise (rad)
 * @param[out] x,y the meeting point (length); kept when the input is rejected
 * @param[out] status 0, or when the lines coincide 1 and when they are parallel 2, unless the point
 *   is on the guide's line away from both P1 and P2
 */
KEZ_API void KEZ_CALL kezcer10(float *x0, float *y0, float *x1, float *y1, float *x2, float *y2,
                               const float *dphi, const float *theta, float *x, float *y,
                               int32_t *status);

/**
 * Point of a circle on the line through a point measured along a chord and a point raised over the
 * chord's midpoint along the sagitta. It is the crossing on the raised point's side of the chord.
 * That is the first (as of `kezlci`, in the chord's frame) if the product of its and the raised
 * point's signed distances from the chord is above 1.0e-5, else the second.
 *
 * The raised point lies h from the midpoint of P1 P2, towards the crown. The crown is P1 turned
 * about P0 by half the angle P1 P0 P2, clockwise for a positive sense.
 *
 * @par Name
 * guided_point_over_sagitta
 *
 * @par Measures through
 * `kezphi`, `kezaxph`, `kezln3`, `kezlds`, `kezcer`, `kezlci`
 *
 * @par Deliberate
 * A line that misses the circle is not detected: the kept result serves, and status is 1. A line
 * whose a is within the tolerance counts as horizontal (`kezlci`).
 *
 * @par Degenerate input
 * Rejected are, in this order, L < 0, h <= 1.0e-5, R <= 1.0e-5, a chord of d <= 1.0e-5,
 * d - L <= 1.0e-5 and a line that touches the circle. If P1 and P2 coincide, or the chord's
 * midpoint and the crown, the first of the two serves for points between them. A chord that is a
 * diameter may give not-a-number, as its angle at P0 (`kezphi`) may be none.
 *
 * @par Accuracy
 * Coordinates of 100 R cost only their own rounding: typically 1e-6 R, at worst 6e-6 R.
 *
 * @par Kept value
 * The last result, (0, 0) before there is one. If the line misses the circle, the kept result is
 * treated as a point of the chord's frame. It is carried back like a crossing and becomes the
 * result.
 *
 * @param[in,out] x0,y0 centre P0 (length); after success carried into the chord's frame and back,
 *   with the rounding of that; unchanged when status is 0
 * @param[in,out] x1,y1 P1, point of the circle and start of the chord (length); carried likewise;
 *   unchanged when status is 0
 * @param[in,out] x2,y2 P2, end of the chord, need not lie on the circle (length); carried likewise;
 *   unchanged when status is 0
 * @param[in] L distance from P1 along the chord (length)
 * @param[in] sense factor of the turn: 1 or -1
 * @param[in] h height over the chord's midpoint (length)
 * @param[out] x,y the point (length); kept when status is 0
 * @param[out] status 1, or 0 when the input is rejected
 */
KEZ_API void KEZ_CALL kezcer5(float *x0, float *y0, float *x1, float *y1, float *x2, float *y2,
                              const float *L, const int32_t *sense, const float *h, float *x,
                              float *y, int32_t *status);

/** @} */

/**
 * @defgroup moving Moving and turning points
 *
 * These routines change points in place. A turn by the same angle in the opposite sense turns a
 * list back, to within rounding.
 * @{
 */

/**
 * Moves the origin of a list of points to (tx, ty). The offsets are subtracted; negated offsets
 * move the points back.
 *
 * @par Name
 * move_origin
 *
 * @param[in,out] X,Y [n] the points (length)
 * @param[in] n number of points; none is moved when below 1
 * @param[in] tx,ty new origin (length)
 */
KEZ_API void KEZ_CALL keztra(float X[], float Y[], const int32_t *n, const float *tx,
                             const float *ty);

/**
 * Turns a list of points about the origin.
 *
 * @par Name
 * rotate_about_origin
 *
 * @param[in] mode 1 clockwise, any other value counter-clockwise
 * @param[in,out] X,Y [n] the points (length)
 * @param[in] n number of points; none is turned when below 1
 * @param[in] angle angle of the turn (rad)
 */
KEZ_API void KEZ_CALL kezrot(const int32_t *mode, float X[], float Y[], const int32_t *n,
                             const float *angle);

/**
 * Turns a point about a centre.
 *
 * @par Name
 * rotate_about_centre
 *
 * @par Deliberate
 * x and y are written too. With status 1 they come back as (x - x0) + x0 and (y - y0) + y0, which
 * may differ by rounding. With status 0 they stay relative to the centre: x - x0 and y - y0.
 *
 * @param[in] x0,y0 centre (length)
 * @param[in,out] x,y the point, moved to the centre and, with status 1, back (length)
 * @param[in] dphi angle of the turn, counter-clockwise (rad)
 * @param[out] xo,yo the turned point (length); kept when status is 0
 * @param[out] status 1, or 0 when the point is at most 1.0e-5 from the centre
 */
KEZ_API void KEZ_CALL kezcer3(const float *x0, const float *y0, float *x, float *y,
                              const float *dphi, float *xo, float *yo, int32_t *status);

/**
 * Turns a list of points about the x axis. Forwards is from y towards z.
 *
 * @par Name
 * rotate_about_x
 *
 * @param[in] mode 1 backwards, any other value forwards
 * @param[in] x [n] ignored: x does not change
 * @param[in,out] y,z [n] y and z of the points (length)
 * @param[in] n number of points; none is turned when below 1
 * @param[in] angle angle of the turn (rad)
 */
KEZ_API void KEZ_CALL kezrotx(const int32_t *mode, const float x[], float y[], float z[],
                              const int32_t *n, const float *angle);

/**
 * Turns a list of points about the y axis. Forwards is from x towards z.
 *
 * @par Name
 * rotate_about_y
 *
 * @par Deliberate
 * Forwards is against the right-hand rule, unlike the turns about the x and z axes.
 *
 * @param[in] mode 1 backwards, any other value forwards
 * @param[in,out] x [n] x of the points (length)
 * @param[in] y [n] ignored: y does not change
 * @param[in,out] z [n] z of the points (length)
 * @param[in] n number of points; none is turned when below 1
 * @param[in] angle angle of the turn (rad)
 */
KEZ_API void KEZ_CALL kezroty(const int32_t *mode, float x[], const float y[], float z[],
                              const int32_t *n, const float *angle);

/**
 * Turns a list of points about the z axis. Forwards is from x towards y.
 *
 * @par Name
 * rotate_about_z
 *
 * @param[in] mode 1 backwards, any other value forwards
 * @param[in,out] x,y [n] x and y of the points (length)
 * @param[in] z [n] ignored: z does not change
 * @param[in] n number of points; none is turned when below 1
 * @param[in] angle angle of the turn (rad)
 */
KEZ_API void KEZ_CALL kezrotz(const int32_t *mode, float x[], float y[], const float z[],
                              const int32_t *n, const float *angle);

/** @} */

/**
 * @defgroup outlines Areas and moments of outlines
 *
 * An outline is a polygon of n vertices in order. Its lists have n + 1 entries: vertex 1 is first
 * copied to entry n + 1, also if n is 0, but not if n is below 0. Shorter arrays are overrun
 * without any warning.
 *
 * Areas and moments are those of the region for a counter-clockwise outline. A clockwise outline
 * gives the opposite sign: holes given clockwise subtract.
 *
 * | kind | figure of `kezair` and `kezstm`               | points used                  |
 * |------|-----------------------------------------------|------------------------------|
 * | 1    | a stated area A0 concentrated at a point      | by `kezstm` (1), else none   |
 * | 2    | polygon of n vertices                         | (1)..(n), closed at (n + 1)  |
 * | 3    | circle                                        | centre (1), on the circle (2)|
 * | 4    | circular segment on the smaller angle's side  | centre (1), chord (2), (3)   |
 * | 5    | the rest of that circle                       | centre (1), chord (2), (3)   |
 *
 * Far from the origin areas and moments of outlines lose accuracy, see "Coordinates far from the
 * origin". Move the outline so that the origin is near its middle first (`keztra`). The figures in
 * the entries were measured on I sections; the distance from the origin is given in section depths.
 * @{
 */

/**
 * Signed area of an outline.
 *
 * @par Name
 * polygon_area
 *
 * @par Accuracy
 * Relative error at 10 depths from the origin: typically 2e-6, at worst 1e-4. At 100 depths:
 * typically 2e-5, at worst 1e-3. With the origin near the middle: typically 3e-8, at worst 2e-7.
 * Move the outline there first (`keztra`).
 *
 * @param[in,out] X,Y [n + 1] the vertices (length); entry n + 1 becomes the first
 * @param[in] n number of vertices
 * @param[out] area the area, 0 when n is below 1 (length^2)
 */
KEZ_API void KEZ_CALL kezapl(float X[], float Y[], const int32_t *n, float *area);

/**
 * Area of a figure of a given kind, times a factor. The group's table lists the kinds.
 *
 * @par Name
 * figure_area
 *
 * @par Measures through
 * `kezapl`, `kezacp`
 *
 * @par Degenerate input
 * A kind that is not in the table multiplies the value found in area by the factor.
 *
 * @param[in,out] X,Y [max(n + 1, 3)] points as the kind needs them, no others are read (length);
 *   for kind 2 entry n + 1 becomes the first; unchanged when kind is not 2
 * @param[in] n number of vertices, for kind 2; below 1 the area is 0
 * @param[in] kind kind of the figure; see the group's table
 * @param[in] A0 area, for kind 1 (length^2)
 * @param[in] factor factor of the result
 * @param[in,out] area the area times factor; read only if the kind is not in the table (length^2)
 */
KEZ_API void KEZ_CALL kezair(float X[], float Y[], const int32_t *n, const int32_t *kind,
                             const float *A0, const float *factor, float *area);

/**
 * First moments of the area of an outline. Sx is that of y about the x axis, Sy that of x about the
 * y axis.
 *
 * @par Name
 * polygon_first_moments
 *
 * @par Accuracy
 * Error of the centroid (Sy / area, Sx / area) in depths, at 10 depths from the origin: typically
 * 3e-5, at worst 6e-4. At 100 depths: typically 3e-3, at worst 6e-2. With the origin near the
 * middle: typically 3e-8, at worst 2e-6. Move the outline there first (`keztra`).
 *
 * @param[in,out] X,Y [n + 1] the vertices (length); entry n + 1 becomes the first
 * @param[in] n number of vertices
 * @param[out] Sx,Sy the moments, 0 when n is below 1 (length^3)
 */
KEZ_API void KEZ_CALL kezspl(float X[], float Y[], const int32_t *n, float *Sx, float *Sy);

/**
 * First moments of a figure of a given kind, times a factor. The group's table lists the kinds.
 *
 * @par Name
 * figure_first_moments
 *
 * @par Measures through
 * `kezspl`, `kezacp`
 *
 * @par Degenerate input
 * A kind that is not in the table multiplies the values found in Sx and Sy by the factor.
 *
 * @param[in,out] X,Y [max(n + 1, 3)] points as the kind needs them, no others are read (length);
 *   for kind 2 entry n + 1 becomes the first; unchanged when kind is not 2
 * @param[in] n number of vertices, for kind 2; below 1 the moments are 0
 * @param[in] kind kind of the figure; see the group's table
 * @param[in] A0 area, for kind 1 (length^2)
 * @param[in] factor factor of the results
 * @param[in,out] Sx,Sy the moments times factor; read only if the kind is not in the table
 *   (length^3)
 */
KEZ_API void KEZ_CALL kezstm(float X[], float Y[], const int32_t *n, const int32_t *kind,
                             const float *A0, const float *factor, float *Sx, float *Sy);

/**
 * Second moments of the area of an outline about the axes through the origin. Ix is that of y^2, Iy
 * of x^2 and Ixy of x y. `kezinp` turns them into principal moments.
 *
 * @par Name
 * polygon_second_moments
 *
 * @par Accuracy
 * A moment about the centroid, Ix - Sx^2 / area, cancels far from the origin. Its relative error at
 * 3 depths is typically 3e-5, at worst 2e-3. At 10 depths it is typically 1e-3, at worst 5e-2, and
 * at 30 depths typically 2e-2, at worst 1.5. With the origin near the middle it is typically 1e-7,
 * at worst 2.5e-6. Move the outline there first (`keztra`).
 *
 * @param[in,out] X,Y [n + 1] the vertices (length); entry n + 1 becomes the first
 * @param[in] n number of vertices
 * @param[out] Ix,Iy,Ixy the moments, 0 when n is below 1 (length^4)
 */
KEZ_API void KEZ_CALL kezipl(float X[], float Y[], const int32_t *n, float *Ix, float *Iy,
                             float *Ixy);

/**
 * Principal axes of second moments.
 *
 *     tan(2 theta) = 2 r / (q - p)
 *     u = p cos(theta)^2 + q sin(theta)^2 - r sin(2 theta)
 *     v = p sin(theta)^2 + q cos(theta)^2 + r sin(2 theta)
 *
 * The moments are not sorted: u belongs to the axis at theta, and it may be the larger or the
 * smaller one.
 *
 * @par Name
 * principal_axes
 *
 * @par Degenerate input
 * - If |r / (p + q)| is at most 1.0e-8 or not a number, the given axes are principal and
 *   theta is 0.
 * - Otherwise, if |q - p| < 1.0e-12, theta is pi/4.
 *
 * @param[in] p second moment about the x axis (length^4)
 * @param[in] q second moment about the y axis (length^4)
 * @param[in] r product moment (length^4)
 * @param[out] u moment about the first principal axis (length^4)
 * @param[out] v moment about the second principal axis (length^4)
 * @param[out] theta angle from the x axis to the first principal axis, counter-clockwise, from
 *   -pi/4 to pi/4 (rad)
 */
KEZ_API void KEZ_CALL kezinp(const float *p, const float *q, const float *r, float *u, float *v,
                             float *theta);

/**
 * Area and centroid of a circular segment. R is the radius and phi the angle between the ends; for
 * the rest of the circle, phi is 2 pi minus that angle. The area is R^2 (phi - sin(phi)) / 2. The
 * centroid is 4 R sin(phi / 2)^3 / (3 (phi - sin(phi))) from the centre.
 *
 * @par Name
 * circular_segment
 *
 * @par Measures through
 * `kezphi`, `kezln3`, `kezlds`
 *
 * @par Degenerate input
 * - If the chord passes through the centre, the centroid may be on either side or not-a-number.
 * - If both ends are the same, the centroid is not-a-number, and so may be the area. Both may also
 *   be not-a-number for angles below 0.0007 rad, and the area may be 0.
 *
 * @par Accuracy
 * Small angles are coarse. At 0.03 rad the area is typically 0.02 per cent off, at worst 0.15 per
 * cent, and the centroid typically 1e-4 R, at worst 5e-4 R. At 0.01 rad the area is typically 0.2
 * per cent off, at worst 1.5 per cent, and the centroid typically 1.5e-3 R, at worst 4e-3 R.
 *
 * @param[in] x0,y0 centre (length)
 * @param[in] x1,y1 end of the chord on the circle (length)
 * @param[in] x2,y2 other end of the chord (length)
 * @param[in] kind 5 the rest of the circle, any other value the segment of the smaller angle
 * @param[out] area the area (length^2)
 * @param[out] xs,ys the centroid (length)
 */
KEZ_API void KEZ_CALL kezacp(const float *x0, const float *y0, const float *x1, const float *y1,
                             const float *x2, const float *y2, const int32_t *kind, float *area,
                             float *xs, float *ys);

/** @} */

/**
 * A host's routine that gives `kezpnl` the z coordinate of point i, 1-based.
 */
typedef float(KEZ_CALL *kez_z_callback)(const int32_t *i);

/**
 * @defgroup space Lines in space
 *
 * A line is given by two points, or by a point and a direction. `kezln7` takes the line in which
 * two planes meet; a plane is (A, B, C, D) of A x + B y + C z + D = 0. All entries use these rules:
 *
 * - `kezpsl` decides by an angle whether three points are on one line. A point from which the other
 *   two appear less than 0.26 degrees apart counts as on their line, however far it is from that
 *   line. Choose the points of a line about as far apart as your other distances.
 * - Parallel and perpendicular are those of `kezdir`: up to about 0.26 degrees from parallel, and
 *   up to 0.0006 degrees from perpendicular.
 * - The class of a direction is the code of `kezpsn`.
 * @{
 */

/**
 * Position of a point P against the segment P1 P2 in space. The point is on the line if the cosine
 * of the angle between P - P1 and P - P2 is 1 or -1 within the tolerance.
 *
 * | pos | meaning                                                                       |
 * |-----|-------------------------------------------------------------------------------|
 * | 0   | off the line, or degenerate (see below)                                       |
 * | 1   | at P1, at most 1.0e-5 away; this test comes first                             |
 * | 2   | at P2, at most 1.0e-5 away                                                    |
 * | 3   | between the ends                                                              |
 * | 4   | on the line before P1                                                         |
 * | 5   | on the line beyond P2                                                         |
 *
 * @par Name
 * position_on_segment
 *
 * @par Degenerate input
 * pos is also 0 in these cases:
 * - P is more than 1.0e-5 from an end, but coincides with it coordinate by coordinate.
 * - The ends are so close together that their distances from P round to the same number.
 * - A coordinate is not-a-number, unless P is at the other end.
 *
 * @par Accuracy
 * Beside the middle of the segment a point up to 1/900 of its length away still counts as on the
 * line. Near an end, rounding alone can make a point on the line count as off it.
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] x,y,z P (length)
 * @param[out] pos the position
 */
KEZ_API void KEZ_CALL kezpsl(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x, const float *y,
                             const float *z, int32_t *pos);

/**
 * Whether a point is on a line in space. The line is evaluated at the point's x, or at its y if the
 * line is parallel to the yz plane, and the other two coordinates are compared. A coordinate that
 * is constant along the line is compared directly.
 *
 * @par Name
 * point_on_line_in_space
 *
 * @par Measures through
 * `kezpsn`
 *
 * @par Degenerate input
 * A null direction contains no point. The class is that of the direction after it was added to the
 * point of the line and subtracted again: far from the origin small components vanish.
 *
 * @param[in] x0,y0,z0 point of the line (length)
 * @param[in] u,v,w direction of the line
 * @param[in] px,py,pz the point to test (length)
 * @param[in] tol largest difference of a coordinate (length)
 * @param[out] code class of the direction, 0 to 7, see `kezpsn`
 * @param[out] onLine 1 when both differences are at most tol, else 0
 */
KEZ_API void KEZ_CALL kezln6(const float *x0, const float *y0, const float *z0, const float *u,
                             const float *v, const float *w, const float *px, const float *py,
                             const float *pz, const float *tol, int32_t *code, int32_t *onLine);

/**
 * Whether a point is on the line in which two planes meet. The line is evaluated at one coordinate
 * of a kept point: at its x if l is non-zero, else at its y if m is, else at its z if n is. The
 * other two coordinates of the point to test are compared with the line there.
 *
 * @par Name
 * point_on_line_of_planes
 *
 * @par Measures through
 * `kezpsn`
 *
 * @par Deliberate
 * The line is never evaluated at the coordinate of the point to test. If y is the parameter, the
 * slope of z has the opposite sign to the line's.
 *
 * @par Degenerate input
 * If none of l, m and n is non-zero, onLine is 0 and the kept point stays as it is.
 *
 * @par Kept value
 * The point at which a line was last evaluated, at first (0, 0, 0). A call reads its x, y or z as
 * described and overwrites the other two coordinates. Results therefore depend on earlier calls.
 *
 * @param[in] a1,b1,c1,d1 first plane
 * @param[in] a2,b2,c2,d2 second plane
 * @param[in] px,py,pz the point to test (length)
 * @param[out] l b1 c2 - c1 b2, the x component of the line's direction
 * @param[out] m a1 c2 - c1 a2, the y component with the opposite sign
 * @param[in] n the z component, from the caller: a1 b2 - b1 a2
 * @param[in] tol largest difference of a coordinate (length)
 * @param[out] code class of (l, m, n), 0 to 7, see `kezpsn`
 * @param[out] onLine 1 when both differences are at most tol, else 0
 */
KEZ_API void KEZ_CALL kezln7(const float *a1, const float *b1, const float *c1, const float *d1,
                             const float *a2, const float *b2, const float *c2, const float *d2,
                             const float *px, const float *py, const float *pz, float *l, float *m,
                             const float *n, const float *tol, int32_t *code, int32_t *onLine);

/**
 * Intersection of two lines in space that lie in one plane. It is found in the local axes of
 * `kezaxe` with origin P1 through P1 + d1 and P2 + d2.
 *
 * @par Name
 * intersect_lines_in_space
 *
 * @par Measures through
 * `kezpl6`, `kezaxe`, `kezln3`, `kezlni`
 *
 * @par Deliberate
 * P1 and P2 are overwritten. Parallel lines do not fail: status is 0, and (xi, yi) as passed in are
 * taken as the local coordinates of the result, relative to P1.
 *
 * @par Degenerate input
 * - Lines whose determinant in the local axes is within 1.0e-5 of zero are treated as parallel,
 *   too.
 * - If `kezpsl` finds P2 + d2 on the first line, there are no axes, and the result is P1 if xi and
 *   yi are finite. This happens if P2 + d2 is the intersection itself (pass d2 at another length)
 *   or is far away from P1.
 * - An axis that `kezaxe` finds too short is (0, 0, 0); the result is then on the first line.
 *
 * @par Accuracy
 * Lines that meet may count as skew (status 6), see `kezdirl`. This includes unit directions,
 * because the point plus the direction is rounded. Scale the figure and the directions to size 1
 * first, and the result back.
 *
 * @param[in,out] x1,y1,z1 P1, a point of the first line; becomes (0, 0, 0) (length); unchanged when
 *   status is not 0
 * @param[in] dx1,dy1,dz1 d1, direction of the first line (length)
 * @param[in,out] x2,y2,z2 P2, a point of the second line; becomes P2 - P1 (length); unchanged when
 *   status is not 0
 * @param[in] dx2,dy2,dz2 d2, direction of the second line (length)
 * @param[out] status 0, or the `kezdirl` relation for which there is no plane: 3, 4 the same line,
 *   6 skew, 7 a direction that is null between P and P + d
 * @param[in,out] xi,yi the intersection (length); unchanged when status is not 0
 * @param[out] zi its z (length); kept when status is not 0
 */
KEZ_API void KEZ_CALL kez3lni(float *x1, float *y1, float *z1, const float *dx1, const float *dy1,
                              const float *dz1, float *x2, float *y2, float *z2, const float *dx2,
                              const float *dy2, const float *dz2, int32_t *status, float *xi,
                              float *yi, float *zi);

/**
 * Relation of two lines in space, each through two points.
 *
 * | rel | lines                           |
 * |-----|---------------------------------|
 * | 0   | coplanar, oblique               |
 * | 1   | parallel, same orientation      |
 * | 2   | parallel, opposite orientation  |
 * | 3   | same line, same orientation     |
 * | 4   | same line, opposite orientation |
 * | 5   | coplanar, perpendicular         |
 * | 6   | skew                            |
 * | 7   | a line is undefined             |
 *
 * Parallel lines are the same line if `kezpsl` finds P3 or P4 on the first line. Other lines are
 * skew if the triple product of P2 - P1, P4 - P3 and P3 - P1 is non-zero.
 *
 * @par Name
 * relate_lines
 *
 * @par Measures through
 * `kezdir`, `kezpsl`, `kez3sp`
 *
 * @par Degenerate input
 * A line is undefined if its two points coincide. Otherwise coordinates that are not-a-number
 * give 0.
 *
 * @par Accuracy
 * The triple product has the unit length^3, but its tolerance is fixed, see "Figures far from size
 * 1". Lines that meet, given by rounded coordinates, count as coplanar only up to coordinates of
 * about 2 units. About 20 per cent of such pairs count as skew at 5 units, 65 per cent at 10 and 80
 * per cent from 30 on. Scale the figure to size 1 first.
 *
 * @param[in] x1,y1,z1,x2,y2,z2 P1 and P2, points of the first line (length)
 * @param[in] x3,y3,z3,x4,y4,z4 P3 and P4, points of the second line (length)
 * @param[out] rel the relation, 0 to 7
 */
KEZ_API void KEZ_CALL kezdirl(const float *x1, const float *y1, const float *z1, const float *x2,
                              const float *y2, const float *z2, const float *x3, const float *y3,
                              const float *z3, const float *x4, const float *y4, const float *z4,
                              int32_t *rel);

/**
 * Signed distance of a point P from the line P1 P2. It is positive if P has a negative local y,
 * seen from the line, in the axes that `kezaxe` gives for P1, P2 and P.
 *
 * @par Name
 * signed_distance_with_status
 *
 * @par Measures through
 * `kezaxe`, `kezln3`, `kezlds`
 *
 * @par Degenerate input
 * - Coincident P1 and P2 give the distance from P1, without a sign.
 * - The distance is 0 if `kezpsl` finds P on the line or `kezaxe` finds the y axis too short.
 *
 * @par Accuracy
 * The axes turn the points but do not move them, see "Coordinates far from the origin". Let d be
 * the distance from P1 to P2. For points off the line and coordinates of 100 d, the error is
 * typically 4e-5 d, at worst 1e-3 d. With 1000 d it is typically 4e-3 d, at worst 5e-2 d. Move P1
 * to the origin first (`kez3tra`).
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] px,py,pz P (length)
 * @param[out] status always 0
 * @param[out] dist the distance (length)
 */
KEZ_API void KEZ_CALL kez3lda(const float *x1, const float *y1, const float *z1, const float *x2,
                              const float *y2, const float *z2, const float *px, const float *py,
                              const float *pz, int32_t *status, float *dist);

/**
 * Signed distance of a point P from the line P1 P2: `kez3lda` without its status. Signs, degenerate
 * input and accuracy are as there.
 *
 * @par Name
 * signed_distance_in_space
 *
 * @par Measures through
 * `kezaxe`, `kezln3`, `kezlds`
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] px,py,pz P (length)
 * @param[out] dist the distance (length)
 */
KEZ_API void KEZ_CALL kez3lds(const float *x1, const float *y1, const float *z1, const float *x2,
                              const float *y2, const float *z2, const float *px, const float *py,
                              const float *pz, float *dist);

/**
 * Unsigned distance of a point P from the line P1 P2. It is |w x u| / |u| with u = P2 - P1 and
 * w = (x1 - px, y1 - py, y1 - pz).
 *
 * @par Name
 * distance_to_line_in_space
 *
 * @par Deliberate
 * The last component of w takes y1 for z1. The result is the distance only if y1 = z1.
 *
 * @par Degenerate input
 * Coincident P1 and P2 give the distance from P1.
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] px,py,pz P (length)
 * @param[out] status always 0
 * @param[out] dist the distance (length)
 */
KEZ_API void KEZ_CALL kez3ldb(const float *x1, const float *y1, const float *z1, const float *x2,
                              const float *y2, const float *z2, const float *px, const float *py,
                              const float *pz, int32_t *status, float *dist);

/**
 * Points of a list near the line P1 P2. Their z coordinates come from a routine of the host, which
 * is called n times: once for each point, in the order of the list.
 *
 * @par Name
 * points_near_line
 *
 * @par Measures through
 * `kez3ldb`
 *
 * @par Deliberate
 * `kez3ldb` takes y1 for z1: distances are right only if y1 = z1. Otherwise even points on the line
 * may not be found.
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] x,y [n] x and y of the points (length)
 * @param[in] zof [n] routine called with each position from 1 to n for the z of that point (length)
 * @param[in] n number of points
 * @param[in] tol largest distance of a point that is near (length)
 * @param[out] status 0; kept when n is below 1
 * @param[out] count number of points found
 * @param[out] idx [n] their positions, ascending; kept beyond count
 */
KEZ_API void KEZ_CALL kezpnl(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float x[], const float y[],
                             kez_z_callback zof, const int32_t *n, const float *tol,
                             int32_t *status, int32_t *count, int32_t idx[]);

/** @} */

/**
 * @defgroup planes Planes
 *
 * A plane is the quadruple (A, B, C, D) of A x + B y + C z + D = 0 with the normal (A, B, C). It is
 * not normalised, and D has the unit of the others times length.
 *
 * Parallel and perpendicular are those of `kezdir`, within about 0.26 and 0.0006 degrees. Whether
 * points are on one line is decided by `kezpsl`, by an angle: choose the points of a plane about as
 * far apart as your other distances.
 * @{
 */

/**
 * Plane through three points. Its normal is (P2 - P1) x (P3 - P1).
 *
 * @par Name
 * plane_through_points
 *
 * @par Measures through
 * `kezpsl`, `kezplg`
 *
 * @par Degenerate input
 * If P1 and P2 are exactly equal and P3 is elsewhere, status is 0 and the plane has no normal.
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] x3,y3,z3 P3 (length)
 * @param[out] A,B,C,D the plane, zeros when status is not 0
 * @param[out] status 0, or the `kezpsl` position of P3 when it is on the line P1 P2
 */
KEZ_API void KEZ_CALL kezpl1(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, float *A, float *B, float *C, float *D,
                             int32_t *status);

/**
 * Plane through a point spanned by two directions. Its normal is their cross product.
 *
 * @par Name
 * plane_spanned_by_directions
 *
 * @par Degenerate input
 * Parallel directions give A = B = C = 0, except for rounding.
 *
 * @param[in] x0,y0,z0 the point (length)
 * @param[in] p1,q1,r1 first direction
 * @param[in] p2,q2,r2 second direction
 * @param[out] A,B,C,D the plane
 */
KEZ_API void KEZ_CALL kezplg(const float *x0, const float *y0, const float *z0, const float *p1,
                             const float *q1, const float *r1, const float *p2, const float *q2,
                             const float *r2, float *A, float *B, float *C, float *D);

/**
 * Plane through a point, parallel to the lines P1 P2 and P3 P4. The lines may be skew.
 *
 * @par Name
 * plane_parallel_to_lines
 *
 * @par Measures through
 * `kezdirl`, `kezplg`
 *
 * @par Degenerate input
 * Parallel lines give status 0 and a plane without a normal, except for rounding.
 *
 * @param[in] x0,y0,z0 the point (length)
 * @param[in] x1,y1,z1,x2,y2,z2 P1 and P2, points of the first line (length)
 * @param[in] x3,y3,z3,x4,y4,z4 P3 and P4, points of the second line (length)
 * @param[out] A,B,C,D the plane, zeros when status is not 0
 * @param[out] status 0, or the `kezdirl` relation of the lines: 3, 4 the same line, 7 a line is
 *   undefined
 */
KEZ_API void KEZ_CALL kezpl2(const float *x0, const float *y0, const float *z0, const float *x1,
                             const float *y1, const float *z1, const float *x2, const float *y2,
                             const float *z2, const float *x3, const float *y3, const float *z3,
                             const float *x4, const float *y4, const float *z4, float *A, float *B,
                             float *C, float *D, int32_t *status);

/**
 * Plane that contains the line P1 P2 and is parallel to the line P3 P4. This is `kezpl2` with P1 as
 * the point.
 *
 * @par Name
 * plane_through_line
 *
 * @par Measures through
 * `kezdirl`, `kezplg`
 *
 * @par Degenerate input
 * Parallel lines give status 0 and a plane without a normal, except for rounding.
 *
 * @param[in] x1,y1,z1,x2,y2,z2 P1 and P2, points of the first line (length)
 * @param[in] x3,y3,z3,x4,y4,z4 P3 and P4, points of the second line (length)
 * @param[out] A,B,C,D the plane, zeros when status is not 0
 * @param[out] status 0, or the `kezdirl` relation of the lines: 3, 4 the same line, 7 a line is
 *   undefined
 */
KEZ_API void KEZ_CALL kezpl3(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x4, const float *y4, const float *z4,
                             float *A, float *B, float *C, float *D, int32_t *status);

/**
 * Plane through a point, perpendicular to the direction from P1 to P2. That direction is its
 * normal.
 *
 * @par Name
 * plane_perpendicular_to_segment
 *
 * @param[in] x0,y0,z0 the point (length)
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[out] A,B,C,D the plane, zeros when status is 1
 * @param[out] status 0, or 1 when P1 and P2 coincide
 */
KEZ_API void KEZ_CALL kezpl4(const float *x0, const float *y0, const float *z0, const float *x1,
                             const float *y1, const float *z1, const float *x2, const float *y2,
                             const float *z2, float *A, float *B, float *C, float *D,
                             int32_t *status);

/**
 * Plane from its intercepts on the axes. It is (1/p, 1/q, 1/r, -1).
 *
 * @par Name
 * plane_by_intercepts
 *
 * @par Degenerate input
 * An infinite intercept makes the plane parallel to its axis.
 *
 * @param[in] p,q,r intercepts on the x, y and z axis (length)
 * @param[out] A,B,C,D the plane, zeros when status is 1
 * @param[out] status 0, or 1 unless all intercepts are non-zero
 */
KEZ_API void KEZ_CALL kezpl5(const float *p, const float *q, const float *r, float *A, float *B,
                             float *C, float *D, int32_t *status);

/**
 * Plane through two lines, each given by a point and a direction.
 *
 * @par Name
 * plane_through_lines
 *
 * @par Measures through
 * `kezdirl`, `kezplg`
 *
 * @par Degenerate input
 * Parallel lines give status 0 and a plane without a normal, except for rounding.
 *
 * @par Accuracy
 * Lines that meet may count as skew (status 6), see `kezdirl`. This includes unit directions,
 * because the point plus the direction is rounded. Scale the figure and the directions to size 1
 * first, and D back.
 *
 * @param[in] x1,y1,z1,dx1,dy1,dz1 point and direction of the first line (length)
 * @param[in] x2,y2,z2,dx2,dy2,dz2 point and direction of the second line (length)
 * @param[out] A,B,C,D the plane; kept when status is not 0
 * @param[out] status 0, or the `kezdirl` relation of the lines: 3, 4 the same line, 6 skew, 7 a
 *   direction that is null between the point and the point plus the direction
 */
KEZ_API void KEZ_CALL kezpl6(const float *x1, const float *y1, const float *z1, const float *dx1,
                             const float *dy1, const float *dz1, const float *x2, const float *y2,
                             const float *z2, const float *dx2, const float *dy2, const float *dz2,
                             float *A, float *B, float *C, float *D, int32_t *status);

/**
 * Plane of three points, turned about the line P1 P2. Its normal is the z axis that `kezaxe` gives
 * for P1, P2 and P3, turned forwards about the local x axis, that is by the right-hand rule. The
 * normal has unit length, except for rounding. At angle 0 it may be opposite to that of `kezpl1`.
 *
 * @par Name
 * rotated_plane
 *
 * @par Measures through
 * `kezpsl`, `kezaxe`, `kezpl4`
 *
 * @par Accuracy
 * The normal is the difference of P1 plus a unit vector and P1. It is only as exact as the
 * coordinates of P1 allow. With coordinates up to 1000 its direction is typically 2e-5 rad off, at
 * worst 6e-5 rad. Up to 100000 it is typically 2e-3 rad off, at worst 8e-3 rad. With P1 at the
 * origin and more than 3 degrees between P2 and P3 it is typically 4e-8 rad off, at worst 1e-6 rad.
 * Move P1 there first (`kez3tra`) and set D to -(A x1 + B y1 + C z1).
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] x3,y3,z3 P3 (length)
 * @param[in] angle angle of the turn (rad)
 * @param[out] A,B,C,D the plane, zeros when status is not 0
 * @param[out] status 0, or the `kezpsl` position of P3 when it is on the line P1 P2; 1 also when P1
 *   plus the normal coincides with P1 and no normal is left
 */
KEZ_API void KEZ_CALL kezpl7(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *angle, float *A, float *B, float *C,
                             float *D, int32_t *status);

/**
 * Relation of two planes.
 *
 * | rel | planes                           |
 * |-----|----------------------------------|
 * | 0   | intersecting                     |
 * | 1   | parallel, same orientation       |
 * | 2   | parallel, opposite orientation   |
 * | 3   | same plane, same orientation     |
 * | 4   | same plane, opposite orientation |
 * | 5   | perpendicular                    |
 * | 6   | a normal is null                 |
 *
 * Parallel planes are distinct if D1 / D2 is not equal to the ratio of their normals.
 * If |D2| <= 1.0e-5, 0 is used for D1 / D2. If |D1| <= 1.0e-5 as well, the planes are the same.
 *
 * @par Name
 * relate_planes
 *
 * @par Measures through
 * `kezdir`
 *
 * @par Deliberate
 * The ratio of the normals is that of the last component of the second normal that is non-zero,
 * even if other components disagree.
 *
 * @param[in] A1,B1,C1,D1 first plane
 * @param[in] A2,B2,C2,D2 second plane
 * @param[out] rel the relation, 0 to 6
 */
KEZ_API void KEZ_CALL kezdirp(const float *A1, const float *B1, const float *C1, const float *D1,
                              const float *A2, const float *B2, const float *C2, const float *D2,
                              int32_t *rel);

/**
 * Signed distance of a point from a plane, positive on the side to which the normal points.
 *
 * @par Name
 * signed_distance_to_plane
 *
 * @par Degenerate input
 * If A = B = C = 0, or A^2 + B^2 + C^2 is outside 1.2e-38 to 3.4e38, the distance is meaningless or
 * not finite.
 *
 * @par Accuracy
 * The sum A x + B y + C z + D loses accuracy far from the origin, see "Coordinates far from the
 * origin". It is multiplied by an approximate reciprocal square root of A^2 + B^2 + C^2, whose
 * relative error is typically 4e-8, at worst 4e-7.
 *
 * @param[in] x,y,z the point (length)
 * @param[in] A,B,C,D the plane
 * @param[out] dist the distance (length)
 */
KEZ_API void KEZ_CALL kezpld(const float *x, const float *y, const float *z, const float *A,
                             const float *B, const float *C, const float *D, float *dist);

/**
 * Class of a plane. X stands for a non-zero coefficient, 0 for one within the tolerance of zero:
 *
 * | code | (A, B, C) | D | plane                    |
 * |------|-----------|---|--------------------------|
 * | 1    | X X X     |   | general                  |
 * | 2    | 0 X X     |   | parallel to the x axis   |
 * | 3    | X 0 X     |   | parallel to the y axis   |
 * | 4    | X X 0     |   | parallel to the z axis   |
 * | 5    | 0 0 X     | X | parallel to the xy plane |
 * | 6    | X 0 0     | X | parallel to the yz plane |
 * | 7    | 0 X 0     | X | parallel to the xz plane |
 * | 8    | 0 0 X     | 0 | the xy plane             |
 * | 9    | X 0 0     | 0 | the yz plane             |
 * | 10   | 0 X 0     | 0 | the xz plane             |
 *
 * @par Name
 * classify_plane
 *
 * @par Deliberate
 * A plane without a normal (0 0 0) has class 7 or 10, as if B were non-zero.
 *
 * @par Degenerate input
 * Not-a-number counts as non-zero.
 *
 * @param[in] A,B,C,D the plane
 * @param[out] code the class, 1 to 10
 */
KEZ_API void KEZ_CALL kezplp(const float *A, const float *B, const float *C, const float *D,
                             int32_t *code);

/**
 * Intersection of a line and a plane.
 *
 * @par Name
 * intersect_line_plane
 *
 * @par Measures through
 * `kezdir`
 *
 * @param[in] x0,y0,z0 point of the line (length)
 * @param[in] u,v,w direction of the line
 * @param[in] A,B,C,D the plane
 * @param[out] xi,yi,zi the point (length); kept when status is not 0
 * @param[out] status 0, or the `kezdir` relation of direction and normal: 3 perpendicular (the line
 *   is parallel to the plane or in it), 4 a null direction or normal
 */
KEZ_API void KEZ_CALL kezpli(const float *x0, const float *y0, const float *z0, const float *u,
                             const float *v, const float *w, const float *A, const float *B,
                             const float *C, const float *D, float *xi, float *yi, float *zi,
                             int32_t *status);

/**
 * Whether a point is in the plane of three points. This is decided by the angle between the normal
 * and the direction from P1 to the point, not by a distance.
 *
 * @par Name
 * point_in_plane_by_angle
 *
 * @par Measures through
 * `kezpl1`
 *
 * @par Degenerate input
 * These count as outside:
 * - a point that is at most 0.001 away from P1, even P1 itself;
 * - every point, if P1, P2 and P3 are on one line or the length of (P2 - P1) x (P3 - P1) is at most
 *   0.001.
 *
 * @param[in] x1,y1,z1 P1 (length)
 * @param[in] x2,y2,z2 P2 (length)
 * @param[in] x3,y3,z3 P3 (length)
 * @param[in] x,y,z the point to test (length)
 * @param[in] tol largest magnitude of the cosine of that angle; not a distance
 * @param[out] status 0 in the plane, -1 outside
 */
KEZ_API void KEZ_CALL kezpsp(const float *x1, const float *y1, const float *z1, const float *x2,
                             const float *y2, const float *z2, const float *x3, const float *y3,
                             const float *z3, const float *x, const float *y, const float *z,
                             const float *tol, int32_t *status);

/**
 * Whether a point is in a plane, by its distance.
 *
 * @par Name
 * point_in_plane_by_distance
 *
 * @par Measures through
 * `kezpld`
 *
 * @param[in] x,y,z the point (length)
 * @param[in] A,B,C,D the plane
 * @param[in] tol largest distance (length)
 * @param[out] status 0 when the distance is at most tol, -1 when not, 1 when the normal is exactly
 *   (0, 0, 0)
 */
KEZ_API void KEZ_CALL kezpspg(const float *x, const float *y, const float *z, const float *A,
                              const float *B, const float *C, const float *D, const float *tol,
                              int32_t *status);

/**
 * Points of a list at which a running sum is exactly zero. The sum starts as D, and each point adds
 * its A x + B y + C z.
 *
 * @par Name
 * points_at_zero_sum
 *
 * @par Deliberate
 * Only the first point is tested against the plane as given. Each later point is tested against the
 * plane that the earlier points have shifted. There is no tolerance.
 *
 * @param[in] x,y,z [n] the points (length)
 * @param[in] A,B,C normal of the plane
 * @param[in,out] D constant of the plane; becomes the sum over all points
 * @param[in] n number of points
 * @param[out] count number of points found, 0 when n is below 1
 * @param[out] idx [n] their positions, ascending; kept beyond count
 */
KEZ_API void KEZ_CALL kezpnp(const float x[], const float y[], const float z[], const float *A,
                             const float *B, const float *C, float *D, const int32_t *n,
                             int32_t *count, int32_t idx[]);

/** @} */

/**
 * @defgroup axes Axes and placement
 *
 * An axis system is the nine numbers m1 to m9: the unit vectors of its x, y and z axis in global
 * coordinates, one after the other. It is right-handed and has no origin of its own.
 *
 * Whether three points are on one line is decided by `kezpsl`, by an angle: choose O, A and B about
 * as far apart as your other distances.
 * @{
 */

/**
 * Axis system in the plane of three points. The x axis points from O to A. The z axis is the normal
 * of the plane that points upwards, towards larger y. If the normal's y is within the tolerance of
 * zero, it points towards larger z, and if its z is too, towards larger x. B may therefore have a
 * negative local y.
 *
 * @par Name
 * axes_through_points
 *
 * @par Measures through
 * `kezpsl`
 *
 * @par Degenerate input
 * An axis shorter than 1.0e-5 before normalisation, or of a length that is not a number, stays
 * (0, 0, 0), and status is still 0. With L the distance from O to A and h that of B from the line O
 * A, the lengths are L for x, L^2 h for y and L h for z. For small figures use a smaller unit, so
 * that the numbers are larger.
 *
 * @param[in] x0,y0,z0 O, the origin (length)
 * @param[in] xa,ya,za A, on the local x axis (length)
 * @param[in] xb,yb,zb B, in the local xy plane (length)
 * @param[out] m1,m2,m3 unit vector of the x axis, zeros when status is -2
 * @param[out] m4,m5,m6 unit vector of the y axis, zeros when status is -2
 * @param[out] m7,m8,m9 unit vector of the z axis, zeros when status is -2
 * @param[out] status 0, or -2 when `kezpsl` finds B on the line O A
 */
KEZ_API void KEZ_CALL kezaxe(const float *x0, const float *y0, const float *z0, const float *xa,
                             const float *ya, const float *za, const float *xb, const float *yb,
                             const float *zb, float *m1, float *m2, float *m3, float *m4, float *m5,
                             float *m6, float *m7, float *m8, float *m9, int32_t *status);

/**
 * Carries a point from local to global coordinates or back. Only the axes turn: points are relative
 * to the common origin. `kez3tra` moves them there and back.
 *
 * @par Name
 * change_axes
 *
 * @par Deliberate
 * Every mode other than 1 means global to local.
 *
 * @param[in,out] p [3] x, y and z of the point (length)
 * @param[in] m1,m2,m3,m4,m5,m6,m7,m8,m9 the axis system
 * @param[in] mode 1 local to global, any other value global to local
 */
KEZ_API void KEZ_CALL keztrn(float p[], const float *m1, const float *m2, const float *m3,
                             const float *m4, const float *m5, const float *m6, const float *m7,
                             const float *m8, const float *m9, const int32_t *mode);

/**
 * Places a list of points. It moves the points by (tx, ty, tz), then turns them forwards about the
 * x axis, the y axis and the z axis through the origin, as `kezrotx`, `kezroty` and `kezrotz` do. A
 * translation whose components are all within the tolerance of zero is left out, and so is such an
 * angle.
 *
 * @par Name
 * place_points
 *
 * @par Deliberate
 * The turn about the y axis is against the right-hand rule, as in `kezroty`.
 *
 * @param[in,out] x,y,z [n] the points (length)
 * @param[in] n number of points; none is placed when below 1
 * @param[in] tx,ty,tz translation (length)
 * @param[in] ax,ay,az angles about the x, y and z axis (rad)
 */
KEZ_API void KEZ_CALL kezptr(float x[], float y[], float z[], const int32_t *n, const float *tx,
                             const float *ty, const float *tz, const float *ax, const float *ay,
                             const float *az);

/**
 * Places a list of points in the local axis system that `kezaxe` gives for O, A and B, with its
 * origin at O. This is `kezptr` along and about the local axes, with nothing left out.
 *
 * @par Name
 * place_points_locally
 *
 * @par Measures through
 * `kezaxe`
 *
 * @par Deliberate
 * The turn about the local y axis is against the right-hand rule, as in `kezroty`.
 *
 * @par Degenerate input
 * Along an axis that `kezaxe` finds too short, the points lose their coordinate.
 *
 * @param[in] x0,y0,z0 O, the origin (length)
 * @param[in] xa,ya,za A, on the local x axis (length)
 * @param[in] xb,yb,zb B, in the local xy plane (length)
 * @param[in,out] x,y,z [n] the points (length); unchanged when status is -2
 * @param[in] n number of points; none is placed when below 1
 * @param[in] tx,ty,tz translation along the local axes (length)
 * @param[in] ax,ay,az angles about the local axes (rad)
 * @param[out] status 0, or -2 when `kezpsl` finds B on the line O A
 */
KEZ_API void KEZ_CALL kezptrl(const float *x0, const float *y0, const float *z0, const float *xa,
                              const float *ya, const float *za, const float *xb, const float *yb,
                              const float *zb, float x[], float y[], float z[], const int32_t *n,
                              const float *tx, const float *ty, const float *tz, const float *ax,
                              const float *ay, const float *az, int32_t *status);

/**
 * Moves the origin of a list of points to (ox, oy, oz). The offsets are subtracted; negated offsets
 * move the points back.
 *
 * @par Name
 * move_origin_in_space
 *
 * @param[in,out] x,y,z [n] the points (length)
 * @param[in] n number of points; none is moved when below 1
 * @param[in] ox,oy,oz new origin (length)
 */
KEZ_API void KEZ_CALL kez3tra(float x[], float y[], float z[], const int32_t *n, const float *ox,
                              const float *oy, const float *oz);

/** @} */

/**
 * @defgroup sections Section outlines
 *
 * Each routine writes a section's outline: a set of closed contours, their vertices one contour
 * after another. The sketches number the vertices. x = 0 is the middle of the width, and y = 0 is
 * mid-height. All contours run counter-clockwise from their top left corner, holes too; only the
 * fillets of `kezsec_i` differ. Every routine writes the same record, with one entry per contour in
 * the arrays:
 *
 * | argument | meaning                                                                |
 * |----------|------------------------------------------------------------------------|
 * | nc       | number of contours                                                     |
 * | nv       | vertices of each contour                                               |
 * | x, y     | the vertices, without a repeated closing vertex                        |
 * | kind     | figure as `kezair` knows it: 2 a polygon                               |
 * | sign     | 1.0 for material, -1.0 for a hole                                      |
 * | v1 to v5 | 0.0                                                                    |
 * | v6, v7   | the shape's value, an argument that is passed through, times the sign  |
 *
 * No dimension is checked: dimensions that do not fit together give contours that cross themselves.
 *
 * `kezapl`, `kezair`, `kezspl`, `kezstm`, `kezipl`, `kezcnv`, `kezppp` and `kezpin` write a
 * polygon's first vertex behind its last. x and y have no room for that. The write would overwrite
 * the next contour, or what the host keeps behind the array, and give a wrong area without any
 * warning. So take each contour out with `kezadr`, into arrays of one entry more than it has
 * vertices. Pass its number of vertices, which is nv except for `kezsec_b`.
 * @{
 */

/**
 * Outline of a flat bar, a rectangle b by h. Note that b is an integer.
 *
 *     1------4
 *     |      |
 *     2------3
 *
 * @par Name
 * outline_flat_bar
 *
 * @par Deliberate
 * The vertex count nv is 12, although there are 4 vertices: hosts rely on it. Pass 4 to `kezadr`
 * and to the routines that take a contour.
 *
 * @param[in] b width in whole units, an integer (length)
 * @param[in] h height (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 1
 * @param[out] nv 12
 * @param[out] x,y [4] vertices (length)
 * @param[out] kind 2
 * @param[out] sign 1.0
 * @param[out] v1,v2,v3,v4,v5 0.0
 * @param[out] v6,v7 value
 */
KEZ_API void KEZ_CALL kezsec_b(const int32_t *b, const float *h, const float *value, int32_t *nc,
                               int32_t *nv, float x[], float y[], int32_t *kind, float *sign,
                               float *v1, float *v2, float *v3, float *v4, float *v5, float *v6,
                               float *v7);

/**
 * Outline of a T section, flange on top.
 *
 *     1--------------8
 *     2----3    6----7
 *          |    |
 *          4----5
 *
 * @par Name
 * outline_tee
 *
 * @param[in] b width of the flange (length)
 * @param[in] h total height (length)
 * @param[in] tf,tw thicknesses of the flange and of the stem (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 1
 * @param[out] nv 8
 * @param[out] x,y [8] vertices (length)
 * @param[out] kind 2
 * @param[out] sign 1.0
 * @param[out] v1,v2,v3,v4,v5 0.0
 * @param[out] v6,v7 value
 */
KEZ_API void KEZ_CALL kezsec_t(const float *b, const float *h, const float *tf, const float *tw,
                               const float *value, int32_t *nc, int32_t *nv, float x[], float y[],
                               int32_t *kind, float *sign, float *v1, float *v2, float *v3,
                               float *v4, float *v5, float *v6, float *v7);

/**
 * Outline of an I section that lies on its side: the web runs along x.
 *
 *     1--12
 *     |  |              9--8
 *     |  11------------10  |
 *     |  4--------------5  |
 *     |  |              6--7
 *     2--3
 *
 * @par Name
 * outline_lying_i
 *
 * @param[in] d total depth, along x (length)
 * @param[in] b1,b2 widths of flange 1, at the left, and of flange 2, at the right (length)
 * @param[in] t1,t2 thicknesses of flange 1 and of flange 2 (length)
 * @param[in] tw thickness of the web (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 1
 * @param[out] nv 12
 * @param[out] x,y [12] vertices (length)
 * @param[out] kind 2
 * @param[out] sign 1.0
 * @param[out] v1,v2,v3,v4,v5 0.0
 * @param[out] v6,v7 value
 */
KEZ_API void KEZ_CALL kezsec_h(const float *d, const float *b1, const float *b2, const float *t1,
                               const float *t2, const float *tw, const float *value, int32_t *nc,
                               int32_t *nv, float x[], float y[], int32_t *kind, float *sign,
                               float *v1, float *v2, float *v3, float *v4, float *v5, float *v6,
                               float *v7);

/**
 * Outline of an I section that stands upright. It is that of `kezsec_h` with the web along y and
 * flange 1 on top.
 *
 *     1----------------12
 *     2-----3    10----11
 *           |    |
 *       5---4    9---8
 *       6------------7
 *
 * @par Name
 * outline_standing_i
 *
 * @param[in] d total depth, along y (length)
 * @param[in] b1,b2 widths of flange 1, on top, and of flange 2, at the bottom (length)
 * @param[in] t1,t2 thicknesses of flange 1 and of flange 2 (length)
 * @param[in] tw thickness of the web (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 1
 * @param[out] nv 12
 * @param[out] x,y [12] vertices (length)
 * @param[out] kind 2
 * @param[out] sign 1.0
 * @param[out] v1,v2,v3,v4,v5 0.0
 * @param[out] v6,v7 value
 */
KEZ_API void KEZ_CALL kezsec_ia(const float *d, const float *b1, const float *b2, const float *t1,
                                const float *t2, const float *tw, const float *value, int32_t *nc,
                                int32_t *nv, float x[], float y[], int32_t *kind, float *sign,
                                float *v1, float *v2, float *v3, float *v4, float *v5, float *v6,
                                float *v7);

/**
 * Outline of a one-celled box that lies on its side: `kezsec_h` with two webs.
 *
 *     1--12
 *     |  |              9--8
 *     |  11------------10  |
 *     |  13------------16  |
 *     |  |              |  |
 *     |  14------------15  |
 *     |  4--------------5  |
 *     |  |              6--7
 *     2--3
 *
 * @par Name
 * outline_one_cell_box
 *
 * @param[in] d total depth, along x (length)
 * @param[in] b1,b2 widths of flange 1, at the left, and of flange 2, at the right (length)
 * @param[in] t1,t2 thicknesses of flange 1 and of flange 2 (length)
 * @param[in] tw thickness of each web (length)
 * @param[in] s clear distance between the webs (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 2
 * @param[out] nv [2] 12, 4
 * @param[out] x,y [16] vertices (length)
 * @param[out] kind [2] 2, 2
 * @param[out] sign [2] 1.0, -1.0
 * @param[out] v1,v2,v3,v4,v5 [2] 0.0
 * @param[out] v6,v7 [2] value, -value
 */
KEZ_API void KEZ_CALL kezsec_h1b(const float *d, const float *b1, const float *b2, const float *t1,
                                 const float *t2, const float *tw, const float *s,
                                 const float *value, int32_t *nc, int32_t nv[], float x[],
                                 float y[], int32_t kind[], float sign[], float v1[], float v2[],
                                 float v3[], float v4[], float v5[], float v6[], float v7[]);

/**
 * Outline of a two-celled box that lies on its side: `kezsec_h` with three webs. The upper cell
 * comes before the lower one.
 *
 *     1--12
 *     |  |              9--8
 *     |  11------------10  |
 *     |  13------------16  |
 *     |  14------------15  |
 *     |  17------------20  |
 *     |  18------------19  |
 *     |  4--------------5  |
 *     |  |              6--7
 *     2--3
 *
 * @par Name
 * outline_two_cell_box
 *
 * @param[in] d total depth, along x (length)
 * @param[in] b1,b2 widths of flange 1, at the left, and of flange 2, at the right (length)
 * @param[in] t1,t2 thicknesses of flange 1 and of flange 2 (length)
 * @param[in] tw thickness of each web (length)
 * @param[in] s clear distance between neighbouring webs (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 3
 * @param[out] nv [3] 12, 4, 4
 * @param[out] x,y [20] vertices (length)
 * @param[out] kind [3] 2, 2, 2
 * @param[out] sign [3] 1.0, -1.0, -1.0
 * @param[out] v1,v2,v3,v4,v5 [3] 0.0
 * @param[out] v6,v7 [3] value, -value, -value
 */
KEZ_API void KEZ_CALL kezsec_h2b(const float *d, const float *b1, const float *b2, const float *t1,
                                 const float *t2, const float *tw, const float *s,
                                 const float *value, int32_t *nc, int32_t nv[], float x[],
                                 float y[], int32_t kind[], float sign[], float v1[], float v2[],
                                 float v3[], float v4[], float v5[], float v6[], float v7[]);

/**
 * Outline of a box girder: two flange plates, and two webs between them.
 *
 *     1-----------------------12
 *     2---3  13-------16  10--11
 *         |  |         |  |
 *     5---4  14-------15  9---8
 *     6-----------------------7
 *
 * @par Name
 * outline_box_girder
 *
 * @param[in] bt,bb widths of the top plate and of the bottom plate (length)
 * @param[in] tt,tb thicknesses of the top plate and of the bottom plate (length)
 * @param[in] h total height (length)
 * @param[in] tw thickness of each web (length)
 * @param[in] s clear distance between the webs (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 2
 * @param[out] nv [2] 12, 4
 * @param[out] x,y [16] vertices (length)
 * @param[out] kind [2] 2, 2
 * @param[out] sign [2] 1.0, -1.0
 * @param[out] v1,v2,v3,v4,v5 [2] 0.0
 * @param[out] v6,v7 [2] value, -value
 */
KEZ_API void KEZ_CALL kezsec_box(const float *bt, const float *bb, const float *tt, const float *tb,
                                 const float *h, const float *tw, const float *s,
                                 const float *value, int32_t *nc, int32_t nv[], float x[],
                                 float y[], int32_t kind[], float sign[], float v1[], float v2[],
                                 float v3[], float v4[], float v5[], float v6[], float v7[]);

/**
 * Outline of a rectangular box with a horizontal tab on each side.
 *
 *             1-------------12
 *             |  13-----16  |
 *     3-------2  |       |  11------10
 *     4-------5  |       |  8--------9
 *             |  14-----15  |
 *             6-------------7
 *
 * @par Name
 * outline_tabbed_box
 *
 * @param[in] b,h width without the tabs, and height (length)
 * @param[in] tf thickness of the top and of the bottom (length)
 * @param[in] tw thickness of each side (length)
 * @param[in] w,tt width and thickness of each tab (length)
 * @param[in] y0 height of the tabs' centre above mid-height (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 2
 * @param[out] nv [2] 12, 4
 * @param[out] x,y [16] vertices (length)
 * @param[out] kind [2] 2, 2
 * @param[out] sign [2] 1.0, -1.0
 * @param[out] v1,v2,v3,v4,v5 [2] 0.0
 * @param[out] v6,v7 [2] value, -value
 */
KEZ_API void KEZ_CALL kezsec_tab(const float *b, const float *h, const float *tf, const float *tw,
                                 const float *w, const float *tt, const float *y0,
                                 const float *value, int32_t *nc, int32_t nv[], float x[],
                                 float y[], int32_t kind[], float sign[], float v1[], float v2[],
                                 float v3[], float v4[], float v5[], float v6[], float v7[]);

/**
 * Outline of a rectangular hollow section with sharp corners.
 *
 *     1-----------4
 *     |  5-----8  |
 *     |  |     |  |
 *     |  6-----7  |
 *     2-----------3
 *
 * @par Name
 * outline_hollow_rectangle
 *
 * @param[in] b,h width and height (length)
 * @param[in] t thickness of the wall (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 2
 * @param[out] nv [2] 4, 4
 * @param[out] x,y [8] vertices (length)
 * @param[out] kind [2] 2, 2
 * @param[out] sign [2] 1.0, -1.0
 * @param[out] v1,v2,v3,v4,v5 [2] 0.0
 * @param[out] v6,v7 [2] value, -value
 */
KEZ_API void KEZ_CALL kezsec_rhs(const float *b, const float *h, const float *t, const float *value,
                                 int32_t *nc, int32_t nv[], float x[], float y[], int32_t kind[],
                                 float sign[], float v1[], float v2[], float v3[], float v4[],
                                 float v5[], float v6[], float v7[]);

/**
 * Outline of two equal angles back to back, horizontal legs on top.
 *
 *     1-----------6  7-----------12
 *     2-------3   |  |   10------11
 *             |   |  |   |
 *             4---5  8---9
 *
 * @par Name
 * outline_double_angle
 *
 * @param[in] a length of the horizontal legs (length)
 * @param[in] h length of the vertical legs (length)
 * @param[in] s gap between the vertical legs (length)
 * @param[in] th,tv thicknesses of the horizontal and of the vertical legs (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 2
 * @param[out] nv [2] 6, 6
 * @param[out] x,y [12] vertices (length)
 * @param[out] kind [2] 2, 2
 * @param[out] sign [2] 1.0, 1.0
 * @param[out] v1,v2,v3,v4,v5 [2] 0.0
 * @param[out] v6,v7 [2] value, value
 */
KEZ_API void KEZ_CALL kezsec_l2(const float *a, const float *h, const float *s, const float *th,
                                const float *tv, const float *value, int32_t *nc, int32_t nv[],
                                float x[], float y[], int32_t kind[], float sign[], float v1[],
                                float v2[], float v3[], float v4[], float v5[], float v6[],
                                float v7[]);

/**
 * Outline of a cold-formed channel with sharp corners, web at the left. It has lips, which may
 * return towards the web, and a groove pressed into the web. If c is at most 1.0e-5 it is plain: no
 * lips and no groove. The slots follow the channel: first those in the web, the one at -yw first.
 * Then come those in the flanges, first at xf from the web, and at each place the top one first.
 *
 *     1-----------------------24     1----------8
 *     |  18----------------19  |     |  6-------7
 *     |  |             21--20  |     |  |
 *     |  17            22-----23     |  |
 *     2    16                        |  |
 *       3   |                        |  |
 *       4   |                        |  |
 *     5    15                        |  |
 *     |  14             9------8     |  |
 *     |  |             10--11  |     |  |
 *     |  13----------------12  |     |  5-------4
 *     6------------------------7     2----------3
 *
 * @par Name
 * outline_cold_formed_channel
 *
 * @par Degenerate input
 * If r or a dimension of the groove is 0, edges of no length remain. A groove with a depth but no
 * width (gw = gb = 0) is a solid rib 2 t wide. If c, nw or nf is not a number, it counts as 0.
 *
 * @param[in] b,h,c overall width of the flanges, height, and height of the lips (length)
 * @param[in] t thickness of the wall, also in the groove (length)
 * @param[in] r length of the return from the lip's inner face (length)
 * @param[in] gd depth of the groove (length)
 * @param[in] gw,gb width of the groove's outer face in the web and at its bottom, gb at most gw
 *   (length)
 * @param[in] sw height of each slot in the web (length)
 * @param[in] yw the slots' centres are at y = -yw and at y = yw (length)
 * @param[in] nw number of slots in the web, rounded to 0, 1 (the one at -yw) or 2, halves up
 * @param[in] sf width of each slot in the flanges (length)
 * @param[in] xf distance of the slots' centres from the web's outer face, and of a second pair from
 *   the flanges' outer edges (length)
 * @param[in] nf number of slots in each flange, rounded to 0, 1 or 2, halves up
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 1 and one for each slot
 * @param[out] nv [7] 24 or 8, then 4 for each slot; kept beyond nc
 * @param[out] x,y [48] vertices (length); kept beyond sum(nv, nc)
 * @param[out] kind [7] 2; kept beyond nc
 * @param[out] sign [7] 1.0, then -1.0 for each slot; kept beyond nc
 * @param[out] v1,v2,v3,v4,v5 [7] 0.0; kept beyond nc
 * @param[out] v6,v7 [7] value times sign; kept beyond nc
 */
KEZ_API void KEZ_CALL kezsec_c(const float *b, const float *h, const float *c, const float *t,
                               const float *r, const float *gd, const float *gw, const float *gb,
                               const float *sw, const float *yw, const float *nw, const float *sf,
                               const float *xf, const float *nf, const float *value, int32_t *nc,
                               int32_t nv[], float x[], float y[], int32_t kind[], float sign[],
                               float v1[], float v2[], float v3[], float v4[], float v5[],
                               float v6[], float v7[]);

/**
 * Outline of an upright rolled I section with root fillets and two bolt holes, as 11 contours:
 *
 * | contour | figure                                                                         |
 * |---------|--------------------------------------------------------------------------------|
 * | 1       | the shape without fillets, as `kezsec_ia` has it                               |
 * | 2 to 5  | triangles in the corners between web and flange                                |
 * | 6 to 9  | circular segments of kind 4, which the fillets cut off the triangles           |
 * | 10, 11  | the holes in flange 2                                                          |
 *
 *     1-------------------------12
 *     2------14-13   22-24------11
 *                |    |
 *            25 15    23 34
 *                |    |
 *            28 17    21 31
 *                |    |
 *     5------18-16   19-20-------8
 *       37-40             41-44
 *       38-39             42-43
 *     6--------------------------7
 *
 * The triangles have the vertices 13 to 24. They begin at the corners 3, 4, 9 and 10, not at their
 * top left. A segment is given by the centre of the fillet's arc (25, 28, 31, 34) and the two ends
 * of the arc, such as 14 and 15. As polygons these three points run clockwise: pass them by their
 * kind.
 *
 * @par Name
 * outline_rolled_i
 *
 * @par Degenerate input
 * With r = 0 the segments have no area, and `kezstm` gives not-a-number for them. With dh = 0 the
 * holes have no area.
 *
 * @param[in] d total depth, along y (length)
 * @param[in] b1,b2 widths of flange 1, on top, and of flange 2, at the bottom (length)
 * @param[in] t1,t2 thicknesses of flange 1 and of flange 2 (length)
 * @param[in] tw thickness of the web (length)
 * @param[in] r radius of the fillets (length)
 * @param[in] dh diameter of the holes; 0 gives holes without area (length)
 * @param[in] g gauge: distance between the holes' centres (length)
 * @param[in] value the shape's value, passed through
 * @param[out] nc number of contours: 11
 * @param[out] nv [11] 12, then 3 eight times, then 4 twice
 * @param[out] x,y [44] vertices (length)
 * @param[out] kind [11] 2 five times, 4 four times, 2 twice
 * @param[out] sign [11] 1.0 five times, then -1.0 six times
 * @param[out] v1,v2,v3,v4,v5 [11] 0.0
 * @param[out] v6,v7 [11] value times sign
 */
KEZ_API void KEZ_CALL kezsec_i(const float *d, const float *b1, const float *b2, const float *t1,
                               const float *t2, const float *tw, const float *r, const float *dh,
                               const float *g, const float *value, int32_t *nc, int32_t nv[],
                               float x[], float y[], int32_t kind[], float sign[], float v1[],
                               float v2[], float v3[], float v4[], float v5[], float v6[],
                               float v7[]);

/** @} */

/**
 * @defgroup design Design values
 *
 * Plate buckling after EN 1993-1-5 and EN 1993-1-3, and two constants of channels. Lengths are in
 * one unit and stresses in another; no factor is applied. The routines do not check their inputs:
 * dimensions of 0, for example, give what the arithmetic yields.
 * @{
 */

/**
 * Reduction factor of a plate panel, an internal compression element, for local buckling. With the
 * slenderness lp = b / ((e2 / e1) 28.4 sqrt(k) t):
 *
 *     rho = 1                                           if lp <= 0.5 + sqrt(0.085 - 0.055 psi)
 *     rho = (1 - 0.055 (3 + psi) / lp) / lp, at most 1  otherwise
 *
 * @par Name
 * plate_reduction_factor
 *
 * @par Degenerate input
 * Nothing is checked. k = 0 gives 0 for a positive width.
 *
 * @par Source
 * EN 1993-1-5, 4.4 (4.2)
 *
 * @param[in] b width of the panel (length)
 * @param[in] t thickness (length)
 * @param[in] e1,e2 two numbers with e2 / e1 = sqrt(235 N/mm2 / fy), e.g. sqrt(fy) and sqrt(235)
 * @param[in] psi ratio of the stresses at the panel's edges
 * @param[in] k buckling coefficient
 * @param[out] rho reduction factor
 */
KEZ_API void KEZ_CALL kezro2(const float *b, const float *t, const float *e1, const float *e2,
                             const float *psi, const float *k, float *rho);

/**
 * Effective width of an internal panel under stresses that vary linearly. It is split into the
 * parts next to the edge of the stress s1 and next to the edge of the stress s2. Compression is
 * positive, and s1 is the larger compression. With beff = rho bbar and rho from `kezro2`:
 *
 * | psi = s2 / s1   | k                            | be1                | be2        |
 * |-----------------|------------------------------|--------------------|------------|
 * | 1               | 4                            | 0.5 beff           | 0.5 beff   |
 * | between 1 and 0 | 8.2 / (1.05 + psi)           | 2 beff / (5 - psi) | beff - be1 |
 * | 0               | 7.81                         | 2 beff / 5         | beff - be1 |
 * | between 0, -1   | 7.81 - 6.29 psi + 9.78 psi^2 | 0.4 beff           | 0.6 beff   |
 * | -1              | 23.9                         | 0.4 beff           | 0.6 beff   |
 * | between -1, -3  | 5.98 (1 - psi)^2             | 0.4 beff           | 0.6 beff   |
 * | below -3        | not reduced                  | 0.5 bbar           | 0.5 bbar   |
 *
 * psi counts as 1 also if s2 is greater than s1 by at most 1.0e-5. It counts as -1 if s1 and |s2|
 * differ by less than 1.0e-5, unless |s2| / 3 > s1.
 *
 * bbar is the part of the panel in compression: b, or the shorter b / (1 - psi) if psi < 0. Passing
 * b there is unsafe: the result is 1 - psi times too large, twice at psi = -1.
 *
 * @par Name
 * effective_width_parts
 *
 * @par Measures through
 * `kezro2`
 *
 * @par Deliberate
 * The comparison of s1 and |s2| for psi = -1 is strict: less than 1.0e-5. The others accept a
 * difference of exactly 1.0e-5.
 *
 * @par Degenerate input
 * No row applies, and be1 and be2 are not written, in these cases:
 *
 * - Both stresses are within the tolerance of 0.
 * - s1 is not positive, or s2 is greater than s1 by more than 1.0e-5.
 * - |s2| / 3 is exactly s1, and psi does not count as -1.
 * - A stress is not a number, or both are infinite.
 *
 * Nothing else is checked.
 *
 * @par Source
 * EN 1993-1-5, 4.4 and table 4.1
 *
 * @param[in] b width of the whole panel, for the slenderness (length)
 * @param[in] bbar width in compression, which is reduced: b, or b / (1 - psi) if psi < 0 (length)
 * @param[in] t thickness (length)
 * @param[in] e1,e2 two numbers with e2 / e1 = sqrt(235 N/mm2 / fy), as in `kezro2`
 * @param[in] s1,s2 stresses at the edges (stress)
 * @param[out] be1,be2 effective parts at the edges of s1 and of s2 (length); kept when no row
 *   applies
 */
KEZ_API void KEZ_CALL kezef2(const float *b, const float *bbar, const float *t, const float *e1,
                             const float *e2, const float *s1, const float *s2, float *be1,
                             float *be2);

/**
 * Effective width of a panel in uniform compression whose buckling coefficient follows from the
 * ratio r = b / d. It is rho b, with rho from `kezro2` for psi = 1 and this coefficient k:
 *
 *     k = 0.5                           if r <= 0.35
 *     k = 0.5 + (r - 0.35)^2 / 3        if 0.35 < r <= 0.6
 *
 * @par Name
 * effective_width
 *
 * @par Measures through
 * `kezro2`
 *
 * @par Degenerate input
 * Nothing is checked.
 *
 * @par Source
 * EN 1993-1-3, 5.5.3.2. Above r = 0.35 the standard has 0.5 + 0.83 times the cube root of
 * (r - 0.35)^2, which is larger.
 *
 * @par Kept value
 * The coefficient k. If r is greater than 0.6 or not a number, k is that of the previous call.
 * Before any call it is 0, which gives beff = 0.
 *
 * @param[in] b width of the panel (length)
 * @param[in] d width that it is compared with (length)
 * @param[in] t thickness (length)
 * @param[in] e1,e2 two numbers with e2 / e1 = sqrt(235 N/mm2 / fy), as in `kezro2`
 * @param[out] beff effective width (length)
 */
KEZ_API void KEZ_CALL kezefr(const float *b, const float *d, const float *t, const float *e1,
                             const float *e2, float *beff);

/**
 * Reduction factor of an angle-shaped stiffener or flange outstand that buckles torsionally. The
 * plate to which it is attached holds it by its bending stiffness. In the spring stiffness the
 * lever arm stands for both b1 and b2 of the standard, s for hw and n for kf.
 *
 * The slenderness is iterated: it is sqrt(chi) times that of the full stiffener, until chi changes
 * by at most 0.001. The standard applies sqrt(chi) to the slenderness of the plates only (5.16).
 * This chi is therefore larger, and less safe, than one application of (5.12) gives, if that is
 * below 1: at a slenderness of 1.1 it is 0.771 against 0.675.
 *
 * @par Name
 * stiffener_reduction_factor
 *
 * @par Degenerate input
 * Nothing is checked. If the slenderness of the full stiffener is between about 1.88 and 2.0, the
 * iteration mostly does not settle. Then, or if the slenderness is not finite, chi and tred are 0.
 *
 * @par Source
 * EN 1993-1-3, 5.5.3.1 (5.10b) and (5.12), 5.5.3.2 (5.15)
 *
 * @param[in] t thickness (length)
 * @param[in] b leg towards the plate, between centre-lines (length)
 * @param[in] z distance of the other leg from the plate; z - b^2 / (2 (a + b)) is the spring's
 *   lever arm (length)
 * @param[in] a other leg, between centre-lines (length)
 * @param[in] s depth hw of the restraining plate, the web (length)
 * @param[in] fy yield strength (stress)
 * @param[in] E modulus of elasticity (stress)
 * @param[in] nu Poisson's ratio
 * @param[in] n the ratio kf in whole numbers: 0 if the other flange is in tension, 1 if it is
 *   compressed alike; the spring's length is s + arm + 0.5 n s
 * @param[out] chi reduction factor, 0 when 100 iterations do not settle it
 * @param[out] tred reduced thickness chi t, 0 when 100 iterations do not settle it (length)
 */
KEZ_API void KEZ_CALL kezchi(const float *t, const float *b, const float *z, const float *a,
                             const float *s, const float *fy, const float *E, const float *nu,
                             const int32_t *n, float *chi, float *tred);

/**
 * Distance from the centroid of a channel to its shear centre, along the axis of symmetry. The two
 * lie on opposite sides of the web, and their distances from it add up. Thin-walled theory applies
 * to the centre-lines h = H - t, b = B - t and c = C - t / 2:
 *
 *     x0 = b (b + 2 c) / (h + 2 b + 2 c)
 *        + b (3 b h^2 + 6 c h^2 - 8 c^3) / (h^3 + 6 (b + c) h^2 - 12 c^2 h + 8 c^3)
 *
 * @par Name
 * channel_shear_centre
 *
 * @par Degenerate input
 * Nothing is checked. A lip of at most 1.0e-5 counts as none, with c = 0. A lip shorter than t / 2
 * gives a negative c.
 *
 * @param[in] B overall width of the flanges (length)
 * @param[in] H overall height (length)
 * @param[in] C overall height of the lips, 0 for a plain channel (length)
 * @param[in] t thickness of the wall (length)
 * @param[out] x0 distance (length)
 */
KEZ_API void KEZ_CALL kezshc_c(const float *B, const float *H, const float *C, const float *t,
                               float *x0);

/**
 * Warping constant of a channel. It is the integral, over the area, of the square of the sectorial
 * coordinate about the shear centre less its mean. Thin-walled theory applies to the centre-lines
 * h = H - t, b = B - t and c = C - t / 2. Without a lip:
 *
 *     Iw = t b^3 h^2 (3 b + 2 h) / (12 (6 b + h))
 *
 * @par Name
 * channel_warping_constant
 *
 * @par Degenerate input
 * Nothing is checked. A lip of at most 1.0e-5 counts as none. A lip shorter than t / 2 gives a
 * negative c.
 *
 * @param[in] B overall width of the flanges (length)
 * @param[in] H overall height (length)
 * @param[in] C overall height of the lips, 0 for a plain channel (length)
 * @param[in] t thickness of the wall (length)
 * @param[out] Iw warping constant (length^6)
 */
KEZ_API void KEZ_CALL kezwar_c(const float *B, const float *H, const float *C, const float *t,
                               float *Iw);

/** @} */

/**
 * @defgroup lists Lists
 *
 * A list is an array of 32-bit entries and a count. A count below 1 is an empty list and no error,
 * except for `kezpor`. Some lists may hold reals or integers, whose bits are moved as they are.
 *
 * Some routines strike entries out: they overwrite them by a marker, the largest entry plus 1, in
 * 32-bit integers or in single precision. Callers see markers only where an entry says so.
 *
 * - In single precision adding 1 may change nothing. From a magnitude of 16777216 the marker can
 *   equal the largest entry, and beyond 33554432 it does, for positive and negative entries. That
 *   entry is then treated as a marker.
 * - Above the largest integer the marker wraps to the smallest. Then the markers stand in front and
 *   no entry counts.
 * - Not-a-number is never the largest entry, and every comparison with it is false.
 * - If no entry of a real list is above -3.4028235e38, that number takes the place of the largest
 *   entry.
 *
 * Counts that are passed have no limit. A count that is returned wraps at 32 bits if it exceeds
 * 2147483647: it is 4294967296 too small, or a multiple of that. Only `kezmer1`, `kezmer4`,
 * `kezmer11` and `kezmer13` can return one. All entries are written nevertheless.
 *
 * Lists of up to 500 entries need no memory from the heap. With longer lists some routines of this
 * group and the two that follow allocate memory while they run. If memory runs out, the result is
 * the same unless the entry says otherwise. It may then take time n^2, or n1 n2 with two lists.
 * @{
 */

/**
 * Joins two lists of reals or integers.
 *
 * @par Name
 * join_lists
 *
 * @par Time
 * n1 + n2
 *
 * @param[in] n1 entries of a
 * @param[in] a [n1] first list
 * @param[in] n2 entries of b
 * @param[in] b [n2] second list
 * @param[out] nout entries of out, n1 + n2 with 0 for a count below 1
 * @param[out] out [max(n1, 0) + max(n2, 0)] the entries of a, then those of b
 */
KEZ_API void KEZ_CALL kezmer1(const int32_t *n1, const void *a, const int32_t *n2, const void *b,
                              int32_t *nout, void *out);

/**
 * Joins two lists of reals or integers: `kezmer1` under a second name.
 *
 * @par Second name of
 * `kezmer1`
 *
 * @par Time
 * n1 + n2
 *
 * @param[in] n1 entries of a
 * @param[in] a [n1] first list
 * @param[in] n2 entries of b
 * @param[in] b [n2] second list
 * @param[out] nout entries of out, n1 + n2 with 0 for a count below 1
 * @param[out] out [max(n1, 0) + max(n2, 0)] the entries of a, then those of b
 */
KEZ_API void KEZ_CALL kezmer11(const int32_t *n1, const void *a, const int32_t *n2, const void *b,
                               int32_t *nout, void *out);

/**
 * Distinct values of an integer list, ascending.
 *
 * @par Name
 * distinct_integers
 *
 * @par Time
 * n log n
 *
 * @param[in,out] n entries of a; on return the number of distinct values, 0 when one of them is
 *   2147483647
 * @param[in,out] a [n] the list; on return the distinct values, then markers
 */
KEZ_API void KEZ_CALL kezmer2(int32_t *n, int32_t a[]);

/**
 * Values that occur at least twice in an integer list, once each, ascending.
 *
 * @par Name
 * repeated_integers
 *
 * @par Time
 * n log n
 *
 * @param[in,out] n entries of a; on return the number of repeated values, 0 when a value is
 *   2147483647
 * @param[in,out] a [n] the list; on return the repeated values, then markers
 */
KEZ_API void KEZ_CALL kezmer3(int32_t *n, int32_t a[]);

/**
 * Distinct values of a real list within a tolerance, ascending. In the order of the list, each
 * entry strikes out the later ones that differ from it by less than tol. The marker is the largest
 * entry + 1 + tol.
 *
 * @par Name
 * distinct_reals
 *
 * @par Deliberate
 * Values exactly tol apart stay distinct here. In the other routines with a tolerance they are near
 * each other.
 *
 * @par Degenerate input
 * Entries that are not below the marker are dropped. That includes not-a-number.
 *
 * @par Time
 * n log n
 *
 * @param[in,out] n entries of a; on return the number of distinct values
 * @param[in,out] a [n] the list; on return the distinct values, then the old entries, with markers
 *   over those struck out
 * @param[in] tol tolerance
 */
KEZ_API void KEZ_CALL kezmer12(int32_t *n, float a[], const float *tol);

/**
 * Common and differing entries of two integer lists. Repeated entries are not folded: a value that
 * stands p times in a and q times in b is common p q times.
 *
 * @par Name
 * compare_lists
 *
 * @par Time
 * m log m + ncom with m = n1 + n2
 *
 * @param[in] n1 entries of a
 * @param[in] a [n1] first list
 * @param[in] n2 entries of b
 * @param[in] b [n2] second list
 * @param[out] ncom entries of com
 * @param[out] com [max(n1, 0) * max(n2, 0)] in the order of a, each entry as often as it stands in
 *   b; kept beyond ncom
 * @param[out] ndif entries of dif
 * @param[out] dif [max(n1, 0) + max(n2, 0)] entries of a that are not in b, then entries of b that
 *   are not in a; kept beyond ndif
 */
KEZ_API void KEZ_CALL kezmer4(const int32_t *n1, const int32_t a[], const int32_t *n2,
                              const int32_t b[], int32_t *ncom, int32_t com[], int32_t *ndif,
                              int32_t dif[]);

/**
 * Pairs of near-equal entries of two real lists: every i and j with |a(i) - b(j)| <= tol. They are
 * ordered by i, then by j.
 *
 * @par Name
 * pair_near_values
 *
 * @par Time
 * m log m + nm log nm with m = n1 + n2; n1 n2 if tol is infinite
 *
 * @param[in] n1 entries of a
 * @param[in] a [n1] first list
 * @param[in] n2 entries of b
 * @param[in] b [n2] second list
 * @param[out] nm number of pairs
 * @param[out] ia,ib [max(n1 + n2, max(n1, 0) * max(n2, 0))] positions in a and in b, pair by pair,
 *   then 0 up to entry n1 + n2; kept beyond max(nm, n1 + n2)
 * @param[in] tol tolerance
 */
KEZ_API void KEZ_CALL kezmer13(const int32_t *n1, const float a[], const int32_t *n2,
                               const float b[], int32_t *nm, int32_t ia[], int32_t ib[],
                               const float *tol);

/**
 * Marks the later near-duplicates in a real list. In the order of the list, each entry that is more
 * than tol away from the marker strikes out the later ones that differ from it by at most tol.
 * Nothing is removed.
 *
 * @par Name
 * mark_near_duplicates
 *
 * @par Time
 * n log n
 *
 * @param[in] n entries of a
 * @param[in,out] a [n] the list; on return with markers
 * @param[out] nd number of entries marked
 * @param[out] idx [n - 1] positions of the marked entries, in the order they were marked; kept
 *   beyond nd
 * @param[out] big the marker, the largest entry + 1; -3.4028235e38 for an empty list
 * @param[in] tol tolerance
 */
KEZ_API void KEZ_CALL kezmer14(const int32_t *n, float a[], int32_t *nd, int32_t idx[], float *big,
                               const float *tol);

/**
 * Removes the entries near a value from a real list. Entries that differ from it by more than tol
 * remain, in their order.
 *
 * @par Name
 * remove_near_value
 *
 * @par Degenerate input
 * Not-a-number is removed.
 *
 * @par Time
 * n
 *
 * @param[in] n entries of a
 * @param[in,out] a [n] the list; on return the remaining entries; unchanged beyond nout
 * @param[in] value the value
 * @param[out] nout number of remaining entries; n itself does not change
 * @param[in] tol tolerance
 */
KEZ_API void KEZ_CALL kezmer15(const int32_t *n, float a[], const float *value, int32_t *nout,
                               const float *tol);

/**
 * Distinct values of a real list within a tolerance, without those near a given value. They stay in
 * the order of the list, and a map leads from the list to them. Entries remain if they are more
 * than tol from the value and from the marker (largest entry + 1), and not within tol of an earlier
 * one that remains.
 *
 * @par Name
 * map_distinct_reals
 *
 * @par Degenerate input
 * Not-a-number is left out. With a negative tol it remains if the marker is finite.
 *
 * @par Time
 * n log n
 *
 * @param[in] n entries of a
 * @param[in] a [n] the list
 * @param[out] out [n] the distinct values; kept beyond nout
 * @param[in] value the value to leave out
 * @param[out] nout number of distinct values
 * @param[out] idx [n] for each entry of a the last position in out within tol of it, or 0
 * @param[in] tol tolerance
 */
KEZ_API void KEZ_CALL kezmer19(const int32_t *n, const float a[], float out[], const float *value,
                               int32_t *nout, int32_t idx[], const float *tol);

/**
 * Inserts an entry into a list of reals or integers. The entries from its position on move one
 * place up. The caller adds 1 to the count.
 *
 * @par Name
 * insert_entry
 *
 * @par Time
 * n
 *
 * @param[in] n entries of a before the insertion
 * @param[in,out] a [n + 1] the list; unchanged when pos lies outside 1..n + 1
 * @param[in] pos position of the new entry, from 1, in front, to n + 1, at the end
 * @param[in] value [1] the entry
 */
KEZ_API void KEZ_CALL kezmer16(const int32_t *n, void *a, const int32_t *pos, const void *value);

/**
 * Copies one block out of an array in which blocks of entries stand one after another. An example
 * is one contour out of an outline's coordinates. The entries are reals or integers, whose bits are
 * copied.
 *
 * @par Name
 * extract_block
 *
 * @par Deliberate
 * The counts before the block are added as they are, negative ones too, and their sum wraps at 32
 * bits.
 *
 * @par Degenerate input
 * Nothing is copied if n is below 1, if that sum is below 0, if the count of the block is below 1,
 * or if the sum and that count together exceed 2147483647.
 *
 * @param[in] a ignored
 * @param[in] counts [n] number of entries of each block
 * @param[in] n number of the block
 * @param[in] source [sum(counts, n)] the blocks
 * @param[out] target [counts(n)] entries of block n; kept when nothing is copied
 */
KEZ_API void KEZ_CALL kezadr(const int32_t *a, const int32_t counts[], const int32_t *n,
                             const void *source, void *target);

/** @} */

/**
 * @defgroup orders Orders
 *
 * The group "Lists" says what a list, a marker and an empty list are, and what memory long lists
 * need. Mind the order of the arguments: `kezord`, `kezord1` and `kezordi` take the list before the
 * count, the others the count before the list.
 * @{
 */

/**
 * Sorts a real table into ascending order.
 *
 * @par Name
 * sort_reals
 *
 * @par Degenerate input
 * With not-a-number or with zeros of both signs in the table, the order is that of a selection sort
 * that takes the last of equal minima. If memory runs out, sorting such a table takes n^2.
 *
 * @par Time
 * n log n
 *
 * @param[in,out] x [n] the table
 * @param[in] n entries of the table; nothing is done when below 1
 */
KEZ_API void KEZ_CALL kezord(float x[], const int32_t *n);

/**
 * Sorts an integer table into ascending order.
 *
 * @par Name
 * sort_integers
 *
 * @par Time
 * n log n
 *
 * @param[in,out] ia [n] the table
 * @param[in] n entries of the table; nothing is done when below 1
 */
KEZ_API void KEZ_CALL kezord1(int32_t ia[], const int32_t *n);

/**
 * Order of a real list without moving its entries. The list comes before its count.
 *
 * n passes each choose the smallest entry and overwrite it by a marker, the largest entry plus 1.
 *
 * @par Name
 * order_reals
 *
 * @par Deliberate
 * Of equal entries the one at the highest position comes first.
 *
 * @par Degenerate input
 * If the marker is not larger than every entry, positions may repeat. If v(i) is not-a-number, pass
 * i chooses nothing. If memory runs out for a list of more than 500 entries in one of these two
 * cases, iord is not written.
 *
 * @par Time
 * n log n
 *
 * @param[in] v [n] the list
 * @param[in] n entries of v
 * @param[out] iord [n] positions in v by ascending value; kept when the entry's pass chooses none
 */
KEZ_API void KEZ_CALL kezordi(const float v[], const int32_t *n, int32_t iord[]);

/**
 * Reverses a table of 32-bit entries, reals or integers.
 *
 * @par Name
 * reverse_table
 *
 * @param[in] n entries of the table; nothing is done when below 1
 * @param[in,out] x [n] the table
 */
KEZ_API void KEZ_CALL kezinv(const int32_t *n, void *x);

/**
 * Reverses a list of reals or integers.
 *
 * @par Name
 * reverse_list
 *
 * @par Time
 * n
 *
 * @param[in] n entries of a
 * @param[in,out] a [n] the list
 */
KEZ_API void KEZ_CALL kezmer17(const int32_t *n, void *a);

/**
 * Reverses a list of reals or integers: `kezmer17` under a second name.
 *
 * @par Second name of
 * `kezmer17`
 *
 * @par Time
 * n
 *
 * @param[in] n entries of a
 * @param[in,out] a [n] the list
 */
KEZ_API void KEZ_CALL kezmer18(const int32_t *n, void *a);

/**
 * Order of parallel lines a(i) x + b(i) y + c(i) = 0 across their direction, by ascending
 * intercept. If `kezlni` finds the first line parallel to the y axis and distinct from it, the
 * intercepts are -c / a on the x axis, else -c / b on the y axis. Lines other than the first are
 * compared with it only: they may coincide with one another.
 *
 * Divide each line by sqrt(a^2 + b^2) first: `kezlni` compares products of the coefficients as they
 * are, which grow with the distance between the points that gave them.
 *
 * @par Name
 * order_parallel_lines
 *
 * @par Measures through
 * `kezlni`
 *
 * @par Deliberate
 * A first line that is the y axis itself does not count as parallel to it: its intercept -c / b
 * divides by zero. `kezordi` puts the last of equal intercepts first.
 *
 * @par Accuracy
 * Rounding makes nominally parallel lines by `kezln3` cross for `kezlni`. Typically such pairs are
 * still ordered if the points have coordinates up to 3. At worst 4 of 5 pairs are not, from
 * coordinates of 100 on. Divided first, they are all ordered if the points of a line are at least
 * 1/100 of their coordinates apart.
 *
 * @par Time
 * n log n
 *
 * @param[in] n number of lines
 * @param[in] a,b,c [n] the lines
 * @param[out] iord [n] 1, 2, ..., n when status is -1, else the lines by ascending intercept, as
 *   `kezordi` orders them; kept when `kezordi` keeps the entry
 * @param[out] status 0 ordered; -1 when there is no line, when `kezlni` does not find each other
 *   line parallel to the first and distinct from it, or when memory ran out
 */
KEZ_API void KEZ_CALL kezpor(const int32_t *n, const float a[], const float b[], const float c[],
                             int32_t iord[], int32_t *status);

/**
 * Puts the corners of a quadrilateral into an order in which its outline does not cross itself. The
 * first corner stays the first. The order (1, 2, 3, 4) is tried, then (1, 2, 4, 3). If both are
 * rejected, (1, 4, 2, 3) is taken.
 *
 * The diagonal from its first corner divides an order into two triangles. The order is rejected if
 * the dot product of their normals is below zero.
 *
 * @par Name
 * order_quadrilateral
 *
 * @par Degenerate input
 * Degenerate corners stay in their order.
 *
 * @param[in,out] X,Y,Z [4] the corners, rewritten in the order found (length)
 * @param[out] order [4] position at which each corner of the outline was passed in
 */
KEZ_API void KEZ_CALL kezorv(float X[], float Y[], float Z[], int32_t order[]);

/** @} */

/**
 * @defgroup polygons Polygons and slabs
 *
 * A polygon is a list of n vertices in order, clockwise or counter-clockwise. X and Y must have
 * n + 1 entries: the routines first copy vertex 1 to entry n + 1, also for n = 0, not for n < 0.
 * Shorter arrays are overrun without any warning.
 *
 * A plane is the quadruple (A, B, C, D) of A x + B y + C z + D = 0 with the normal (A, B, C), which
 * is not normalised. A slab is the space between two parallel planes.
 *
 * The group "Lists" says what memory large polygons need.
 * @{
 */

/**
 * Whether an outline is convex: the sum of its vertex angles is compared with (n - 2) pi. A vertex
 * angle is the smaller one between the edges.
 *
 * @par Name
 * is_convex_polygon
 *
 * @par Measures through
 * `kezphi`
 *
 * @par Degenerate input
 * A repeated vertex has the angle 0, and the outline counts as not convex. Two vertices may give 0
 * or -1.
 *
 * @par Accuracy
 * The sum has one tolerance of 1.0e-5 rad, so rounding alone can make a convex outline count as not
 * convex. Typically it does so to no outline of up to 14 vertices, to 1 in 100 of 20, 1 in 5 of 30,
 * and 3 in 4 of 60. At worst it does so to half of those with a vertex on a straight slanting edge.
 *
 * @param[in,out] X,Y [n + 1] the vertices (length); entry n + 1 becomes the first
 * @param[in] n number of vertices
 * @param[out] flag 0 convex, -1 not; -1 when n is below 2
 */
KEZ_API void KEZ_CALL kezcnv(float X[], float Y[], const int32_t *n, int32_t *flag);

/**
 * Position of a point against a polygon. The point is inside if the outline crosses the horizontal
 * through it an odd number of times to its left or to its right. A crossing within 1.0e-5 of a
 * vertex counts for both edges.
 *
 * @par Name
 * point_in_polygon
 *
 * @par Measures through
 * `kezln3`, `kezlni`, `kezpsl`
 *
 * @par Deliberate
 * The polygon comes back closed and moved, with the point as its origin.
 *
 * @par Degenerate input
 * A point level with a vertex may be reported inside although it is outside, or the reverse: the
 * centre of a diamond is outside. To be sure, turn polygon and point a little before the call
 * (`kezrot`), so that no vertex is level with the point.
 *
 * @par Accuracy
 * Near an end of an edge, rounding alone can make a point on the edge count as off it.
 *
 * @par Time
 * n
 *
 * @param[in] n number of vertices; below 1 the point is outside, below 0 nothing is moved
 * @param[in,out] X,Y [n + 1] the vertices, of which n, and at least the first, are read; on return
 *   moved by (-px, -py), with the first repeated after the last (length)
 * @param[in] px,py the point (length)
 * @param[out] status 0 inside, -1 outside, 100 on an edge or a vertex, as `kezpsl` finds it: up to
 *   about 1/900 of its length beside an edge's middle
 */
KEZ_API void KEZ_CALL kezppp(const int32_t *n, float X[], float Y[], const float *px,
                             const float *py, int32_t *status);

/**
 * Cuts a polygon along a line. The points at which the line crosses an edge, away from its ends
 * (1.0e-5 in x or in y), are inserted into the outline. Then the vertices go to two parts by the
 * sign of y, whatever the line. To cut along a line other than the x axis, first move and turn the
 * polygon until that line is the x axis. Vertices within 1.0e-5 of the x axis belong to both parts.
 *
 * @par Name
 * cut_polygon
 *
 * @par Measures through
 * `kezln3`, `kezlni`
 *
 * @par Degenerate input
 * If memory runs out with more than 500 vertices, n1, n2 and length are 0.
 *
 * @par Accuracy
 * length adds its pieces up in single precision: a piece shorter than 3e-8 of the sum adds nothing.
 * The relative error is typically 1e-6 with 1,000 pieces and 1e-5 with 100,000. At worst it is 1e-5
 * and 1e-4.
 *
 * @par Time
 * n log n
 *
 * @param[in] n number of vertices; below 1 both parts are empty
 * @param[in,out] X,Y [n + 1] the vertices, of which n are read; on return with the first repeated
 *   after the last (length)
 * @param[in] a,b,c the line a x + b y + c = 0
 * @param[out] n1 vertices of part 1
 * @param[out] X1,Y1 [2 * n] part 1, y >= -1.0e-5 (length); kept beyond n1
 * @param[out] n2 vertices of part 2
 * @param[out] X2,Y2 [2 * n] part 2, y <= 1.0e-5 (length); kept beyond n2
 * @param[out] length sum of the gaps between the first and second, third and fourth, ... inserted
 *   point of part 1 by ascending x: the length of the x axis inside the polygon, if it passes
 *   through no vertex (length)
 */
KEZ_API void KEZ_CALL kezpin(const int32_t *n, float X[], float Y[], const float *a, const float *b,
                             const float *c, int32_t *n1, float X1[], float Y1[], int32_t *n2,
                             float X2[], float Y2[], float *length);

/**
 * Positions of points against the slab between two parallel planes. The planes must be distinct:
 * `kezdirp` must give 1 or 2. A point is on a plane if the plane's value A x + B y + C z + D there
 * is less than 1.0e-5 from 0. If the normal is not of unit length, that value is no distance.
 *
 * | code | meaning                                              |
 * |------|------------------------------------------------------|
 * | 1    | on the first plane and not on the second             |
 * | 2    | on the second plane                                  |
 * | 3    | between the planes                                   |
 * | 4    | outside                                              |
 * | 100  | not classified: planes not parallel, or not distinct |
 *
 * @par Name
 * points_in_slab
 *
 * @par Measures through
 * `kezdirp`
 *
 * @par Deliberate
 * `kezdirp` finds whether parallel planes are distinct by one component of their normals only: the
 * last one that it can divide by, even if the components disagree by rounding.
 *
 * @par Degenerate input
 * Planes closer together than 1.0e-5 of their distance from the origin count as not distinct.
 *
 * @par Accuracy
 * Points rounded onto a slanting plane with a unit normal typically count as on it: all of them up
 * to coordinates of 30. At worst 1 in 7 is missed up to coordinates of 300, and 3 in 5 up to 1,000.
 * See "Coordinates far from the origin".
 *
 * @par Time
 * n
 *
 * @param[in] A1,B1,C1,D1 first plane
 * @param[in,out] A2,B2,C2,D2 second plane; comes back negated when the planes are parallel and
 *   distinct and its normal points the same way as that of the first, also when n is below 1
 * @param[in] n number of points
 * @param[in] X,Y,Z [n] the points (length)
 * @param[out] code [n] their positions
 */
KEZ_API void KEZ_CALL kezptp1(const float *A1, const float *B1, const float *C1, const float *D1,
                              float *A2, float *B2, float *C2, float *D2, const int32_t *n,
                              const float X[], const float Y[], const float Z[], int32_t code[]);

/**
 * Points on the faces and inside a box of three slabs, each classified by `kezptp1`. On the faces
 * are all points on one of the six planes, even if they are outside the other slabs. Inside are
 * those between the planes of all three slabs.
 *
 * @par Name
 * points_in_box
 *
 * @par Measures through
 * `kezptp1`
 *
 * @par Deliberate
 * `kezdirp` finds whether parallel planes are distinct by one component of their normals only: the
 * last one that it can divide by, even if the components disagree by rounding.
 *
 * @par Time
 * n
 *
 * @param[in] A1,B1,C1,D1 slab 1, first plane
 * @param[in,out] A2,B2,C2,D2 slab 1, second plane; may come back negated
 * @param[in] A3,B3,C3,D3 slab 2, first plane
 * @param[in,out] A4,B4,C4,D4 slab 2, second plane; may come back negated
 * @param[in] A5,B5,C5,D5 slab 3, first plane
 * @param[in,out] A6,B6,C6,D6 slab 3, second plane; may come back negated
 * @param[in] n number of points
 * @param[in] X,Y,Z [n] the points (length)
 * @param[in] mode 1 points on the faces, 2 points inside, 3 both
 * @param[out] code1,code2,code3 [n] positions against slab 1, 2 and 3
 * @param[out] nout entries of out; kept when mode is not 1, 2 or 3
 * @param[out] out [n] positions of the points in X, Y and Z: ascending those on the faces, then
 *   ascending those inside; kept beyond nout
 */
KEZ_API void KEZ_CALL kezptp2(const float *A1, const float *B1, const float *C1, const float *D1,
                              float *A2, float *B2, float *C2, float *D2, const float *A3,
                              const float *B3, const float *C3, const float *D3, float *A4,
                              float *B4, float *C4, float *D4, const float *A5, const float *B5,
                              const float *C5, const float *D5, float *A6, float *B6, float *C6,
                              float *D6, const int32_t *n, const float X[], const float Y[],
                              const float Z[], const int32_t *mode, int32_t code1[],
                              int32_t code2[], int32_t code3[], int32_t *nout, int32_t out[]);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
