// Checks of the fuzz targets: a broken round trip stops the run with the input saved as a crash.
#pragma once

#include <cstdio>
#include <cstdlib>

#define QM_FUZZ_REQUIRE(condition, what)                                      \
  do {                                                                        \
    if (!(condition)) {                                                       \
      std::fprintf(stderr, "round trip broken: %s (%s)\n", what, #condition); \
      std::abort();                                                           \
    }                                                                         \
  } while (false)
