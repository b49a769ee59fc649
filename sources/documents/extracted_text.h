#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sources/read/text_marks.h"

namespace korv {

/// Text of a document in which white space only separates: each run of it becomes one blank, and there is
/// none at the beginning and the end of a line. Lines end with LF.
class CollapsedText {
 public:
  void Run(std::string_view text);
  /// A blank between what stands before and what follows.
  void Blank() { blank_ = onLine_; }
  /// Ends the line; an empty one is left out.
  void EndLine();
  bool OnLine() const { return onLine_; }
  const std::string& Text() const { return text_; }
  std::string Take() && { return std::move(text_); }

 private:
  std::string text_;
  bool blank_ = false;
  bool onLine_ = false;
};

/// Takes the text of a document line by line, and where its pages, chapters or segments begin. UTF-8.
///
///   ExtractedText text;
///   text.BeginPlace(1);
///   text.Line("The first line");
class ExtractedText {
 public:
  /// A line without its end. Line ends within are kept; blank lines are not.
  void Line(std::string_view line);
  /// Several lines, each with its end.
  void Lines(std::string_view lines);
  /// What follows belongs to the page, chapter, ... of that number.
  void BeginPlace(uint32_t number) { number_ = number; }
  /// Phrases end here, whatever the rules are.
  void EndPhrases() { endsPhrase_ = true; }

  size_t Size() const { return text_.size(); }
  const std::string& Text() const { return text_; }
  const std::vector<TextMark>& Marks() const { return marks_; }
  std::string TakeText() { return std::move(text_); }
  std::vector<TextMark> TakeMarks() { return std::move(marks_); }

 private:
  void Mark();

  std::string text_;
  std::vector<TextMark> marks_;
  uint32_t number_ = 0;
  bool endsPhrase_ = false;
};

}  // namespace korv
