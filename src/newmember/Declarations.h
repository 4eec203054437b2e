// The source text of a new method, property pair or constant, from the New Member dialog's fields:
// pure rules, no host and no form. Lines end with CR LF and the one indentation is a TAB.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

inline constexpr std::u16string_view kCrLf = u"\r\n";

// One entry of the argument list: [Optional ][ByVal ]name (or "ParamArray " name "()"), " As "
// type, and " = " default when a default is given. The default is written as typed, never quoted.
std::u16string BuildArgument(std::u16string_view name, std::u16string_view type,
                             std::u16string_view defaultValue, bool isOptional, bool isByVal,
                             bool isParamArray);

struct MethodFields {
  std::u16string scope;  // "Public", "Private" or "Friend"
  bool isStatic = false;
  std::u16string name;
  std::u16string returnType;  // empty: a Sub
  std::vector<std::u16string> arguments;
};

// Header, one empty line and the End line; no line break after the End line.
std::u16string MethodDeclaration(const MethodFields& fields);

// Index of the option array optProperty.
enum class PropertyKind { Both = 0, Get = 1, LetSet = 2 };

struct PropertyFields {
  std::u16string scope;
  std::u16string name;
  std::u16string type;
  PropertyKind kind = PropertyKind::Both;
  std::u16string localVariable;
  std::u16string localType;
  bool localPicked = false;  // picked from the module's own variables: not declared again
};

// What a property adds; an empty text is a part that is not written.
struct PropertyTexts {
  std::u16string localDeclaration;  // "Private name As type", for a new local variable
  std::u16string getProcedure;
  std::u16string letSetProcedure;  // Set with "obj" for an object type, else Let with "var"
};

// A local variable counts only when both its name and its type are given. An object type is one
// IsNotIntrinsic accepts, so a fragment such as "Int" or "Date" is not one. Intended.
PropertyTexts PropertyDeclarations(const PropertyFields& fields);

struct ConstantFields {
  bool isPublic = false;
  std::u16string name;
  std::u16string value;
  std::u16string type;
  bool typeSelected = false;  // an entry of the type list is selected
};

// With a type, a String value is wrapped in quotes as typed (quotes already there get a second
// pair; intended) and any other value is written as is. Without one, a numeric value is written
// as is and anything else is quoted.
std::u16string ConstantDeclaration(const ConstantFields& fields);

}  // namespace quillmark
