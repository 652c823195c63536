/* What the pictures of the example hosts share: the page and its texts. */
#ifndef SVG_H
#define SVG_H

#include <stdio.h>

/* Classes: title, head (bold), mid, end (anchors; the start else), halo (over lines). */
void begin_picture(FILE* svg, int width, int height);
void put_text(FILE* svg, const char* style, double x, double y, const char* format, ...);
void put_name(FILE* svg, const char* style, double x, double y, const char* name);

/* A number in a circle. */
void put_bubble(FILE* svg, double x, double y, int number);

float round_step(float length);

#endif
