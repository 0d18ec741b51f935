#include "desktop/list/column_widths.h"

#include <algorithm>

namespace desktop {
namespace {

constexpr int kHalvings = 40;

double Wanted(const ColumnWish& wish) { return std::max(wish.given, wish.holds); }

template <typename WidthOf>
std::vector<double> Widths(const std::vector<ColumnWish>& wishes, const WidthOf& width_of) {
  std::vector<double> widths;
  widths.reserve(wishes.size());
  for (const ColumnWish& wish : wishes) widths.push_back(width_of(wish));
  return widths;
}

template <typename WidthOf>
double Sum(const std::vector<ColumnWish>& wishes, const WidthOf& width_of) {
  double sum = 0;
  for (const ColumnWish& wish : wishes) sum += width_of(wish);
  return sum;
}

double Cut(const ColumnWish& wish, double cap) {
  return std::max(std::min(wish.holds, cap), std::min(wish.least, wish.holds));
}

/// The width at which the widest columns are cut, so that all of them fit.
double CapFor(const std::vector<ColumnWish>& wishes, double room) {
  double low = 0;
  double high = room;
  for (int i = 0; i < kHalvings; ++i) {
    const double cap = (low + high) / 2;
    (Sum(wishes, [cap](const ColumnWish& wish) { return Cut(wish, cap); }) <= room ? low : high) = cap;
  }
  return low;
}

}  // namespace

double RoomWanted(const std::vector<ColumnWish>& wishes) { return Sum(wishes, Wanted); }

std::vector<double> ShareRoom(const std::vector<ColumnWish>& wishes, double room) {
  const double wanted = RoomWanted(wishes);
  if (wanted <= room) return Widths(wishes, Wanted);
  const double held = Sum(wishes, [](const ColumnWish& wish) { return wish.holds; });
  if (held <= room) {
    const double share = (room - held) / (wanted - held);
    return Widths(
        wishes, [share](const ColumnWish& wish) { return wish.holds + share * (Wanted(wish) - wish.holds); });
  }
  const double cap = CapFor(wishes, room);
  return Widths(wishes, [cap](const ColumnWish& wish) { return Cut(wish, cap); });
}

}  // namespace desktop
