#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/yielder.h"
#include "sources/documents/byte_source.h"
#include "sources/documents/extracted_text.h"

namespace korv {

/// Groups within each other. Documents have some tens.
inline constexpr size_t kMostRtfDepth = 1000;

/// Takes the text out of a document in RTF: each paragraph, cell of a table and break of the line is a line.
/// Footnotes and text boxes follow the paragraph that they stand in. Heads and feet of pages, pictures,
/// comments, deleted and hidden text are left out. Bytes above 127 are read in the encoding of their font.
///
/// Holds one paragraph beside the text. Linear in the document.
class RtfText {
 public:
  RtfText(ByteSource& source, ExtractedText& text) : source_(source), text_(text) {}

  /// Reads all of it. Damaged: its groups do not end where it ends; TooDeep; TooLarge.
  std::optional<DocumentFault> Read(Yielder& yielder);

 private:
  /// What a group inherits from the one around it.
  struct Group {
    bool PassedOver = false;
    bool IsHidden = false;
    bool IsDeleted = false;
    bool InFonts = false;     ///< The table of fonts.
    bool IsAside = false;     ///< Opened a text that follows the paragraph.
    bool IsBegun = false;     ///< A control word was met, so that none can name a destination any more.
    bool IsOptional = false;  ///< "\*": to be passed over where it is not known.
    int SkippedAfterUnicode = 1;
    int Font = -1;
  };

  static constexpr int kEnd = -1;

  int Next();
  int Peek();
  bool Refill();
  std::optional<DocumentFault> TakeGroups(Yielder& yielder);
  void OpenGroup();
  void CloseGroup();
  void TakeControl();
  void TakeWord(std::string_view word, std::optional<int> number);
  bool TakeDestination(std::string_view word);
  bool TakeProperty(std::string_view word, std::optional<int> number);
  void TakeSymbol(char symbol);
  void TakeByte(char byte);
  void TakeUnicode(int number);
  void SkipBytes(int number);
  void PutCharacter(char32_t character);
  void Put(std::string_view text);
  void EndLine();
  void FlushBytes();
  std::string EncodingOfFont() const;
  bool Shows() const;
  CollapsedText& Current() { return asides_.empty() ? paragraph_ : asides_.back(); }
  size_t Held() const { return held_ + bytes_.size(); }

  ByteSource& source_;
  ExtractedText& text_;
  std::string block_;
  size_t at_ = 0;
  std::optional<DocumentFault> fault_;

  std::vector<Group> groups_;
  CollapsedText paragraph_;
  std::vector<CollapsedText> asides_;      ///< Those that are open, each inside of the one before.
  std::vector<std::string> behind_;        ///< Those that follow the paragraph.
  size_t held_ = 0;                        ///< Bytes in these.
  std::string bytes_;                      ///< Text that is not decoded yet.
  std::string encoding_ = "CP1252";        ///< Of the document.
  std::unordered_map<int, int> charsets_;  ///< Of fonts, by their numbers.
  char32_t surrogate_ = 0;                 ///< The first half of a character.
  int skipped_ = 0;                        ///< So many characters stand for older programs only.
};

}  // namespace korv
