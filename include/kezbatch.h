/**
 * @file kezbatch.h
 * One call for many: calls a routine of kezlib.h for arrays of arguments.
 */
#ifndef KEZBATCH_H
#define KEZBATCH_H

#include "kezlib.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Calls a routine several times, in order. Argument i (0-based) of the first call is at address[i].
 * For each further call it is step[i] bytes further. A step of 0 gives all calls the same address;
 * a step can be negative.
 *
 *     // Distances of 1000 points from one point. The coordinates stand together: x, y, z, x, ...
 *     const int32_t arguments = 7, count = 1000;
 *     void *const address[] = {&p[0], &p[1], &p[2], &q[0], &q[1], &q[2], d};
 *     const intptr_t step[] = {12, 12, 12, 0, 0, 0, 4};
 *     kezbatch("kezpds", &arguments, &count, address, step, &status);
 *
 * The results are those of single calls to the bit, kept values included. If an output of one call
 * is an input of the next, the next call reads what the one before has written. The address of a
 * callback is the host's routine itself, with step 0. kezbatch takes no memory, and is as re-entrant
 * as the routine that it calls.
 *
 * | status | meaning                                                       |
 * |--------|---------------------------------------------------------------|
 * | 0      | done; with a count below 1 nothing is called                  |
 * | 1      | there is no routine of that name; nothing is called           |
 * | 2      | the routine has another number of arguments; nothing is called |
 *
 * @param[in] routine name of the routine, e.g. "kezpds", ended by a zero byte
 * @param[in] arguments number of its arguments
 * @param[in] count number of calls
 * @param[in] address [arguments] what the first call gets
 * @param[in] step [arguments] bytes from each call's argument to the next call's
 * @param[out] status see the table; written after the last call
 */
KEZ_API void KEZ_CALL kezbatch(const char *routine, const int32_t *arguments, const int32_t *count,
                               void *const address[], const intptr_t step[], int32_t *status);

#ifdef __cplusplus
}
#endif

#endif
