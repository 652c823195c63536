#include "harness.h"

int main(int argc, char** argv) {
  bench::register_geometry();
  bench::register_points();
  bench::register_polygons();
  bench::register_lists();
  bench::register_searches();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
