// Measures two ways of doing the same work alternately and prints both times.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>

namespace bench {

struct Timing {
  double product = 0;  // milliseconds
  double raw = 0;
};

// The fastest of so many turns of each, because whatever disturbs a turn makes it longer. Runs both
// alternately, so that a slow minute of the machine affects both alike. `prepare`, if any, runs
// before each of them, unmeasured.
Timing Compare(const std::function<void()>& product, const std::function<void()>& raw,
               int repetitions, const std::function<void()>& prepare = nullptr);

// The printed table. Its columns are two or more blanks apart, for programs that read it.
class Figures {
 public:
  // Prints the line of titles.
  Figures();
  // Prints one line: operation, amount, both times, their ratio, and how the product's time grew
  // per doubling of the amount since the previous line of that operation.
  void Add(const std::string& operation, std::size_t amount, const Timing& timing);

 private:
  struct Line {
    std::size_t amount;
    double product;
  };
  std::map<std::string, Line> last_;
};

}  // namespace bench
