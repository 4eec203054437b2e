// quillmark::docListView.
#include "viewer/docListView.h"

namespace quillmark {

docListView::docListView(vb::Runtime& runtime) : UserDocument(runtime, u"docListView") {}

}  // namespace quillmark
