#include "sources/documents/subtitles_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/text/unicode.h"
#include "sources/documents/html_entities.h"

namespace korv {

namespace {

constexpr auto kNone = std::string_view::npos;

std::string_view Trimmed(std::string_view line) {
  const size_t begin = std::min(line.find_first_not_of(" \t\r"), line.size());
  return line.substr(begin, line.find_last_not_of(" \t\r") + 1 - begin);
}

std::vector<std::string_view> LinesOf(std::string_view file) {
  std::vector<std::string_view> lines;
  while (!file.empty()) {
    const size_t end = std::min(file.find_first_of("\r\n"), file.size());
    lines.push_back(Trimmed(file.substr(0, end)));
    file.remove_prefix(std::min(end + (file.substr(end, 2) == "\r\n" ? 2 : 1), file.size()));
  }
  return lines;
}

bool IsTiming(std::string_view line) {
  return line.find("-->") != kNone;
}

bool IsNumber(std::string_view line) {
  return !line.empty() && line.find_first_not_of("0123456789") == kNone;
}

/// Leaves out what stands between `open` and `close`; an open one without its end stays.
std::string WithoutTags(std::string_view line, std::string_view open, char close) {
  std::string text;
  while (!line.empty()) {
    const size_t begin = std::min(line.find(open), line.size());
    text += line.substr(0, begin);
    line.remove_prefix(begin);
    if (line.empty()) break;
    const size_t end = line.find(close);
    if (end == kNone) {
      text += line;
      break;
    }
    line.remove_prefix(end + 1);
  }
  return text;
}

/// Those that the format has for signs of its own, and that others are written with.
std::string WithoutEntities(std::string_view line) {
  std::string text;
  constexpr size_t kLongest = 10;
  while (!line.empty()) {
    const size_t begin = std::min(line.find('&'), line.size());
    text += line.substr(0, begin);
    line.remove_prefix(begin);
    if (line.empty()) break;
    const size_t end = line.substr(0, kLongest).find(';');
    const char32_t character = end == kNone ? U'\0' : HtmlEntity(line.substr(1, end - 1));
    if (character != 0) {
      AppendCharacter(character, text);
      line.remove_prefix(end + 1);
    } else {
      text += '&';
      line.remove_prefix(1);
    }
  }
  return text;
}

bool EndsSentence(std::string_view text) {
  // Quotes and brackets may follow.
  static constexpr std::array<std::string_view, 6> kClosing = {"\"", "'", ")", "\u201D", "\u00BB", "\u2019"};
  static constexpr std::array<std::string_view, 7> kEnds = {".",      "!",      "?",     "\u2026",
                                                            "\u3002", "\uFF01", "\uFF1F"};
  const auto endsWith = [&text](std::string_view sign) { return text.ends_with(sign); };
  for (auto closing = kClosing.begin(); closing != kClosing.end();) {
    if (!endsWith(*closing)) {
      ++closing;
      continue;
    }
    text = Trimmed(text.substr(0, text.size() - closing->size()));
    closing = kClosing.begin();
  }
  return std::any_of(kEnds.begin(), kEnds.end(), endsWith);
}

/// Hands over cues.
class Cues {
 public:
  explicit Cues(ExtractedText& text) : text_(text) {}

  void Begin() {
    if (endsSentence_) text_.EndPhrases();
    endsSentence_ = false;
    text_.BeginPlace(++number_);
  }
  void Line(std::string_view said) {
    std::string line(Trimmed(said));
    for (const std::string_view dash : {"- ", "\u2013 ", "\u2014 "})
      if (line.starts_with(dash)) line.erase(0, dash.size());
    if (line == "-") line.clear();
    if (Trimmed(line).empty()) return;
    endsSentence_ = EndsSentence(line);
    text_.Line(line);
  }

 private:
  ExtractedText& text_;
  uint32_t number_ = 0;
  bool endsSentence_ = false;
};

void AddTimed(const std::vector<std::string_view>& lines, bool isVtt, Cues& cues) {
  bool inCue = false;
  bool begun = false;
  for (size_t k = 0; k < lines.size(); ++k) {
    const std::string_view line = lines[k];
    if (IsTiming(line)) {
      inCue = true;
      begun = true;
      cues.Begin();
    } else if (line.empty()) {
      // In SRT what follows may go on, after a blank line that somebody wrote.
      inCue = !isVtt && begun;
    } else if (inCue && !(k + 1 < lines.size() && IsTiming(lines[k + 1]) && (isVtt || IsNumber(line)))) {
      const std::string said = WithoutTags(WithoutTags(line, "<", '>'), "{\\", '}');
      cues.Line(isVtt ? WithoutEntities(said) : said);
    }
  }
}

/// "[01:02.30]", "[ar:Somebody]".
void AddSong(const std::vector<std::string_view>& lines, Cues& cues) {
  for (std::string_view line : lines) {
    while (line.starts_with('[')) {
      const size_t end = line.find(']');
      if (end == kNone) break;
      line = Trimmed(line.substr(end + 1));
    }
    if (line.empty()) continue;
    cues.Begin();
    cues.Line(WithoutTags(line, "<", '>'));
  }
}

}  // namespace

void AddSubtitles(std::string_view file, SubtitleFormat format, ExtractedText& text) {
  const std::vector<std::string_view> lines = LinesOf(file);
  Cues cues(text);
  if (format == SubtitleFormat::Lrc)
    AddSong(lines, cues);
  else
    AddTimed(lines, format == SubtitleFormat::Vtt, cues);
}

}  // namespace korv
