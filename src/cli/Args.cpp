// cli::Args.
#include "cli/Args.h"

#include <charconv>

namespace cli {

Args::Args(const std::vector<std::string>& argv, const std::set<std::string>& flags,
           const std::set<std::string>& options) {
  for (std::size_t i = 0; i < argv.size(); ++i) {
    const std::string& a = argv[i];
    if (a.size() < 3 || a.compare(0, 2, "--") != 0) {
      positional_.push_back(a);
      continue;
    }
    std::string name = a.substr(2);
    std::optional<std::string> value;
    if (auto eq = name.find('='); eq != std::string::npos) {
      value = name.substr(eq + 1);
      name = name.substr(0, eq);
    }
    if (flags.count(name)) {
      if (value) throw UsageError("--" + name + " takes no value");
      flags_.insert(name);
    } else if (options.count(name)) {
      if (!value) {
        if (i + 1 >= argv.size()) throw UsageError("--" + name + " needs a value");
        value = argv[++i];
      }
      options_[name].push_back(*value);
    } else {
      throw UsageError("unknown option --" + name);
    }
  }
}

std::optional<std::string> Args::Option(const std::string& name) const {
  auto it = options_.find(name);
  if (it == options_.end()) return std::nullopt;
  return it->second.back();
}

std::vector<std::string> Args::Options(const std::string& name) const {
  auto it = options_.find(name);
  return it == options_.end() ? std::vector<std::string>() : it->second;
}

int Args::IntOption(const std::string& name, int fallback) const {
  auto text = Option(name);
  if (!text) return fallback;
  int value = 0;
  auto [end, ec] = std::from_chars(text->data(), text->data() + text->size(), value);
  if (ec != std::errc() || end != text->data() + text->size())
    throw UsageError("--" + name + " needs a number, not '" + *text + "'");
  return value;
}

}  // namespace cli
