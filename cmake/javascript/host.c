// What the library calls outside itself, where there is neither a file nor an address of a host's
// routine.
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "kezlib.h"

// The host's routine that the present call was given, in the package's call.js.
__attribute__((import_module("host"), import_name("z_callback"))) float z_callback(
    const int32_t* i);

// What is passed for it.
__attribute__((export_name("z_callback"))) kez_z_callback z_callback_address(void) {
  return z_callback;
}

// Views of a memory that has grown are made again before they are used.
void emscripten_notify_memory_growth(size_t index) {
  (void)index;
}

// No file can be opened, so that the report of kezcin goes nowhere, and nothing else is imported
// for it.
int open(const char* path, int flags, ...) {
  (void)path, (void)flags;
  errno = ENOENT;
  return -1;
}

int stat(const char* path, struct stat* found) {
  (void)path, (void)found;
  errno = ENOENT;
  return -1;
}

int fstat(int file, struct stat* found) {
  (void)file, (void)found;
  errno = EBADF;
  return -1;
}

char* getcwd(char* path, size_t size) {
  (void)path, (void)size;
  errno = ENOENT;
  return NULL;
}

ssize_t write(int file, const void* bytes, size_t size) {
  (void)file, (void)bytes, (void)size;
  errno = EBADF;
  return -1;
}

off_t lseek(int file, off_t offset, int from) {
  (void)file, (void)offset, (void)from;
  errno = EBADF;
  return -1;
}

int ftruncate(int file, off_t size) {
  (void)file, (void)size;
  errno = EBADF;
  return -1;
}

int close(int file) {
  (void)file;
  errno = EBADF;
  return -1;
}
