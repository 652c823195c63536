#include "reading.h"

#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

bool complain(Reader* reader, const char* format, ...) {
  va_list values;
  va_start(values, format);
  fprintf(stderr, "%s:", reader->path);
  if (reader->number > 0) fprintf(stderr, "%d:", reader->number);
  fputc(' ', stderr);
  vfprintf(stderr, format, values);
  fputc('\n', stderr);
  va_end(values);
  reader->good = false;
  return false;
}

static const char blanks[] = " \t\r\n";

static char* take_word(char** rest) {
  char* word = *rest + strspn(*rest, blanks);
  char* end = word + strcspn(word, blanks);
  *rest = *end == '\0' ? end : end + 1;
  *end = '\0';
  return word;
}

bool take_numbers(Reader* reader, char** rest, float numbers[], int count, float farthest) {
  for (int i = 0; i < count; i++) {
    const char* word = take_word(rest);
    if (*word == '\0') return complain(reader, "%d numbers needed, %d given", count, i);
    char* end;
    numbers[i] = strtof(word, &end);
    if (*end != '\0') return complain(reader, "'%s' is not a number (%d are needed)", word, count);
    if (!(numbers[i] >= -farthest && numbers[i] <= farthest))
      return complain(reader, "'%s' is outside +-%.0f", word, (double)farthest);
  }
  return true;
}

bool take_name(Reader* reader, const char* rest, char name[MAX_NAME + 1]) {
  rest += strspn(rest, blanks);
  size_t length = strlen(rest);
  while (length > 0 && strchr(blanks, rest[length - 1])) length--;
  if (length > MAX_NAME) return complain(reader, "name longer than %d characters", MAX_NAME);
  for (size_t i = 0; i < length; i++)
    if (rest[i] < ' ' || rest[i] > '~')
      return complain(reader, "name with a character that is not printable ASCII");
  memcpy(name, rest, length);
  name[length] = '\0';
  return true;
}

/* Reads up to the line's end, whatever fits into text. */
static bool next_line(Reader* reader, FILE* file, char* text, int size) {
  if (!fgets(text, size, file)) return false;
  reader->number++;
  if (strchr(text, '\n') || feof(file)) return true;
  for (int c = getc(file); c != '\n' && c != EOF;) c = getc(file);
  complain(reader, "longer than %d characters", size - 2);
  text[0] = '\0';
  return true;
}

static void read_item(Reader* reader, char* text, TakeItem* take_item, void* result) {
  text[strcspn(text, "#")] = '\0';
  const char* word = take_word(&text);
  if (*word != '\0') take_item(reader, word, text, result);
}

bool read_items(Reader* reader, TakeItem* take_item, void* result) {
  char text[256];
  reader->good = true;
  FILE* file = fopen(reader->path, "r");
  if (!file) return complain(reader, "%s", strerror(errno));
  while (next_line(reader, file, text, sizeof text)) read_item(reader, text, take_item, result);
  reader->number = 0;
  if (ferror(file)) complain(reader, "%s", strerror(errno));
  fclose(file);
  return reader->good;
}
