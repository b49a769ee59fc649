#include "sources/read/first_lines.h"

#include <algorithm>

namespace korv {

void FirstLines::Take(std::string_view piece, std::string& lines) {
  while (!piece.empty() && !Full()) {
    if (afterCR_ && piece[0] == '\n') {
      afterCR_ = false;
      piece.remove_prefix(1);
      continue;
    }
    afterCR_ = false;
    const auto isEnd = [](char c) { return c == '\r' || c == '\n'; };
    const auto end = static_cast<size_t>(std::ranges::find_if(piece, isEnd) - piece.begin());
    if (end > 0) Append(piece.substr(0, end), lines);
    if (end == piece.size()) return;
    afterCR_ = piece[end] == '\r';
    piece.remove_prefix(end + 1);
    EndLine(lines);
  }
}

void FirstLines::Finish(std::string& lines) {
  if (begun_ && !Full()) EndLine(lines);
}

void FirstLines::BeginLine(std::string& lines) {
  begun_ = true;
  blank_ = true;
  lineBytes_ = anyLine_ ? 2 : 0;
  if (anyLine_) lines += "\r\n";
}

void FirstLines::Append(std::string_view part, std::string& lines) {
  if (!begun_) BeginLine(lines);
  lines += part;
  lineBytes_ += part.size();
  blank_ = blank_ && part.find_first_not_of(" \t") == std::string_view::npos;
}

void FirstLines::EndLine(std::string& lines) {
  if (!begun_) BeginLine(lines);
  begun_ = false;
  if (skipBlank_ && blank_) {
    lines.resize(lines.size() - std::min(lineBytes_, lines.size()));
    return;
  }
  anyLine_ = true;
  --left_;
}

}  // namespace korv
