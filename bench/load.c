/* Prints how many nanoseconds it takes to load a library: load FILE. */
#define _POSIX_C_SOURCE 199309L
#include <dlfcn.h>
#include <stdio.h>
#include <time.h>

int main(int argc, char** argv) {
  struct timespec begin, end;
  clock_gettime(CLOCK_MONOTONIC, &begin);
  if (argc != 2 || !dlopen(argv[1], RTLD_NOW)) {
    fprintf(stderr, "load: %s\n", argc == 2 ? dlerror() : "one file, please");
    return 1;
  }
  clock_gettime(CLOCK_MONOTONIC, &end);
  printf("%ld\n", (end.tv_sec - begin.tv_sec) * 1000000000L + (end.tv_nsec - begin.tv_nsec));
  return 0;
}
