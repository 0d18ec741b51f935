#pragma once

#include <string>

namespace kill_tests {

// Every step on a file that this program takes, SQLite's included, goes through functions of its own. None of
// them waits for the disk: a kill loses nothing that was written.

/// From now on the steps are counted, and the program is killed before the one of this number; 0: never. A
/// write of an odd number is killed when half of it is done.
void CountSteps(int killAt);
/// The steps since.
int Steps();

/// Writes a line without a step.
void WriteLine(int file, const std::string& line);

}  // namespace kill_tests
