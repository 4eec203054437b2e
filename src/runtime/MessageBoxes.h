// vb::MessageBoxes: MsgBox, with scripted answers and a transcript of every box when headless.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

struct MsgBoxRecord {
  std::u16string prompt;
  int style = 0;
  std::u16string title;  // as passed; empty means the application's title
  int answer = 0;
  bool operator==(const MsgBoxRecord&) const = default;
};

class MessageBoxes {
 public:
  // MsgBox(prompt, style, title): returns vbOK .. vbNo. A style outside VB's ranges (buttons
  // 0-5, icons 16/32/48/64, default button 0/256/512/768) raises error 5.
  // The answer comes from, in order: the scripted answers; the toolkit's presenter; and, for a
  // box with only an OK button, OK. Any other box without an answer throws ScriptError.
  int Show(std::u16string_view prompt, int style = 0, std::u16string_view title = {});

  // Queues the answer to the next box. An answer that is not one of that box's buttons is a
  // script error when the box comes.
  void ScriptAnswer(int answer) { answers_.push_back(answer); }
  std::size_t PendingAnswers() const { return answers_.size(); }

  const std::vector<MsgBoxRecord>& Transcript() const { return transcript_; }
  void ClearTranscript() { transcript_.clear(); }

  // The answers a box with `style` offers, in button order.
  static std::vector<int> Buttons(int style);

  // A toolkit shows the box and returns the button pressed.
  std::function<int(const MsgBoxRecord&)> presenter;

 private:
  std::deque<int> answers_;
  std::vector<MsgBoxRecord> transcript_;
};

}  // namespace vb
