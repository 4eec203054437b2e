// quillmark: the command-line front end of Quillmark Tools.
#include <iostream>

#include "cli/Commands.h"

int main(int argc, char** argv) {
  try {
    std::vector<std::string> args(argv + 1, argv + argc);
    return cli::Run(args, {std::cout, std::cerr});
  } catch (const std::exception& e) {
    // Only what cli::Run cannot catch itself (out of memory while reporting) ends up here.
    std::cerr << "quillmark: " << e.what() << "\n";
    return 1;
  }
}
