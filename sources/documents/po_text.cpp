#include "sources/documents/po_text.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace korv {

namespace {

constexpr auto kNone = std::string_view::npos;

std::string_view Trimmed(std::string_view line) {
  const size_t begin = std::min(line.find_first_not_of(" \t\r"), line.size());
  return line.substr(begin, line.find_last_not_of(" \t\r") + 1 - begin);
}

/// What an escape stands for; takes it off `rest`, which begins behind the backslash.
char Escaped(std::string_view& rest) {
  if (rest.empty()) return '\\';
  const char sign = rest.front();
  rest.remove_prefix(1);
  switch (sign) {
    case 'n':
    case 'r':
    case 'v':
    case 'f':
      return '\n';
    case 't':
      return '\t';
    case 'a':
    case 'b':
      return ' ';
    default:
      return sign;
  }
}

/// Appends the text between the quotes of a line. False where there are none.
bool AppendQuoted(std::string_view line, std::string& text) {
  if (line.size() < 2 || !line.starts_with('"') || !line.ends_with('"')) return false;
  std::string_view rest = line.substr(1, line.size() - 2);
  while (!rest.empty()) {
    const char c = rest.front();
    rest.remove_prefix(1);
    text += c == '\\' ? Escaped(rest) : c;
  }
  return true;
}

/// The value of a line of the header.
std::string HeaderValue(const std::string& header, std::string_view name) {
  const size_t at = header.find(name);
  if (at == header.npos) return {};
  const size_t begin = at + name.size();
  const size_t end = std::min(header.find_first_of("\n;", begin), header.size());
  return std::string(Trimmed(std::string_view(header).substr(begin, end - begin)));
}

/// Takes the lines of a catalogue.
class Catalogue {
 public:
  Catalogue(const SegmentChoice& choice, ExtractedText& text) : choice_(choice), text_(text) {}

  bool Take(std::string_view line) {
    if (line.empty() || line.starts_with('#')) {
      if (line.empty()) Finish();
      return true;
    }
    if (line.starts_with('"')) return part_ != Part::None && AppendQuoted(line, value_);
    const size_t blank = line.find_first_of(" \t");
    const std::string_view keyword = line.substr(0, blank);
    const Part part = PartOf(keyword);
    if (part == Part::None || blank == kNone) return false;
    // Entries may follow each other without a blank line between.
    if (part == Part::Id || (part == Part::Context && part_ != Part::None))
      Finish(part == Part::Id && part_ == Part::Context);
    EndPart();
    part_ = part;
    return AppendQuoted(Trimmed(line.substr(blank)), value_);
  }
  void Finish(bool goesOn = false) {
    if (goesOn) return;
    EndPart();
    if (texts_.empty() && !hasId_) return;
    const bool isHeader = id_.empty();
    if (isHeader) {
      language_ = HeaderValue(header_, "Language:");
    } else {
      ++entries_;
      for (const std::string& segment : texts_) {
        text_.BeginPlace(entries_);
        text_.EndPhrases();
        text_.Lines(segment);
      }
    }
    texts_.clear();
    id_.clear();
    header_.clear();
    hasId_ = false;
  }

 private:
  enum class Part { None, Context, Id, Plural, Translation };

  static Part PartOf(std::string_view keyword) {
    if (keyword == "msgctxt") return Part::Context;
    if (keyword == "msgid") return Part::Id;
    if (keyword == "msgid_plural") return Part::Plural;
    if (keyword == "msgstr" || keyword.starts_with("msgstr[")) return Part::Translation;
    return Part::None;
  }
  void EndPart() {
    switch (part_) {
      case Part::Id:
        id_ = value_;
        hasId_ = true;
        [[fallthrough]];
      case Part::Plural:
        if (choice_.WantsSource("")) texts_.push_back(value_);
        break;
      case Part::Translation:
        if (id_.empty()) header_ += value_;
        if (choice_.WantsTarget(language_)) texts_.push_back(value_);
        break;
      default:
        break;
    }
    value_.clear();
    part_ = Part::None;
  }

  const SegmentChoice& choice_;
  ExtractedText& text_;
  Part part_ = Part::None;  ///< That value_ belongs to.
  std::string value_;
  std::string id_;
  bool hasId_ = false;
  std::string header_;
  std::string language_;
  std::vector<std::string> texts_;
  uint32_t entries_ = 0;
};

}  // namespace

std::string EncodingOfPo(std::string_view file) {
  constexpr std::string_view kName = "charset=";
  constexpr size_t kLookedAt = 16384;
  const std::string_view head = file.substr(0, kLookedAt);
  const size_t at = head.find(kName);
  if (at == kNone) return "UTF-8";
  const size_t begin = at + kName.size();
  const size_t end = std::min(head.find_first_of("\\\"\n; ", begin), head.size());
  const std::string name(head.substr(begin, end - begin));
  return name.empty() || name == "CHARSET" ? "UTF-8" : name;
}

bool AddPo(std::string_view file, const SegmentChoice& choice, ExtractedText& text) {
  Catalogue catalogue(choice, text);
  while (!file.empty()) {
    const size_t end = std::min(file.find('\n'), file.size());
    if (!catalogue.Take(Trimmed(file.substr(0, end)))) return false;
    file.remove_prefix(std::min(end + 1, file.size()));
  }
  catalogue.Finish();
  return true;
}

}  // namespace korv
