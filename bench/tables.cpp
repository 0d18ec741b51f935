// Reading tables: 100,000 rows of CSV against reading the file alone, and of XLSX and ODS by the clock. Exit
// code 1 where a limit is not held.

#include <sys/resource.h>
#include <zip.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "baseline.h"
#include "exchange/export/export_table.h"
#include "exchange/table/table_reader.h"

namespace {

constexpr int kRows = 100000;
constexpr int kRuns = 5;
constexpr double kCsvRatio = 25;     // of reading its lines alone
constexpr double kSheetSeconds = 5;  // a spreadsheet's rows, to the last
constexpr double kMemoryTimes = 10;  // of the file's size when it is unpacked

double Seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) times.push_back(Seconds(work));
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

/// The most memory that the process has had, in bytes.
double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024;
}

exchange::ExportTable Expenses() {
  exchange::ExportTable table{.title = "Gastos", .columns = {}, .rows = {}};
  table.columns = {{"Matrícula"},
                   {"Data", exchange::ExportKind::kDate},
                   {"Posto"},
                   {"Litros", exchange::ExportKind::kMoney, 0, 2},
                   {"Custo", exchange::ExportKind::kMoney},
                   {"Km", exchange::ExportKind::kNumber, 0, 0},
                   {"Cartão"},
                   {"Documento"}};
  for (int i = 0; i < kRows; ++i)
    table.rows.push_back(
        {std::to_string(10 + i % 90) + "-GJ-10", platform::Date::FromSeconds(46000LL * 86400 + i * 60LL),
         "Posto número " + std::to_string(i % 400), platform::Currency::FromTenThousandths(455000 + i),
         platform::Currency::FromTenThousandths(752500 + i), static_cast<double>(10000 + i),
         "7824" + std::to_string(100000 + i % 700), "FT " + std::to_string(i)});
  return table;
}

long CountRows(const std::string& file) {
  const auto table = exchange::OpenTable(file);
  long rows = 0;
  for (exchange::TableRow row; table->Next(row);) ++rows;
  return rows;
}

double UnpackedSize(const std::string& file) {
  zip_t* archive = zip_open(file.c_str(), ZIP_RDONLY, nullptr);
  bench::Require(archive != nullptr);
  double size = 0;
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    zip_stat_t stat;
    if (zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &stat) == 0)
      size += static_cast<double>(stat.size);
  }
  zip_discard(archive);
  return size;
}

bool ReadCsv(const std::string& file) {
  const double alone = Median([&] {
    std::ifstream in(file, std::ios::binary);
    long lines = 0;
    for (std::string line; std::getline(in, line);) ++lines;
    bench::Require(lines == kRows + 1);
  });
  const double table = Median([&] { bench::Require(CountRows(file) == kRows + 1); });
  const double ratio = table / alone;
  std::printf("CSV of %d rows: %.3f s, its lines alone %.3f s, %.1f times (%.0f)\n", kRows, table, alone,
              ratio, kCsvRatio);
  return ratio <= kCsvRatio;
}

bool ReadSheet(const char* name, const std::string& file, double before) {
  const double seconds = Median([&] { bench::Require(CountRows(file) == kRows + 1); });
  const double times = (PeakMemory() - before) / UnpackedSize(file);
  std::printf("%s of %d rows: %.2f s (%.0f), memory %.2f times its unpacked size (%.0f)\n", name, kRows,
              seconds, kSheetSeconds, times, kMemoryTimes);
  return seconds <= kSheetSeconds && times <= kMemoryTimes;
}

}  // namespace

/// `bench_tables --escrever FOLDER` only writes the files, in a process whose memory doesn't count.
int main(int count, char** arguments) {
  if (count == 3) {
    const exchange::ExportTable table = Expenses();
    for (const char* name : {"b.csv", "b.xlsx", "b.ods"}) {
      const std::string file = std::string(arguments[2]) + "/" + name;
      exchange::WriteTable(table, file, exchange::FormatOf(file));
    }
    return 0;
  }
  const bench::Folder folder("parvel_bench_tables");
  const std::string path = std::filesystem::path(folder.File()).parent_path().string();
  bench::Require(std::system((std::string(arguments[0]) + " --escrever " + path).c_str()) == 0);
  const double before = PeakMemory();
  const bool held[] = {ReadSheet("XLSX", path + "/b.xlsx", before), ReadSheet("ODS", path + "/b.ods", before),
                       ReadCsv(path + "/b.csv")};
  return std::all_of(std::begin(held), std::end(held), [](bool b) { return b; }) ? 0 : 1;
}
