// quillmark::docResults.
#include "search/docResults.h"

namespace quillmark {

docResults::docResults(vb::Runtime& runtime) : UserDocument(runtime, u"docResults") {}

}  // namespace quillmark
