#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace bench {

/// Two ways to do one thing, timed in turns so that the machine's moods hit both alike; what counts is the
/// quotient of the medians.
class Rivals {
 public:
  explicit Rivals(int samples) : samples_(samples) {}

  /// `calls` of each way make one sample. The subject may take `allowance` seconds beyond its limit, for what
  /// the baseline leaves out.
  template <typename Subject, typename Baseline>
  void Compare(const std::string& what, double limit, int calls, const Subject& subject,
               const Baseline& baseline, double allowance = 0) {
    std::vector<double> subjects;
    std::vector<double> baselines;
    for (int sample = 0; sample < samples_ + kWarmUps; ++sample) {
      const double b = Time(calls, baseline);
      const double s = Time(calls, subject);
      if (sample < kWarmUps) continue;
      baselines.push_back(b);
      subjects.push_back(s);
    }
    const double base = Median(baselines);
    rows_.push_back({what, limit + allowance * 1e6 / base, Median(subjects), base});
  }

  /// Prints a table; the exit code is 1 when a limit was passed.
  int Report() const {
    std::printf("\n%-38s %12s %12s %8s %8s\n", "subject / baseline", "subject us", "baseline us", "ratio",
                "limit");
    bool held = true;
    for (const Row& row : rows_) {
      const double ratio = row.subject / row.baseline;
      held = held && ratio <= row.limit;
      std::printf("%-38s %12.3f %12.3f %8.3f %8.2f%s\n", row.what.c_str(), row.subject, row.baseline, ratio,
                  row.limit, ratio <= row.limit ? "" : "  PASSED");
    }
    return held ? 0 : 1;
  }

 private:
  static constexpr int kWarmUps = 3;

  struct Row {
    std::string what;
    double limit;
    double subject;
    double baseline;
  };

  template <typename Way>
  static double Time(int calls, const Way& way) {
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) way();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count() /
           calls;
  }

  static double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
  }

  int samples_;
  std::vector<Row> rows_;
};

}  // namespace bench
