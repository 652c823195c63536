// A shared library that is loaded while the program runs.
#pragma once

#include <stdexcept>
#include <string>

#include "call.h"

namespace kezcall {

class LibraryError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Library {
 public:
  static const char* const default_path;

  explicit Library(const std::string& path);  // throws LibraryError
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library();

  // Null when the library exports no such name.
  Entry find(const std::string& name) const;

 private:
  void* handle_;
};

}  // namespace kezcall
