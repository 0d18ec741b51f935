#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <iostream>

namespace testing_support {

/// Runs `act` in a program of its own, which then ends as a killed one does: nothing is closed.
inline void InKilledProgram(const std::function<void()>& act) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      act();
    } catch (const std::exception& error) {
      std::cerr << error.what() << std::endl;
      _exit(1);
    }
    _exit(0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

}  // namespace testing_support
