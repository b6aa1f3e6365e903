// The raw side creates the same windows without a control and makes the same calls to the suite.
#include "bench/control_measure.h"

#include <stdexcept>

#include "bench/companies.h"
#include "bench/host.h"
#include "bench/raw_suite.h"

namespace bench {
namespace {

constexpr int kRepetitions = 7;
constexpr int kItemsPerClass = 10;

Timing MeasureMaking(Host& host, int count) {
  return Compare([&] { host.MakeControls(count); },
                 [&] {
                   host.MakePlain(count);
                   for (int i = 0; i < count; ++i) AskForCreation(host.Factory());
                 },
                 kRepetitions);
}

void MeasureShowing(const std::string& path, Figures& figures) {
  const auto host = MakeHost(path);
  std::size_t nodes = 0;
  std::size_t rawNodes = 0;
  const Timing timing = Compare([&] { nodes = host->ShowControl(); },
                                [&] {
                                  AskForCreation(host->Factory());
                                  rawNodes = host->ShowPlain(TreeTexts(host->Factory()));
                                  AskForShowing(host->Factory());
                                },
                                kRepetitions, [&] { host->EndShown(); });
  if (nodes != rawNodes) throw std::runtime_error("the control does not show the company's tree");
  figures.Add("show", nodes, timing);
}

}  // namespace

void MeasureControl(const std::string& folder, Figures& figures) {
  {
    const auto host = MakeHost(MakeSampleCompany(folder));
    for (const int count : {5, 10, 20}) {
      figures.Add("create", static_cast<std::size_t>(count), MeasureMaking(*host, count));
    }
  }
  MeasureShowing(MakeSampleCompany(folder), figures);
  for (const int classes : {500, 1000, 2000}) {
    MeasureShowing(MakeCompany(folder, classes * kItemsPerClass, classes), figures);
  }
}

}  // namespace bench
