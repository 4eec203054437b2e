// vb::ScriptError: a scripted run asked for something no user could do (fail fast, never hang).
#pragma once

#include <stdexcept>
#include <string>

namespace vb {

// Not a VB run-time error: it is the harness telling the test that its script and the forms
// disagree (a modal form waiting with nothing scripted, an unscripted question, a click on a
// disabled button). The engine's error guard lets it through so the test fails at once.
class ScriptError : public std::logic_error {
 public:
  explicit ScriptError(const std::string& message) : std::logic_error(message) {}
};

}  // namespace vb
