// The commands of quillmark. Each returns the process exit status: 0 success, 1 problems
// reported, 2 usage error (thrown as UsageError and handled by main).
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace cli {

struct Streams {
  std::ostream& out;
  std::ostream& err;
};

int InfoCommand(const std::vector<std::string>& argv, Streams io);
int ResaveCommand(const std::vector<std::string>& argv, Streams io);
int TourCommand(const std::vector<std::string>& argv, Streams io);
int SearchCommand(const std::vector<std::string>& argv, Streams io);
int ReplaceCommand(const std::vector<std::string>& argv, Streams io);
int AddMemberCommand(const std::vector<std::string>& argv, Streams io);
int OptionsCommand(const std::vector<std::string>& argv, Streams io);
int MembersCommand(const std::vector<std::string>& argv, Streams io);
int RenameCommand(const std::vector<std::string>& argv, Streams io);
int DeleteCommand(const std::vector<std::string>& argv, Streams io);

// Runs quillmark with `argv` (without the program name).
int Run(const std::vector<std::string>& argv, Streams io);

}  // namespace cli
