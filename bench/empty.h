/* Routines that do nothing, with as many arguments as those measured beside them. */
#ifdef __cplusplus
extern "C" {
#endif
void empty7(const float* a, const float* b, const float* c, const float* d, const float* e,
            const float* f, float* g);
void empty9(const float* a, const float* b, const float* c, const float* d, const float* e,
            const float* f, const float* g, float* h, float* i);
#ifdef __cplusplus
}
#endif
