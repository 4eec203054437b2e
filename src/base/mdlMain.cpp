// quillmark::mdlMain.
#include "base/mdlMain.h"

namespace quillmark {

mdlMain::mdlMain(std::shared_ptr<vb::Runtime> rt) : runtime(std::move(rt)) {}

}  // namespace quillmark
