#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/word_chars.h"
#include "engine/text/word_rules.h"
#include "sources/detect/comment_markers.h"
#include "sources/scan/line_cleaner.h"

namespace korv {

/// What the scanner finds, in the order of the text.
class WordSink {
 public:
  virtual ~WordSink() = default;
  /// One word as cut, UTF-8, valid during the call.
  virtual void TakeWord(std::string_view word) = 0;
  /// No phrase goes on here. May be called several times between two words.
  virtual void ResetPhrases() = 0;
};

/// Cuts lines into words: cleans a line of double hyphens and named entities, skips regions (kept track
/// of across lines), and hands over the words with the places where phrases end.
///
/// A template over its sink so that the hot loop has no virtual call: line_scanner.cpp instantiates it for
/// CorpusBuilder (counting), WordSink (word lists, tests) and WordCutter (reading as a reader
/// sees a text). Allocates nothing per line or word once its
/// buffers have grown to the longest line that needs cleaning. Linear in the line for every line.
///
///   LineScanner<CorpusBuilder> scanner(rules, markers, stream);
///   scanner.BeginSource();
///   while (reader.NextLine()) scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
template <typename Sink>
class LineScanner {
 public:
  /// Keeps copies of the rules and markers it was made with; `sink` must outlive it. What may stand in a
  /// word is rules.AllowedExtraChars, in a word list "~?" among it.
  LineScanner(const WordRules& rules, const CommentMarkers& markers, Sink& sink);

  /// Starts a text: outside every region.
  void BeginSource() {
    intWithinComment_ = kOutside;
    textBytes_ = 0;
    kept_.clear();
    cleaner_.Reset();
  }
  /// One decoded line without its end. With TerminateAtEndOfLine phrases end before it. A line may come in
  /// pieces, parted anywhere between two characters; a piece that goes on a line is no start of one. Where
  /// more of the line follows, `endsLine` is false: a word, a marker or an entity may go on in it, so that
  /// the scanner may keep what stands before for the next call, some 100,000 characters at most.
  void ScanLine(std::string_view line, bool startsLine = true, bool endsLine = true);
  /// Whether a region goes on behind the line that was scanned last.
  bool InRegion() const { return intWithinComment_ != kOutside; }
  /// Whether something of the line was kept for the next call.
  bool HoldsBack() const { return !kept_.empty() || cleaner_.HoldsBack(); }
  /// That line as words were cut from it, behind what was kept of it from earlier calls: every word handed
  /// over during ScanLine() is a part of this view.
  std::string_view CutLine() const { return line_; }
  /// Bytes of the text's lines, as cleaned and without their ends, that lay outside regions.
  uint64_t TextBytes() const { return textBytes_; }

 private:
  static constexpr int kOutside = -1;
  static constexpr size_t kNotSought = static_cast<size_t>(-2);
  /// Whether the sink also wants to know what stands between the words: a WordCutter does.
  static constexpr bool kTellsText = requires(Sink & sink, std::string_view text) {
    sink.BeginText(text, true);
  };

  /// What a byte can be outside a region, as bits.
  enum Class : uint8_t {
    kWord = 1,        ///< ASCII character that may stand in a word ...
    kTrimmed = 2,     ///< ... but is cut off its ends.
    kMarker = 4,      ///< May begin a marker.
    kTerminator = 8,  ///< Ends phrases anywhere between words.
    kAfterWord = 16,  ///< Ends phrases right after a word.
    kNotAscii = 32,   ///< Part of a longer character.
    kElision = 64,    ///< The apostrophe, where it stands in words only before "s" and "t".
  };

  /// 64 bytes of the line, sorted by what they can be.
  struct Window {
    size_t Begin = kNotSought;  ///< A multiple of 64; the window ends with the line.
    uint64_t Letters = 0;       ///< A bit for each byte in lane 1, the first lowest ...
    uint64_t Separators = 0;    ///< ... and for each in lane 2.
  };
  /// Places of parentheses, ascending.
  struct Parentheses {
    std::vector<size_t> Opening;
    std::vector<size_t> Closing;
  };

  void ClassifyBytes(const WordRules& rules);
  std::string_view BehindKept(std::string_view text);
  size_t ScanText();

  // All positions are bytes of line_, the line being scanned.
  unsigned ClassAt(size_t at) const { return classes_[static_cast<unsigned char>(line_[at])]; }
  bool StandsAt(size_t at, std::string_view marker);
  void WaitForRestOf(std::string_view marker, size_t at);
  size_t CdataDelimiterAt(size_t at);
  int PairAt(size_t at);
  bool HasMarkerAt(size_t at) { return CdataDelimiterAt(at) != 0 || PairAt(at) != kOutside; }
  bool AmpersandIsMarker(size_t at);
  bool SemicolonCounts(size_t ampersand);
  size_t CharactersBefore(size_t at, size_t characters) const;
  size_t PastMarker(size_t at);
  size_t PastRegion(size_t at);
  size_t EndOfRegion(size_t at);
  void Wait() { undecided_ = undecided_ || !endsLine_; }

  CharKind KindOfLong(size_t at, size_t& past) const;
  bool IsBehindLetter(size_t begin, size_t at) const;
  size_t PastWordCharacter(size_t begin, size_t at);
  size_t EndOfRun(size_t begin);
  size_t EndOfLongRun(size_t begin);
  size_t WithApostrophe(size_t begin, size_t end);
  bool WordCanEndBehind(size_t letter);
  void Trim(size_t& begin, size_t& end);
  void FindLoneParentheses(size_t begin, size_t end);
  size_t TakeRun(size_t begin);

  // Most words are letters between two plain separators. They are found by bits, 64 bytes at a time.
  void LoadWindow(size_t begin);
  size_t PastSeparators(size_t at);
  size_t PastLetters(size_t at);
  size_t TakePlainWords(size_t at);

  CommentMarkers markers_;
  Sink* sink_;
  const ShortKinds* shortKinds_;
  std::array<uint8_t, 256> classes_{};
  std::array<uint8_t, 256> lanes_{};  ///< 1: a byte that goes on a run, whatever follows; 2: a separator.
  bool terminatesAtEndOfLine_;
  bool apostropheIsWordCharacter_ = false;
  bool isMarkup_;
  int intWithinComment_ = kOutside;  ///< The pair of the region that goes on.
  uint64_t textBytes_ = 0;
  LineCleaner cleaner_;
  std::string kept_;      ///< Cleaned text of this line that could not be scanned before more of it came.
  bool endsLine_ = true;  ///< The line ends with line_.
  /// What a word that reaches the end of line_ meets there: kWord where it may go on.
  unsigned behindLine_ = 0;
  bool undecided_ = false;  ///< What comes behind line_ decides what stands at the place reached.
  std::string_view line_;
  size_t semicolon_ = kNotSought;      ///< The next one from some place of line_ on; npos: there is none.
  size_t semicolonFrom_ = kNotSought;  ///< An "&" from here on is near enough to it (or to what follows).
  Window window_;
  Parentheses lone_;  ///< Those of a run that have no partner in it.
};

}  // namespace korv
