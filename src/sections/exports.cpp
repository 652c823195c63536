#include <algorithm>

#include "../frame/arguments.h"
#include "../frame/tables.h"
#include "channel.h"
#include "plate_buckling.h"
#include "shapes.h"

using namespace kez;

namespace {

// Where the caller wants a section: variables for a shape of one contour, arrays for the others.
struct SectionArguments {
  int32_t *nc, *nv;
  float *x, *y;
  int32_t* kind;
  float *sign, *v1, *v2, *v3, *v4, *v5, *v6, *v7;
};

void store(const Contour& contour, float value, std::size_t i, const SectionArguments& to) {
  to.nv[i] = contour.vertex_count;
  to.kind[i] = code_of(contour.kind);
  to.sign[i] = contour.sign;
  for (float* const zero : {to.v1, to.v2, to.v3, to.v4, to.v5}) zero[i] = 0;
  to.v6[i] = to.v7[i] = value * contour.sign;
}

void store(const Section& section, float value, const SectionArguments& to) {
  *to.nc = static_cast<int32_t>(section.contours().size());
  for (std::size_t i = 0; i < section.vertices().size(); ++i) {
    store(section.vertices()[i], &to.x[i], &to.y[i]);
  }
  for (std::size_t i = 0; i < section.contours().size(); ++i) {
    store(section.contours()[i], value, i, to);
  }
}

}  // namespace

extern "C" {

void KEZ_CALL kezlul(const int32_t* n, const float x[], const float* lo, const float* hi,
                     int32_t* count, int32_t idx[], float* d1, float* d2) {
  const auto found = find_range(entries(x, *n), *lo, *hi, entries(idx, *n));
  if (found) {
    *d1 = found->below;
    *d2 = found->above;
  }
  *count = found ? found->count : 0;
}

void KEZ_CALL kezsec_b(const int32_t* b, const float* h, const float* value, int32_t* nc,
                       int32_t* nv, float x[], float y[], int32_t* kind, float* sign, float* v1,
                       float* v2, float* v3, float* v4, float* v5, float* v6, float* v7) {
  store(flat_bar(*b, *h), *value, {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_t(const float* b, const float* h, const float* tf, const float* tw,
                       const float* value, int32_t* nc, int32_t* nv, float x[], float y[],
                       int32_t* kind, float* sign, float* v1, float* v2, float* v3, float* v4,
                       float* v5, float* v6, float* v7) {
  store(tee(*b, *h, *tf, *tw), *value, {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_h(const float* d, const float* b1, const float* b2, const float* t1,
                       const float* t2, const float* tw, const float* value, int32_t* nc,
                       int32_t* nv, float x[], float y[], int32_t* kind, float* sign, float* v1,
                       float* v2, float* v3, float* v4, float* v5, float* v6, float* v7) {
  store(lying_i({*d, *b1, *b2, *t1, *t2}, *tw), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_ia(const float* d, const float* b1, const float* b2, const float* t1,
                        const float* t2, const float* tw, const float* value, int32_t* nc,
                        int32_t* nv, float x[], float y[], int32_t* kind, float* sign, float* v1,
                        float* v2, float* v3, float* v4, float* v5, float* v6, float* v7) {
  store(standing_i({*d, *b1, *b2, *t1, *t2}, *tw), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_h1b(const float* d, const float* b1, const float* b2, const float* t1,
                         const float* t2, const float* tw, const float* s, const float* value,
                         int32_t* nc, int32_t nv[], float x[], float y[], int32_t kind[],
                         float sign[], float v1[], float v2[], float v3[], float v4[], float v5[],
                         float v6[], float v7[]) {
  store(one_cell({*d, *b1, *b2, *t1, *t2}, *tw, *s), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_h2b(const float* d, const float* b1, const float* b2, const float* t1,
                         const float* t2, const float* tw, const float* s, const float* value,
                         int32_t* nc, int32_t nv[], float x[], float y[], int32_t kind[],
                         float sign[], float v1[], float v2[], float v3[], float v4[], float v5[],
                         float v6[], float v7[]) {
  store(two_cells({*d, *b1, *b2, *t1, *t2}, *tw, *s), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_box(const float* bt, const float* bb, const float* tt, const float* tb,
                         const float* h, const float* tw, const float* s, const float* value,
                         int32_t* nc, int32_t nv[], float x[], float y[], int32_t kind[],
                         float sign[], float v1[], float v2[], float v3[], float v4[], float v5[],
                         float v6[], float v7[]) {
  store(box_girder({*bt, *bb, *tt, *tb, *h, *tw, *s}), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_tab(const float* b, const float* h, const float* tf, const float* tw,
                         const float* w, const float* tt, const float* y0, const float* value,
                         int32_t* nc, int32_t nv[], float x[], float y[], int32_t kind[],
                         float sign[], float v1[], float v2[], float v3[], float v4[], float v5[],
                         float v6[], float v7[]) {
  store(tabbed_box({*b, *h, *tf, *tw, *w, *tt, *y0}), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_rhs(const float* b, const float* h, const float* t, const float* value,
                         int32_t* nc, int32_t nv[], float x[], float y[], int32_t kind[],
                         float sign[], float v1[], float v2[], float v3[], float v4[], float v5[],
                         float v6[], float v7[]) {
  store(hollow_rectangle(*b, *h, *t), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_l2(const float* a, const float* h, const float* s, const float* th,
                        const float* tv, const float* value, int32_t* nc, int32_t nv[], float x[],
                        float y[], int32_t kind[], float sign[], float v1[], float v2[], float v3[],
                        float v4[], float v5[], float v6[], float v7[]) {
  store(double_angle(*a, *h, *s, *th, *tv), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_c(const float* b, const float* h, const float* c, const float* t,
                       const float* r, const float* gd, const float* gw, const float* gb,
                       const float* sw, const float* yw, const float* nw, const float* sf,
                       const float* xf, const float* nf, const float* value, int32_t* nc,
                       int32_t nv[], float x[], float y[], int32_t kind[], float sign[], float v1[],
                       float v2[], float v3[], float v4[], float v5[], float v6[], float v7[]) {
  store(folded_channel({*b, *h, *c, *t, *r, {*gd, *gw, *gb}, {*sw, *yw, *nw}, {*sf, *xf, *nf}}),
        *value, {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezsec_i(const float* d, const float* b1, const float* b2, const float* t1,
                       const float* t2, const float* tw, const float* r, const float* dh,
                       const float* g, const float* value, int32_t* nc, int32_t nv[], float x[],
                       float y[], int32_t kind[], float sign[], float v1[], float v2[], float v3[],
                       float v4[], float v5[], float v6[], float v7[]) {
  store(rolled_i({*d, *b1, *b2, *t1, *t2}, {*tw, *r, *dh, *g}), *value,
        {nc, nv, x, y, kind, sign, v1, v2, v3, v4, v5, v6, v7});
}

void KEZ_CALL kezro2(const float* b, const float* t, const float* e1, const float* e2,
                     const float* psi, const float* k, float* rho) {
  *rho = reduction_factor({*b, *t, *e1, *e2}, *psi, *k);
}

void KEZ_CALL kezef2(const float* b, const float* bbar, const float* t, const float* e1,
                     const float* e2, const float* s1, const float* s2, float* be1, float* be2) {
  store(effective_parts({*b, *t, *e1, *e2}, *bbar, *s1, *s2), be1, be2);
}

void KEZ_CALL kezefr(const float* b, const float* d, const float* t, const float* e1,
                     const float* e2, float* beff) {
  static float coefficient = 0;
  *beff = effective_width({*b, *t, *e1, *e2}, *d, coefficient);
}

void KEZ_CALL kezchi(const float* t, const float* b, const float* z, const float* a, const float* s,
                     const float* fy, const float* E, const float* nu, const int32_t* n, float* chi,
                     float* tred) {
  store(reduce_stiffener({*t, *b, *z, *a, *s, *fy, *E, *nu, *n}), chi, tred);
}

void KEZ_CALL kezshc_c(const float* B, const float* H, const float* C, const float* t, float* x0) {
  *x0 = shear_centre_offset({*B, *H, *C, *t});
}

void KEZ_CALL kezwar_c(const float* B, const float* H, const float* C, const float* t, float* Iw) {
  *Iw = warping_constant({*B, *H, *C, *t});
}

void KEZ_CALL kezadr(const int32_t*, const int32_t counts[], const int32_t* n, const void* source,
                     void* target) {
  const auto block = last_block(entries(counts, *n));
  if (!block) return;
  std::copy_n(static_cast<const RawWord*>(source) + block->offset, block->count,
              static_cast<RawWord*>(target));
}

}  // extern "C"
