// The declaration texts of the New Member dialog.
#include "newmember/Declarations.h"

#include "base/Fields.h"
#include "runtime/VbStrings.h"

namespace quillmark {
namespace {

constexpr std::u16string_view kQuote = u"\"";

std::u16string Quoted(std::u16string_view value) {
  return std::u16string(kQuote) + std::u16string(value) + std::u16string(kQuote);
}

}  // namespace

std::u16string BuildArgument(std::u16string_view name, std::u16string_view type,
                             std::u16string_view defaultValue, bool isOptional, bool isByVal,
                             bool isParamArray) {
  std::u16string entry;
  if (isOptional) entry += u"Optional ";
  if (isByVal) entry += u"ByVal ";
  if (isParamArray)
    entry.append(u"ParamArray ").append(name).append(u"()");
  else
    entry += name;
  entry.append(u" As ").append(type);
  if (!defaultValue.empty()) entry.append(u" = ").append(defaultValue);
  return entry;
}

std::u16string MethodDeclaration(const MethodFields& fields) {
  std::u16string text = fields.scope;
  if (fields.isStatic) text += u" Static";
  bool isSub = fields.returnType.empty();
  text.append(isSub ? u" Sub " : u" Function ").append(fields.name).append(u"(");
  for (std::size_t i = 0; i < fields.arguments.size(); ++i) {
    if (i > 0) text += u", ";
    text += fields.arguments[i];
  }
  if (isSub) return text.append(u")").append(kCrLf).append(kCrLf).append(u"End Sub");
  return text.append(u") As ")
      .append(fields.returnType)
      .append(kCrLf)
      .append(kCrLf)
      .append(u"End Function");
}

PropertyTexts PropertyDeclarations(const PropertyFields& f) {
  PropertyTexts texts;
  bool local = !f.localVariable.empty() && !f.localType.empty();
  bool object = IsNotIntrinsic(f.type);
  if (local && !f.localPicked)
    texts.localDeclaration = u"Private " + f.localVariable + u" As " + f.localType;
  const std::u16string header = f.scope + u" Property";
  const std::u16string end = std::u16string(kCrLf) + u"End Property";
  if (f.kind != PropertyKind::LetSet) {
    auto& get = texts.getProcedure;
    get = header + u" Get " + f.name + u"() As " + f.type + std::u16string(kCrLf);
    if (local) {
      get.append(kCrLf).append(u"\t");
      if (object) get += u"Set ";
      get.append(f.name).append(u" = ").append(f.localVariable).append(kCrLf);
    }
    get += end;
  }
  if (f.kind != PropertyKind::Get) {
    const std::u16string parameter = (object ? u"obj" : u"var") + f.name;
    auto& put = texts.letSetProcedure;
    put = header + (object ? u" Set " : u" Let ") + f.name + u"(" + parameter + u" As " + f.type +
          u")" + std::u16string(kCrLf);
    if (local) {
      put.append(kCrLf).append(u"\t");
      if (object) put += u"Set ";
      put.append(f.localVariable).append(u" = ").append(parameter).append(kCrLf);
    }
    put += end;
  }
  return texts;
}

std::u16string ConstantDeclaration(const ConstantFields& f) {
  std::u16string text = (f.isPublic ? u"Public" : u"Private") + std::u16string(u" Const ") + f.name;
  if (f.typeSelected) {
    text.append(u" As ").append(f.type).append(u" = ");
    return text + (f.type == u"String" ? Quoted(f.value) : f.value);
  }
  text += u" = ";
  return text + (vb::IsNumeric(f.value) ? f.value : Quoted(f.value));
}

}  // namespace quillmark
