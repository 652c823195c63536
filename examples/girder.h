/* Section values of steel girders and members: what the parts of the program share.
 *
 * Lengths are in mm, forces in N, stresses in N/mm2 with compression positive. x runs across the
 * section and y up, from the middle of its overall width and height, as KezLib's builders have it:
 * Ix is the Eurocodes' Iy, Iy their Iz. */
#ifndef GIRDER_H
#define GIRDER_H

#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>

#include "plane.h"
#include "reading.h"

enum { MAX_DIMS = 7, MAX_SECTIONS = 50, MAX_PLATES = 8 };
enum { MAX_CONTOURS = 11, MAX_VERTICES = 48, CHORDS = 128, MAX_POINTS = CHORDS + 1 };

typedef enum { GIRDER, ROLLED, TEE, BOX, RHS, ANGLES, CHANNEL, SHAPES } Shape;

typedef struct {
  const char* word; /* in the file */
  const char* dims[MAX_DIMS];
  int count;
} ShapeInfo;

extern const ShapeInfo shapes[SHAPES];

typedef struct {
  char name[MAX_NAME + 1];
  Shape shape;
  float dims[MAX_DIMS]; /* as shapes names them */
  float fy;
  float N, M; /* M turns about x and compresses the top where it is positive (Nmm) */
} Section;

typedef struct {
  Section sections[MAX_SECTIONS];
  int count;
} Job;

/* The record of KezLib's builders. */
typedef struct {
  int32_t count, vertices[MAX_CONTOURS], kind[MAX_CONTOURS];
  float x[MAX_VERTICES], y[MAX_VERTICES], sign[MAX_CONTOURS], v[7][MAX_CONTOURS];
} Outline;

/* One contour, with room for the closing vertex. */
typedef struct {
  int32_t n, kind;
  float sign, x[MAX_POINTS + 1], y[MAX_POINTS + 1];
} Contour;

typedef struct {
  float area;
  Point centroid;
  float Ix, Iy, Ixy;   /* about the centroid */
  float Iu, Iv, theta; /* principal, u at the angle theta from x (rad) */
} Properties;

/* UNRULED: what KezLib has no effective width of: a web with slots, a slender outstand, a lip that
 * is too long for kezefr or partly in tension. */
typedef enum { INTERNAL, LIP, OUTSTAND, UNRULED } Support;

/* A plate as the outline's vertices have it: its face from a, the supported edge, to b, and c to d,
 * a line in the opposite face. */
typedef struct {
  const char* name;
  Support support;
  int8_t a, b, c, d;
  int8_t inner; /* the side free for its number: 1 beyond the opposite face, -1 before face a-b */
  bool chain;   /* whether the picture has room for its effective widths */
} Panel;

/* A plate in compression. It begins in compression, an internal one at the larger. */
typedef struct {
  const Panel* panel;
  Support support;
  Point a, b, across;   /* across: from face a-b to the opposite one */
  bool turned;          /* begins where its panel ends */
  float width, t;       /* width between the faces of its neighbours */
  float s1, s2;         /* stresses at a and b, half way through the plate */
  float compressed;     /* width from a on */
  float be1, be2, lost; /* lost: not effective, between be1 and be2 */
  float rho;            /* what is left of the compressed width, as a ratio */
  float limit;          /* of an outstand: the largest width/t that is not reduced */
} Plate;

typedef struct {
  const Section* given;
  Outline outline;
  float left, right, bottom, top;
  Properties gross, effective;
  Plate plates[MAX_PLATES];
  int plate_count;
  float shear_centre; /* distance from the centroid, and warping constant; 0 but for channels */
  float Iw;
} Result;

/* 0 where a handbook has none. */
typedef struct {
  double area, x, y, Ix, Iy, Ixy, shear_centre, Iw;
} Handbook;

/* One value of a section, in a unit of the given size. 0 where there is none. */
typedef struct {
  const char *what, *symbol, *unit;
  double size;
  float gross, effective;
  double book;
} Value;

typedef struct {
  Value rows[13];
  int count;
} Values;

bool read_job(const char* path, Job* job);

/* Geometry, all of it KezLib's. */
Outline build(const Section* section);
Point vertex(const Outline* outline, int number);
Contour contour(const Outline* outline, int32_t number);
Properties properties(const Contour contours[], int count);
Result analyse(const Section* section);
Point turn(Point p, float angle);
float stress_at(const Result* result, Point p);

/* The compressed plates, and the contours of what is not effective of them. */
void find_plates(Result* result);
Contour lost_part(const Plate* plate);
Point across_at(const Plate* plate, float from_a, bool far_side);

Handbook handbook(const Section* section);

void list_values(const Result* result, Values* values);
bool is_reduced(const Result* result);

/* Of a number with so many digits. */
int decimals(double value, int digits);

void draw(FILE* svg, int number, const Result* result);
void put_title(FILE* svg, int number, const Section* section);
void put_list(FILE* svg, const Result* result);

#endif
