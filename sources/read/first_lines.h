#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korv {

/// Takes the first lines out of a text that comes in pieces, joined by CR LF. A line ends at CR LF, LF or CR.
class FirstLines {
 public:
  /// With `skipBlank` a line of nothing but blanks and tabs is neither counted nor kept.
  FirstLines(int maxLines, bool skipBlank) : left_(maxLines), skipBlank_(skipBlank) {}

  /// Appends what the piece holds of the lines to `lines`, which the caller may shorten at its beginning
  /// between two calls.
  void Take(std::string_view piece, std::string& lines);
  /// The text is at its end.
  void Finish(std::string& lines);
  /// All of them are there; further pieces add nothing.
  bool Full() const { return left_ <= 0; }

 private:
  void Append(std::string_view part, std::string& lines);
  void EndLine(std::string& lines);
  void BeginLine(std::string& lines);

  int left_;
  bool skipBlank_;
  bool anyLine_ = false;  ///< A line was kept: the next one has a break before it.
  bool begun_ = false;    ///< Something of the current line is in `lines`, its break included.
  bool blank_ = true;     ///< The current line holds blanks and tabs only, so far.
  size_t lineBytes_ = 0;  ///< What the current line has added, its break included.
  bool afterCR_ = false;
};

}  // namespace korv
