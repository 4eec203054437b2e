// Registration of the add-in's classes.
#include "addin/Registration.h"

#include "addin/Connect.h"
#include "search/docResults.h"
#include "viewer/docListView.h"

namespace quillmark {

void RegisterQuillmarkTools(vbide::ClassRegistry& registry, std::shared_ptr<vb::Runtime> runtime) {
  registry.RegisterAddIn(std::u16string(kProgId), u"Quillmark Tools",
                         [runtime] { return std::make_shared<Connect>(runtime); });
  vb::Runtime* rt = runtime.get();
  registry.RegisterDocument(std::u16string(kListViewProgId),
                            [rt] { return vb::New<docListView>(*rt); });
  registry.RegisterDocument(std::u16string(kResultsProgId),
                            [rt] { return vb::New<docResults>(*rt); });
}

}  // namespace quillmark
