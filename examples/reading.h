/* Reading the example hosts' files: one item a line, # begins a comment, faults go to stderr as
 * "file:line: reason". */
#ifndef READING_H
#define READING_H

#include <stdbool.h>

enum { MAX_NAME = 31 };

typedef struct {
  const char* path;
  int number; /* of the line being read; 0 outside of lines */
  bool good;  /* no fault so far */
} Reader;

bool complain(Reader* reader, const char* format, ...);

/* Numbers between -farthest and farthest. */
bool take_numbers(Reader* reader, char** rest, float numbers[], int count, float farthest);

/* What remains of the line, without the blanks around it; there may be none. */
bool take_name(Reader* reader, const char* rest, char name[MAX_NAME + 1]);

/* Gives every item its word and what follows it. False when there was a fault. */
typedef bool TakeItem(Reader* reader, const char* word, char* rest, void* result);
bool read_items(Reader* reader, TakeItem* take_item, void* result);

#endif
