#include "steps.h"

#include <sys/syscall.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>

namespace kill_tests {
namespace {

bool counting = false;
int steps = 0;
int last = 0;

/// True when this is the step that is never finished.
bool IsLast() { return counting && ++steps == last; }
void Die() { kill(getpid(), SIGKILL); }
void Step() {
  if (IsLast()) Die();
}

}  // namespace

void CountSteps(int killAt) {
  counting = true;
  steps = 0;
  last = killAt;
}

int Steps() { return steps; }

void WriteLine(int file, const std::string& line) {
  const std::string text = line + '\n';
  syscall(SYS_write, file, text.data(), text.size());
}

ssize_t WriteAt(int file, const void* data, size_t length, off_t offset) {
  const bool dies = IsLast();
  if (dies && steps % 2 == 1) syscall(SYS_pwrite64, file, data, length / 2, offset);
  if (dies) Die();
  return syscall(SYS_pwrite64, file, data, length, offset);
}

extern "C" {

ssize_t pwrite(int file, const void* data, size_t length, off_t offset) {
  return WriteAt(file, data, length, offset);
}
ssize_t pwrite64(int file, const void* data, size_t length, off64_t offset) {
  return WriteAt(file, data, length, offset);
}
int fsync(int) {
  Step();
  return 0;
}
int fdatasync(int) {
  Step();
  return 0;
}
int ftruncate(int file, off_t length) noexcept {
  Step();
  return static_cast<int>(syscall(SYS_ftruncate, file, length));
}
int ftruncate64(int file, off64_t length) noexcept {
  Step();
  return static_cast<int>(syscall(SYS_ftruncate, file, length));
}
int unlink(const char* path) noexcept {
  Step();
  return static_cast<int>(syscall(SYS_unlinkat, -100, path, 0));  // in the working folder
}
int rename(const char* from, const char* to) noexcept {
  Step();
  return static_cast<int>(syscall(SYS_renameat2, -100, from, -100, to, 0));
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  Step();
  return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}
}

}  // namespace kill_tests
