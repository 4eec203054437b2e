// quillmark members: the Component Viewer's rows for one component in one view (or filter), as
// the list shows them after the view is typed into its selector.
#include <ostream>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "cli/SearchSession.h"
#include "cli/TourSteps.h"
#include "cli/ViewerSession.h"
#include "runtime/Utf.h"
#include "viewer/ViewerRows.h"

namespace cli {

int MembersCommand(const std::vector<std::string>& argv, Streams io) {
  auto options = kViewerOptions;
  options.insert("view");
  Args args(argv, {"json"}, options);
  ViewerSession session(args, io.err);
  std::u16string view = args.Option("view") ? vb::FromUtf8(*args.Option("view"))
                                            : std::u16string(quillmark::viewer::kViewCaptions[0]);
  session.Show(view);
  for (auto& row : session.Rows()) {
    if (args.Flag("json")) {
      io.out << "{\"key\":\"" << JsonString(row.key) << "\",\"text\":\"" << JsonString(row.text)
             << "\",\"icon\":\"" << JsonString(row.icon) << "\"}\n";
    } else {
      io.out << vb::ToUtf8(row.key) << "\t" << vb::ToUtf8(row.text) << "\t" << vb::ToUtf8(row.icon)
             << "\n";
    }
  }
  // An empty list is an answer too (a module has no controls); only problems make it 1.
  int problems = session.LoadProblems();
  problems += FinishAndReportSettings(session.GetDesk(), io.err);
  return problems == 0 ? 0 : 1;
}

}  // namespace cli
