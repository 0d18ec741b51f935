#include "loader/late_library.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

std::string ToldOf(const char* file, const char* function) {
  try {
    loader::LateLibrary(file).Find<double(double)>(function);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(LateLibrary, AFunctionIsFoundAndWhatLacksIsTold) {
  const loader::LateLibrary mathematics("libm.so.6");
  EXPECT_EQ(mathematics.Find<double(double)>("floor")(3.5), 3);
  EXPECT_EQ(ToldOf("libm.so.6", "cbrt"), "");
  EXPECT_NE(ToldOf("libm.so.6", "cubo").find("libm.so.6 não tem a função cubo"), std::string::npos);
  EXPECT_NE(ToldOf("libfalta.so.6", "cbrt").find("Falta a biblioteca libfalta.so.6"), std::string::npos);
}

}  // namespace
