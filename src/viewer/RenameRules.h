// How a rename in the Component Viewer rewrites a line of code. Pure text rules, so the editing
// commands only decide which lines to hand them.
#pragma once

#include <string>
#include <string_view>

namespace quillmark::viewer {

// The first occurrence of `oldName` directly followed by `follow`, found without regard to
// case, gets `newName` in its place (the `follow` character stays). Used on a declaration line:
// "Sub DoIt(" with '(' and "Sub Text1_Change(" with '_'. False when there is none.
bool RenameBefore(std::u16string& line, std::u16string_view oldName, std::u16string_view newName,
                  char16_t follow);

// Every occurrence of a control's name in a line of its module, found without regard to case,
// is replaced when it looks like a use of the control:
//   - an even number of double quotes stands before it (it is outside a string literal);
//   - it starts the line or follows a space or a tab;
//   - it ends the line or is followed by "." or a space.
// So "Text1.Text = x" and "Text1 = Text1 + 1" change, while "Call Foo(Text1)" and a quoted
// "Text1" do not. Returns the number of replacements.
int RenameReferences(std::u16string& line, std::u16string_view oldName,
                     std::u16string_view newName);

}  // namespace quillmark::viewer
