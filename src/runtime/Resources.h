// vb::Resources: the program's bitmap resources, as LoadResPicture finds them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/Picture.h"

namespace vb {

inline constexpr int kResourceNotFound = 326;  // VB's "Resource with identifier ... not found"

// Pictures are registered by the program that assembles the add-in; the runtime knows none of
// them. Resources are identified by a number or by a name; names match without regard to ASCII
// case, as Windows resource names do.
class Resources {
 public:
  void Register(int id, Picture picture);
  void Register(std::u16string_view name, Picture picture);

  // The picture, or vb::Error 326 naming the identifier.
  const Picture& LoadResPicture(int id) const;
  const Picture& LoadResPicture(std::u16string_view name) const;

  bool Contains(int id) const { return byNumber_.contains(id); }
  bool Contains(std::u16string_view name) const;
  std::vector<int> Numbers() const;
  std::vector<std::u16string> Names() const;  // as registered, in ASCII-case-folded order

 private:
  std::map<int, Picture> byNumber_;
  std::map<std::u16string, std::pair<std::u16string, Picture>>
      byName_;  // folded -> (name, picture)
};

}  // namespace vb
