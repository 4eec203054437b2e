// The one operation of the search results window that another subsystem calls: the Options
// dialog has it rebuild its columns after the "Columns" setting changed. Declared here, below the
// subsystems, and defined with docResults, so the caller needs no header of the search subsystem.
#pragma once

namespace quillmark {

class docResults;

// docResults.LoadColumnHeaders.
void LoadColumnHeaders(docResults& results);

}  // namespace quillmark
