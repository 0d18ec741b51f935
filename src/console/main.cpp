#include <iostream>

#include "console/program.h"

int main(int argc, char** argv) { return console::Run({argv + 1, argv + argc}, std::cout, std::cerr); }
