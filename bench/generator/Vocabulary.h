// Vocabulary: business words and the VB naming habits that turn them into identifiers.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "Prng.h"

namespace vbgen {

// A local or member variable type with the prefix VB programmers give its variables.
struct VbType {
  std::string_view prefix;  // "cur" in curTotal
  std::string_view name;    // "Currency"
};

// Concatenates parts that were evaluated left to right. The order of evaluation of the operands of
// `a() + b()` is left open by the language and differs between compilers; a braced list fixes it,
// so every call that draws random numbers must be combined through Cat to keep the output the same
// everywhere.
inline std::string Cat(std::initializer_list<std::string> parts) {
  std::string text;
  for (const std::string& part : parts) text += part;
  return text;
}

// A named value: a variable, parameter or module field, with its type.
struct Variable {
  std::string name;
  const VbType* type = nullptr;
};

// Every identifier is built from fixed-case words, so one name is always spelled the same way:
// the IDE keeps one spelling per name in a project and real files never mix them.
class Vocabulary {
 public:
  explicit Vocabulary(Prng& rng) : rng_(rng) {}

  // Frequent words ("Customer", "Total", "Count") come up far more often than the rest, as in
  // real code, so searching for them hits many lines.
  std::string_view Noun();
  std::string_view Qualifier();
  std::string_view Verb();
  const VbType& Type();
  // The type whose variable prefix is `prefix` ("lng", "str" ...); Long for an unknown prefix.
  static const VbType& ByPrefix(std::string_view prefix);

  std::string Compound();  // CustomerTotal
  // A compound with the type its last word suggests: CustomerTotal As Currency,
  // InvoiceDate As Date, OrderCount As Long.
  Variable Typed();
  // A procedure variable named the VB way: curCustomerTotal, strInvoiceName, lngOrder.
  Variable Local();
  std::string ProcedureName();  // CalculateCustomerTotal
  std::string ConstantName();   // MAX_CUSTOMER_COUNT
  std::string Sentence();       // comment text, no trailing blank
  std::string Message();        // text for a string literal; may hold ' and keywords

 private:
  Prng& rng_;
};

}  // namespace vbgen
