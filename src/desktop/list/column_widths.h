#pragma once

#include <vector>

namespace desktop {

/// What one column asks of the room that a table has, in whatever unit the room is told in.
struct ColumnWish {
  double given = 0;  // what its source gives it
  double holds = 0;  // what it holds, and its heading, shown whole
  double least = 0;  // narrower than this it never becomes
};

/// Shares a room among the columns of a table by what they hold. Each is as wide as it is given or holds,
/// where all of that fits; then those give way that are given more than they hold; then the widest are cut,
/// as long as they are wider than their least. What is left over belongs to nobody.
std::vector<double> ShareRoom(const std::vector<ColumnWish>& wishes, double room);

/// The room that all columns fill, each as wide as it is given or holds.
double RoomWanted(const std::vector<ColumnWish>& wishes);

}  // namespace desktop
