// Convenience accessors of vbide::VBControl.
#include "vbide/VBForm.h"

namespace vbide {

int VBControl::Index() {
  std::u16string text = Properties(u"Index");
  int sign = 1;
  std::size_t i = 0;
  if (i < text.size() && text[i] == u'-') {
    sign = -1;
    ++i;
  }
  int value = 0;
  for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i)
    value = value * 10 + (text[i] - u'0');
  return sign * value;
}

}  // namespace vbide
