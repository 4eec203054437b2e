// cli::SearchSession: the add-in connected to the embedded IDE holding FILE, its search dialog set
// from the command line's options, and the results window read back as rows or JSON.
#pragma once

#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "cli/Args.h"
#include "cli/Commands.h"
#include "composition/Composition.h"
#include "search/docResults.h"
#include "search/frmSearch.h"

namespace cli {

// The options search and replace share.
inline const std::set<std::string> kSearchFlags = {"match-case", "whole-word", "exclude-comments",
                                                   "json"};
inline const std::set<std::string> kSearchOptions = {"project",   "module",   "procedure",
                                                     "selection", "codepage", "config-dir"};

class SearchSession {
 public:
  // Opens FILE and connects the add-in; problems loading FILE go to `err`. Usage errors throw.
  SearchSession(const Args& args, std::ostream& err);
  ~SearchSession();

  // Sets the dialog from the options, types `text` and presses Search. Message boxes the
  // add-in showed on the way are written to `err`; false when there were any.
  bool Search(const std::u16string& text, std::ostream& err);

  quillmark::frmSearch& Dialog() const;
  quillmark::docResults& Results() const;
  composition::Desk& GetDesk() const { return *desk_; }
  // The problems reported while loading FILE.
  int LoadProblems() const { return loadProblems_; }
  int RowCount() const;
  // One line per row as the export writes it: the row text, then a tab and each sub-item.
  void PrintRows(std::ostream& out) const;
  // One JSON object per row: project, module, procedure, line and the untrimmed line text.
  void PrintJson(std::ostream& out) const;
  // The two status-bar panels, one per line.
  void PrintStatus(std::ostream& err) const;
  // Writes and clears the message boxes shown so far; returns how many there were.
  int ReportMessageBoxes(std::ostream& err) const;

 private:
  void SetScope();
  void SetSelection(const std::string& selection);

  const Args& args_;
  std::unique_ptr<composition::Desk> desk_;
  int loadProblems_ = 0;
};

// JSON string contents for a VB string: escapes for quotes, backslashes and control characters,
// \uDCxx for the units that stand for undecodable bytes (and other lone surrogates), UTF-8 for
// the rest.
std::string JsonString(std::u16string_view text);

}  // namespace cli
