// quillmark: the command-line front end of Quillmark Tools.
#include <iostream>

#include "cli/Commands.h"

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  return cli::Run(args, {std::cout, std::cerr});
}
