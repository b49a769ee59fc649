#include "sources/scan/word_cutter.h"

#include <algorithm>

#include "engine/text/blankless.h"
#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {

namespace {

constexpr std::string_view kBlanks = " \t\f\v";
constexpr std::string_view kSignsAtEnds = "'.,()+-_:/\\@&";

bool IsIn(char32_t character, std::u32string_view characters) {
  return characters.find(character) != std::u32string_view::npos;
}

bool IsAsciiLetters(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80 && KindOf(static_cast<unsigned char>(c)) == CharKind::Letter;
  });
}

bool IsBlank(char32_t character) {
  return character == U' ' || character == U'\t' || character == U'\u3000' || character == U'\u200B';
}

}  // namespace

bool WordCutter::IsNeeded(const WordRules& rules) {
  return rules.TerminateAtSentence || rules.TerminateAtBlock || rules.UnicodeWords ||
         rules.Segment != Segmentation::Off;
}

WordCutter::WordCutter(const WordRules& rules, WordSink& inner)
    : inner_(&inner),
      atSentences_(rules.TerminateAtSentence),
      atBlocks_(rules.TerminateAtBlock || rules.TerminateAtSentence),
      atPeriods_(rules.TerminateAtPeriod && rules.Segment != Segmentation::Off),
      atCommas_(rules.TerminateAtComma && rules.Segment != Segmentation::Off),
      unicodeWords_(rules.UnicodeWords && Segmenter::IsThere()),
      segment_(rules.Segment),
      readsSigns_(atSentences_ || atPeriods_ || atCommas_) {}

void WordCutter::BeginSource(bool linesAreBlocks) {
  linesAreBlocks_ = linesAreBlocks;
  isBlank_ = true;
  sentences_.Reset();
}

void WordCutter::BeginText(std::string_view text, bool startsLine) {
  text_ = text;
  read_ = 0;
  lineIsCut_ = Cut::Unknown;
  if (startsLine) isBlank_ = true;
  isBlank_ = isBlank_ && text.find_first_not_of(kBlanks) == std::string_view::npos;
}

void WordCutter::Skip(size_t begin, size_t end) {
  ReadUpTo(begin);
  read_ = std::max(read_, end);
}

void WordCutter::EndText(size_t end, bool endsLine) {
  ReadUpTo(end);
  if (endsLine) EndLine();
}

/// The end of a paragraph ends a sentence too.
void WordCutter::EndLine() {
  if (isBlank_ || linesAreBlocks_) {
    if (atBlocks_) inner_->ResetPhrases();
    sentences_.Reset();
  } else if (atSentences_ && sentences_.Feed(U' ')) {
    inner_->ResetPhrases();
  }
}

/// Looks at the signs before `end` that have not been looked at.
void WordCutter::ReadUpTo(size_t end) {
  if (!readsSigns_) return;
  while (read_ < end)
    if (EndsPhrase(NextCharacter(text_, read_))) inner_->ResetPhrases();
}

bool WordCutter::EndsPhrase(char32_t character) {
  if ((atPeriods_ && IsIn(character, U"\u3002\uFF0E\uFF61")) ||
      (atCommas_ && IsIn(character, U"\uFF0C\u3001")))
    return true;
  if (!atSentences_) return false;
  const bool ended = sentences_.Feed(character);
  // Apostrophes are among the signs that close, and typographic ones are plain by now.
  return ended || (SentenceClassOf(character) == SentenceClass::Close && character != U'\'');
}

void WordCutter::TakeWord(std::string_view word) {
  const auto begin = static_cast<size_t>(word.data() - text_.data());
  const size_t end = begin + word.size();
  if (unicodeWords_ && !IsAsciiLetters(word)) return CutByUnicode(begin, end);
  if (segment_ != Segmentation::Off && MayHoldBlankless(word)) return CutBlankless(begin, end);
  TakePiece(begin, end);
}

void WordCutter::TakePiece(size_t begin, size_t end) {
  ReadUpTo(begin);
  if (atSentences_) {
    if (EndsBefore(begin, end)) inner_->ResetPhrases();
    read_ = end;
  }
  inner_->TakeWord(text_.substr(begin, end - begin));
}

/// Whether a sentence ends before the word [begin, end).
bool WordCutter::EndsBefore(size_t begin, size_t end) {
  bool ended = false;
  while (begin < end) ended = sentences_.Feed(NextCharacter(text_, begin)) || ended;
  if (!sentences_.InDoubt()) return ended;
  ended = DoubtEndsSentence(end) || ended;
  sentences_.Settle();
  return ended;
}

bool WordCutter::DoubtEndsSentence(size_t from) const {
  SentenceBreaks ahead = sentences_;
  while (from < text_.size()) {
    if (ahead.Feed(NextCharacter(text_, from))) return true;
    if (!ahead.InDoubt()) return false;
  }
  return true;
}

void WordCutter::CutByUnicode(size_t begin, size_t end) {
  segmenter_.Cut(text_.substr(begin, end - begin), pieces_);
  for (const Segmenter::Piece& piece : pieces_) TakePiece(begin + piece.Begin, begin + piece.End);
}

/// Cuts a word into its runs of blankless characters and what stands between them.
void WordCutter::CutBlankless(size_t begin, size_t end) {
  const auto pastRun = [&](size_t at, bool blankless) {
    while (at < end) {
      size_t past = at;
      const char32_t character = NextCharacter(text_, past);
      if (KindOf(character) != CharKind::Mark && IsBlankless(character) != blankless) break;
      at = past;
    }
    return at;
  };
  if (segment_ == Segmentation::Auto && LineIsCut()) return TakePiece(begin, end);
  for (size_t at = begin; at < end;) {
    const size_t run = pastRun(at, false);
    TakeOthers(at, run);
    at = pastRun(run, true);
    if (run < at) CutRun(run, at);
  }
}

/// What stands between blankless runs: a word unless it is signs alone.
void WordCutter::TakeOthers(size_t begin, size_t end) {
  const std::string_view text = text_.substr(begin, end - begin);
  const size_t first = text.find_first_not_of(kSignsAtEnds);
  if (first == std::string_view::npos) return;
  TakePiece(begin + first, begin + text.find_last_not_of(kSignsAtEnds) + 1);
}

void WordCutter::CutRun(size_t begin, size_t end) {
  if (segment_ == Segmentation::Characters) return CutCharacters(begin, end);
  if (!Segmenter::IsThere()) return TakePiece(begin, end);
  CutByUnicode(begin, end);
}

/// Each ideograph and each sign of the kana is a word, with its marks; other scripts stay as they are.
void WordCutter::CutCharacters(size_t begin, size_t end) {
  for (size_t at = begin; at < end;) {
    size_t past = at;
    const bool alone = IsIdeographOrKana(NextCharacter(text_, past));
    while (past < end) {
      size_t next = past;
      const char32_t character = NextCharacter(text_, next);
      if (KindOf(character) != CharKind::Mark && (alone || IsIdeographOrKana(character))) break;
      past = next;
    }
    TakePiece(at, past);
    at = past;
  }
}

/// Whether blanks stand between nearly all words of the line already.
bool WordCutter::LineIsCut() {
  constexpr size_t kLeastRuns = 5;
  constexpr size_t kMostLetters = 4;  // Of a run, in the mean.
  if (lineIsCut_ != Cut::Unknown) return lineIsCut_ == Cut::Yes;
  size_t runs = 0;
  size_t beforeBlanks = 0;
  size_t letters = 0;
  bool inRun = false;
  for (size_t at = 0; at < text_.size();) {
    const char32_t character = NextCharacter(text_, at);
    if (IsBlankless(character) && KindOf(character) != CharKind::Other) {
      letters += KindOf(character) == CharKind::Letter;
      runs += !inRun;
      inRun = true;
    } else if (inRun && KindOf(character) != CharKind::Mark) {
      inRun = false;
      beforeBlanks += IsBlank(character);
    }
  }
  beforeBlanks += inRun;
  const bool isCut = runs >= kLeastRuns && beforeBlanks * 5 >= runs * 4 && letters <= kMostLetters * runs;
  lineIsCut_ = isCut ? Cut::Yes : Cut::No;
  return isCut;
}

}  // namespace korv
