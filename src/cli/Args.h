// A small command-line parser for quillmark: positional arguments and --options, with usage errors.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace cli {

// Thrown for anything the user typed wrong; main prints it with the usage and exits with 2.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Args {
 public:
  // `flags` take no value (--json); `options` take one (--to DIR or --to=DIR).
  Args(const std::vector<std::string>& argv, const std::set<std::string>& flags,
       const std::set<std::string>& options);

  const std::vector<std::string>& Positional() const { return positional_; }
  bool Flag(const std::string& name) const { return flags_.count(name) > 0; }
  // The option's value; the last one when it was given more than once.
  std::optional<std::string> Option(const std::string& name) const;
  // Every value given for a repeatable option, in the order typed.
  std::vector<std::string> Options(const std::string& name) const;
  int IntOption(const std::string& name, int fallback) const;  // UsageError when not a number

 private:
  std::vector<std::string> positional_;
  std::set<std::string> flags_;
  std::map<std::string, std::vector<std::string>> options_;
};

}  // namespace cli
