// Measures the library against raw baselines and prints one table.
//   pricedown_bench FOLDER [control | browser | editor | print | memory]
// The memory is measured only when it is named. Companies are created in FOLDER once and kept
// there. With a name, only that measurement runs.
#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "bench/browser_measure.h"
#include "bench/control_measure.h"
#include "bench/editor_measure.h"
#include "bench/measure.h"
#include "bench/memory_measure.h"
#include "bench/print_measure.h"

namespace bench {
namespace {

struct Measurement {
  std::string_view name;
  void (*measure)(const std::string& folder, Figures& figures);
};

constexpr std::array<Measurement, 4> kMeasurements{{{"control", MeasureControl},
                                                    {"browser", MeasureBrowser},
                                                    {"editor", MeasureEditor},
                                                    {"print", MeasurePrinting}}};

int Run(const std::string& folder, std::string_view only) {
  if (only == "memory") {
    MeasureMemory(folder);
    return 0;
  }
  Figures figures;
  bool measured = false;
  for (const Measurement& measurement : kMeasurements) {
    if (!only.empty() && only != measurement.name) continue;
    measurement.measure(folder, figures);
    measured = true;
  }
  return measured ? 0 : 2;
}

}  // namespace
}  // namespace bench

int main(int count, char** words) {
  if (count != 2 && count != 3) {
    std::fprintf(stderr, "pricedown_bench FOLDER [control | browser | editor | print | memory]\n");
    return 2;
  }
  try {
    return bench::Run(words[1], count == 3 ? words[2] : "");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pricedown_bench: %s\n", error.what());
    return 1;
  }
}
