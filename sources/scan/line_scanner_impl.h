#pragma once

#include <algorithm>
#include <bit>

#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"
#include "sources/scan/find_marker.h"
#include "sources/scan/line_scanner.h"
#include "sources/scan/markup.h"

// The body of LineScanner; included where it is instantiated.

namespace korv {
namespace line_scanner {

inline constexpr std::string_view kPunctuationInWords = "'.,()+-";
inline constexpr std::string_view kCdataBegin = "<![cdata[";
inline constexpr std::string_view kCdataEnd = "]]>";

inline constexpr std::string_view kNonJoiner = "\u200C";
inline constexpr std::string_view kJoiner = "\u200D";

/// A ";" further away than this many characters ends no entity.
inline constexpr size_t kFarthestSemicolon = 65000;

/// Bytes of what EntityLength looks at: 20 characters.
inline constexpr size_t kLongestNamed = 80;
/// The same of the shortest entity: four characters.
inline constexpr size_t kShortestNamed = 16;

inline constexpr size_t kWindow = 64;

/// The lowest bits of eight bytes as the bits of one. The factors of the product meet nowhere, so that no
/// carry spoils them.
inline uint64_t GatherLowBits(uint64_t bytes) {
  return ((bytes & 0x0101010101010101) * 0x0102040810204080) >> 56;
}

inline bool IsLetter(char c) {
  return LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z';
}

/// Whether more text behind `rest`, which begins with "&", may change what EntityLength says of it.
inline bool MayBecomeEntity(std::string_view rest) {
  if (rest.size() < kShortestNamed && CharacterCount(rest) < 4) return true;
  if (rest.size() >= kLongestNamed || rest.find(';') != std::string_view::npos) return false;
  return rest.find(' ') == std::string_view::npos;
}

}  // namespace line_scanner

template <typename Sink>
LineScanner<Sink>::LineScanner(const WordRules& rules, const CommentMarkers& markers, Sink& sink)
    : markers_(markers),
      sink_(&sink),
      shortKinds_(&KindsOfShortCodes()),
      terminatesAtEndOfLine_(rules.TerminateAtEndOfLine),
      isMarkup_(IsMarkup(markers.Language)),
      cleaner_(markers.blnCharacterEntitiesPossible) {
  ClassifyBytes(rules);
}

template <typename Sink>
void LineScanner<Sink>::ClassifyBytes(const WordRules& rules) {
  const auto add = [this](char c, unsigned bits) {
    uint8_t& of = classes_[static_cast<unsigned char>(c)];
    of = static_cast<uint8_t>(of | bits);
  };
  for (unsigned code = 0; code < 0x80; ++code)
    if (IsWordCharCode(code, false, rules.AllowedExtraChars)) add(static_cast<char>(code), kWord);
  for (const char c : line_scanner::kPunctuationInWords)
    if (classes_[static_cast<unsigned char>(c)] & kWord) add(c, kTrimmed);
  apostropheIsWordCharacter_ = (classes_['\''] & kWord) != 0;
  for (unsigned code = 0x80; code < 0x100; ++code) add(static_cast<char>(code), kNotAscii);

  for (int k = 0; k < markers_.intNumCommentMarkers; ++k)
    add(markers_.Markers[static_cast<size_t>(k)].Start[0], kMarker);
  if (isMarkup_) {
    add(line_scanner::kCdataBegin[0], kMarker);
    add(line_scanner::kCdataEnd[0], kMarker);
  }

  if (rules.TerminateAtDoubleQuote) add('"', kTerminator);
  if (rules.TerminateAtTab) add('\t', kTerminator);
  if (rules.TerminateAtPeriod) add('.', kAfterWord);
  if (rules.TerminateAtComma) add(',', kAfterWord);
  if (!apostropheIsWordCharacter_) add('\'', kElision);

  for (size_t code = 0; code < classes_.size(); ++code) {
    const unsigned is = classes_[code];
    if (is == kWord)
      lanes_[code] = 1;
    else if ((is | kAfterWord | kElision) == (kAfterWord | kElision))
      lanes_[code] = 2;
  }
}

template <typename Sink>
void LineScanner<Sink>::ScanLine(std::string_view line, bool startsLine, bool endsLine) {
  if (startsLine && terminatesAtEndOfLine_) sink_->ResetPhrases();
  endsLine_ = endsLine;
  behindLine_ = endsLine ? 0 : kWord;
  line_ = BehindKept(cleaner_.Clean(line, startsLine, endsLine));
  if constexpr (kTellsText) sink_->BeginText(line_, startsLine);
  const size_t scanned = ScanText();
  if constexpr (kTellsText) sink_->EndText(scanned, endsLine);
  if (scanned == line_.size() && kept_.empty()) return;
  textBytes_ -= line_.size() - scanned;
  kept_ = std::string(line_.substr(scanned));
}

/// Scans line_. Returns where what cannot be decided yet begins: the end, nearly always.
template <typename Sink>
size_t LineScanner<Sink>::ScanText() {
  textBytes_ += line_.size();
  semicolon_ = kNotSought;
  window_.Begin = kNotSought;
  undecided_ = false;
  size_t at = intWithinComment_ == kOutside ? 0 : PastRegion(0);
  if (undecided_) return at;
  while ((at = TakePlainWords(at)) < line_.size()) {
    const unsigned is = ClassAt(at);
    if (is & kMarker) {
      const size_t past = PastMarker(at);
      if (undecided_) return past;
      if (past != at) {
        at = past;
        continue;
      }
    }
    if (is & kWord) {
      const size_t begin = at;
      at = TakeRun(begin);
      if (undecided_) return begin;
    } else if (is & kNotAscii) {
      size_t past;
      const size_t begin = at;
      at = KindOfLong(at, past) == CharKind::Letter ? TakeRun(at) : past;
      if (undecided_) return begin;
    } else {
      if (is & kTerminator) sink_->ResetPhrases();
      ++at;
    }
  }
  return line_.size();
}

/// What was kept of the line, and `text` after it.
template <typename Sink>
std::string_view LineScanner<Sink>::BehindKept(std::string_view text) {
  if (kept_.empty()) return text;
  kept_ += text;
  return kept_;
}

/// Whether `marker` stands at `at`. Where line_ ends inside it, what follows decides.
template <typename Sink>
bool LineScanner<Sink>::StandsAt(size_t at, std::string_view marker) {
  if (MarkerStandsAt(line_, at, marker)) return true;
  if (!endsLine_) WaitForRestOf(marker, at);
  return false;
}

template <typename Sink>
void LineScanner<Sink>::WaitForRestOf(std::string_view marker, size_t at) {
  const size_t left = line_.size() - at;
  if (left < marker.size() && MarkerStandsAt(line_, at, marker.substr(0, left))) Wait();
}

/// The length of the CDATA delimiter at `at`; 0: none, or undecided.
template <typename Sink>
size_t LineScanner<Sink>::CdataDelimiterAt(size_t at) {
  if (!isMarkup_) return 0;
  for (const std::string_view delimiter : {line_scanner::kCdataBegin, line_scanner::kCdataEnd})
    if (StandsAt(at, delimiter)) return delimiter.size();
  return 0;
}

/// The first pair whose start marker stands at `at`, or kOutside. Says nothing where it is undecided.
template <typename Sink>
int LineScanner<Sink>::PairAt(size_t at) {
  for (int k = 0; k < markers_.intNumCommentMarkers; ++k) {
    const std::string_view start = markers_.Markers[static_cast<size_t>(k)].Start;
    if (StandsAt(at, start) && (start != "&" || AmpersandIsMarker(at))) return k;
  }
  return kOutside;
}

template <typename Sink>
bool LineScanner<Sink>::AmpersandIsMarker(size_t at) {
  const std::string_view rest = line_.substr(at);
  if (!endsLine_ && line_scanner::MayBecomeEntity(rest)) {
    undecided_ = true;
    return false;
  }
  return EntityLength(rest) != 0 && SemicolonCounts(at);
}

/// Whether a ";" follows that is near enough. Where none does in line_ but one may yet come, undecided_ is
/// set.
template <typename Sink>
bool LineScanner<Sink>::SemicolonCounts(size_t ampersand) {
  constexpr size_t kFarthest = line_scanner::kFarthestSemicolon;
  if (semicolon_ == kNotSought || semicolon_ < ampersand) {
    semicolon_ = line_.find(';', ampersand);
    semicolonFrom_ = kNotSought;
  }
  const size_t end = std::min(semicolon_, line_.size());
  if (end - ampersand > kFarthest) {
    if (semicolonFrom_ == kNotSought) semicolonFrom_ = CharactersBefore(end, kFarthest);
    if (ampersand < semicolonFrom_) return false;
  }
  if (semicolon_ != std::string_view::npos) return true;
  Wait();
  return false;
}

/// The byte so many characters before byte `at`, or the beginning.
template <typename Sink>
size_t LineScanner<Sink>::CharactersBefore(size_t at, size_t characters) const {
  while (at > 0 && characters > 0) characters -= (static_cast<unsigned char>(line_[--at]) & 0xC0) != 0x80;
  return at;
}

/// Past the delimiter or the region that begins at `at`, or `at` where none does. Where that is undecided,
/// the place to go on from when more of the line has come.
template <typename Sink>
size_t LineScanner<Sink>::PastMarker(size_t at) {
  if (const size_t length = CdataDelimiterAt(at)) {
    textBytes_ -= length;
    if constexpr (kTellsText) sink_->Skip(at, at + length);
    return at + length;
  }
  const int pair = PairAt(at);
  if (pair == kOutside || undecided_) return at;
  intWithinComment_ = pair;
  const size_t inside = at + markers_.Markers[static_cast<size_t>(pair)].Start.size();
  textBytes_ -= inside - at;
  if constexpr (kTellsText) sink_->Skip(at, inside);
  return PastRegion(inside);
}

/// Past the end marker of the region that holds `at`, or the end of the line. Where line_ ends inside what
/// may be that marker, the place where it begins.
template <typename Sink>
size_t LineScanner<Sink>::PastRegion(size_t at) {
  const size_t past = EndOfRegion(at);
  textBytes_ -= past - at;
  if constexpr (kTellsText) sink_->Skip(at, past);
  return past;
}

template <typename Sink>
size_t LineScanner<Sink>::EndOfRegion(size_t at) {
  const std::string_view end = markers_.Markers[static_cast<size_t>(intWithinComment_)].End;
  if (end.empty()) {
    if (endsLine_) intWithinComment_ = kOutside;
    return line_.size();
  }
  const size_t found = FindMarker(line_, at, end);
  if (found == std::string_view::npos) {
    if (endsLine_) return line_.size();
    size_t cut = std::max(at, line_.size() - std::min(line_.size(), end.size() - 1));
    while (cut < line_.size() && !MarkerStandsAt(line_, cut, end.substr(0, line_.size() - cut))) ++cut;
    undecided_ = cut < line_.size();
    return cut;
  }
  intWithinComment_ = kOutside;
  return found + end.size();
}

/// What the character at `at` is, which is no ASCII, and where it ends.
template <typename Sink>
CharKind LineScanner<Sink>::KindOfLong(size_t at, size_t& past) const {
  const char32_t c = NextCharacter(line_, at);
  past = at;
  return c < kShortCodes ? (*shortKinds_)[c] : KindOf(c);
}

/// Whether what stands before `at` in the run from `begin` on is a letter or a mark. No other character
/// beyond ASCII gets into a run, except joiners.
template <typename Sink>
bool LineScanner<Sink>::IsBehindLetter(size_t begin, size_t at) const {
  if (at == begin) return false;
  const char last = line_[at - 1];
  if (static_cast<unsigned char>(last) < 0x80) return line_scanner::IsLetter(last);
  return !line_.substr(begin, at - begin).ends_with(line_scanner::kNonJoiner) &&
         !line_.substr(begin, at - begin).ends_with(line_scanner::kJoiner);
}

/// Past the word character at `at` of the run from `begin` on, or `at` where the run ends there.
template <typename Sink>
size_t LineScanner<Sink>::PastWordCharacter(size_t begin, size_t at) {
  const unsigned is = ClassAt(at);
  if (is & kNotAscii) {
    size_t past;
    const CharKind kind = KindOfLong(at, past);
    if (kind == CharKind::Letter) return past;
    if (kind == CharKind::Other || !IsBehindLetter(begin, at)) return at;
    if (kind == CharKind::Mark) return past;
    if (past == line_.size()) {
      Wait();
      return at;
    }
    size_t next = past;
    return KindOf(NextCharacter(line_, next)) == CharKind::Letter ? past : at;
  }
  if (!(is & kWord) || ((is & kMarker) && HasMarkerAt(at))) return at;
  return at + 1;
}

template <typename Sink>
size_t LineScanner<Sink>::EndOfRun(size_t begin) {
  const size_t certain = std::min(line_.size(), begin + kMostWordCharacters);
  size_t at = begin;
  while (at < certain) {
    if ((ClassAt(at) & (kWord | kMarker)) == kWord) {
      ++at;
      continue;
    }
    const size_t past = PastWordCharacter(begin, at);
    if (past == at) return at;
    at = past;
  }
  if (at < line_.size()) return EndOfLongRun(begin);
  Wait();
  return at;
}

/// The same, counting: the run has more bytes than a word may have characters.
template <typename Sink>
size_t LineScanner<Sink>::EndOfLongRun(size_t begin) {
  size_t at = begin;
  for (size_t characters = 0; at < line_.size() && characters < kMostWordCharacters; ++characters) {
    const size_t past = PastWordCharacter(begin, at);
    if (past == at) return at;
    at = past;
  }
  if (at == line_.size()) Wait();
  return at;
}

/// Whether the letter behind an apostrophe may end a word: before no word character, one that would be cut
/// off a word's end, a marker, or the end of the line.
template <typename Sink>
bool LineScanner<Sink>::WordCanEndBehind(size_t letter) {
  const size_t at = letter + 1;
  if (at == line_.size()) {
    Wait();
    return true;
  }
  return (ClassAt(at) & kTrimmed) || PastWordCharacter(letter, at) == at;
}

/// The end of the run with the apostrophe and "s" or "t" that belong to it; `end` where none does.
template <typename Sink>
size_t LineScanner<Sink>::WithApostrophe(size_t begin, size_t end) {
  if (apostropheIsWordCharacter_ || end == line_.size() || line_[end] != '\'') return end;
  if (end + 1 == line_.size()) {
    Wait();
    return end;
  }
  const unsigned char letter = LowerAscii(line_[end + 1]);
  if ((letter != 's' && letter != 't') || !WordCanEndBehind(end + 1)) return end;
  if (letter == 't') {
    while (begin < end && (ClassAt(begin) & kTrimmed)) ++begin;
    if (!IsNegativeContractionStem(line_.substr(begin, end - begin))) return end;
  }
  return end + 2;
}

/// Notes the parentheses of a run that have no partner in it, paired by nesting.
template <typename Sink>
void LineScanner<Sink>::FindLoneParentheses(size_t begin, size_t end) {
  lone_.Opening.clear();
  lone_.Closing.clear();
  for (size_t at = begin; at < end; ++at) {
    if (line_[at] == '(') {
      lone_.Opening.push_back(at);
    } else if (line_[at] == ')') {
      if (lone_.Opening.empty())
        lone_.Closing.push_back(at);
      else
        lone_.Opening.pop_back();
    }
  }
}

/// Cuts punctuation off both ends of a run, but no parenthesis whose partner it holds.
template <typename Sink>
void LineScanner<Sink>::Trim(size_t& begin, size_t& end) {
  if (!((ClassAt(begin) | ClassAt(end - 1)) & kTrimmed)) return;
  FindLoneParentheses(begin, end);
  const auto isParenthesis = [this](size_t at) { return line_[at] == '(' || line_[at] == ')'; };
  const auto isLone = [this](size_t at) {
    return std::binary_search(lone_.Opening.begin(), lone_.Opening.end(), at) ||
           std::binary_search(lone_.Closing.begin(), lone_.Closing.end(), at);
  };
  const auto isCut = [&](size_t at) {
    return (ClassAt(at) & kTrimmed) && (!isParenthesis(at) || isLone(at));
  };
  while (begin < end && isCut(begin)) ++begin;
  while (begin < end && isCut(end - 1)) --end;
}

/// Hands over the word that the run at `begin` holds, if any. Returns where to go on; the place does not
/// matter where the end of the run is undecided.
template <typename Sink>
size_t LineScanner<Sink>::TakeRun(size_t begin) {
  const size_t next = WithApostrophe(begin, EndOfRun(begin));
  if (undecided_) return begin;
  size_t end = next;
  Trim(begin, end);
  if (begin == end) return next;
  sink_->TakeWord(line_.substr(begin, end - begin));
  if (end < line_.size() && (ClassAt(end) & kAfterWord)) sink_->ResetPhrases();
  return next;
}

/// Sorts the bytes of the window into lanes: a table look-up each, the bits of eight gathered at once.
template <typename Sink>
void LineScanner<Sink>::LoadWindow(size_t begin) {
  window_.Begin = begin;
  window_.Letters = 0;
  window_.Separators = 0;
  const size_t size = std::min(line_.size() - begin, line_scanner::kWindow);
  for (size_t eight = 0; eight < size; eight += 8) {
    const size_t count = std::min<size_t>(8, size - eight);
    uint64_t lanes = 0;
    for (size_t k = 0; k < count; ++k)
      lanes |= uint64_t{lanes_[static_cast<unsigned char>(line_[begin + eight + k])]} << (8 * k);
    window_.Letters |= line_scanner::GatherLowBits(lanes) << eight;
    window_.Separators |= line_scanner::GatherLowBits(lanes >> 1) << eight;
  }
}

template <typename Sink>
size_t LineScanner<Sink>::PastSeparators(size_t at) {
  for (; at < line_.size(); at = window_.Begin + line_scanner::kWindow) {
    const size_t within = at % line_scanner::kWindow;
    if (at - within != window_.Begin) LoadWindow(at - within);
    const uint64_t others = ~window_.Separators >> within;
    if (others != 0) return at + static_cast<size_t>(std::countr_zero(others));
  }
  return at;
}

/// The same for the bytes that go on a run; somewhere in it once that is longer than a word can be, because
/// the run is then taken in parts, and each would look for its end.
template <typename Sink>
size_t LineScanner<Sink>::PastLetters(size_t at) {
  const size_t enough = at + kMostWordCharacters + 1;
  for (; at < std::min(line_.size(), enough); at = window_.Begin + line_scanner::kWindow) {
    const size_t within = at % line_scanner::kWindow;
    if (at - within != window_.Begin) LoadWindow(at - within);
    const uint64_t others = ~window_.Letters >> within;
    if (others != 0) return at + static_cast<size_t>(std::countr_zero(others));
  }
  return at;
}

/// Takes words from `at` on while that asks for no second look. Returns where it does.
template <typename Sink>
size_t LineScanner<Sink>::TakePlainWords(size_t at) {
  for (;;) {
    const size_t begin = PastSeparators(at);
    const size_t end = PastLetters(begin);
    if (end == begin || end - begin > kMostWordCharacters) return begin;
    const unsigned follows = end < line_.size() ? ClassAt(end) : behindLine_;
    if (follows & (kWord | kNotAscii | kElision)) return begin;
    sink_->TakeWord(line_.substr(begin, end - begin));
    if (follows & kAfterWord) sink_->ResetPhrases();
    at = end;
  }
}

}  // namespace korv
