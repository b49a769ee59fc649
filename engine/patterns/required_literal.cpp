#include "engine/patterns/required_literal.h"

#include <algorithm>
#include <cstddef>

#include "engine/patterns/wildcard.h"

namespace korv {

namespace {

/// Collects runs of plain characters and keeps the best one.
class Runs {
 public:
  void Add(char c) { run_ += c; }
  void DropLast() {
    // A character of several bytes goes as a whole.
    while (!run_.empty()) {
      const auto last = static_cast<unsigned char>(run_.back());
      run_.pop_back();
      if (last < 0x80 || last >= 0xC0) break;
    }
  }
  void Close(bool atEnd = false) {
    const RequiredLiteral::Position where = atBeginning_ ? RequiredLiteral::Position::Beginning
                                            : atEnd      ? RequiredLiteral::Position::End
                                                         : RequiredLiteral::Position::Anywhere;
    // Of equal length, a literal at a known position rejects more.
    if (run_.size() > best_.Text.size() ||
        (run_.size() == best_.Text.size() && where != RequiredLiteral::Position::Anywhere))
      best_ = {run_, where};
    run_.clear();
    atBeginning_ = false;
  }
  void BeginAtBeginning() { atBeginning_ = true; }
  RequiredLiteral Best() { return std::move(best_); }

 private:
  std::string run_;
  bool atBeginning_ = false;
  RequiredLiteral best_;
};

/// Reads the top level of an expression, alternative by alternative. Every step returns false at a construct
/// that it does not know.
class ExpressionReader {
 public:
  ExpressionReader(std::string_view expression, bool caseSignificant)
      : text_(expression), caseSignificant_(caseSignificant) {}

  std::vector<RequiredLiteral> Read() {
    std::vector<RequiredLiteral> needed;
    for (;; ++at_) {
      const RequiredLiteral best = ReadAlternative();
      if (best.Text.empty()) return {};
      needed.push_back(best);
      if (at_ == text_.size()) return needed;
    }
  }

  /// Whether everything is known, alternatives and anchors in odd places included.
  bool IsKnown() {
    while (at_ < text_.size()) {
      if (text_[at_] == '|' || text_[at_] == '^' || text_[at_] == '$')
        ++at_;
      else if (!Item())
        return false;
    }
    return true;
  }

 private:
  /// Reads up to the next "|" or the end. Empty where no literal is required or a construct is not known.
  RequiredLiteral ReadAlternative() {
    runs_ = Runs();
    endsAtEnd_ = false;
    if (at_ < text_.size() && text_[at_] == '^') {
      ++at_;
      runs_.BeginAtBeginning();
    }
    while (at_ < text_.size() && text_[at_] != '|')
      if (!Item()) return {};
    runs_.Close(endsAtEnd_);
    return runs_.Best();
  }

  bool Item() {
    const char c = text_[at_];
    switch (c) {
      case '|':
      case ')':
      case '*':
      case '+':
      case '?':
      case '{':
      case '^':
        return false;
      case '$':
        // Only the end of an alternative is known.
        ++at_;
        endsAtEnd_ = at_ == text_.size() || text_[at_] == '|';
        return endsAtEnd_;
      case '.':
        ++at_;
        return Opaque();
      case '[':
        return SkipClass() && Opaque();
      case '(':
        return SkipGroup() && Opaque();
      case '\\':
        return Escape();
      default:
        ++at_;
        return Plain(c);
    }
  }

  bool Plain(char c) {
    const bool ascii = static_cast<unsigned char>(c) < 0x80;
    if (!ascii && !caseSignificant_) {
      runs_.Close();
      // A quantifier belongs to the whole character.
      return SkipQuantifier();
    }
    const bool capital = c >= 'A' && c <= 'Z' && !caseSignificant_;
    runs_.Add(capital ? static_cast<char>(c + ('a' - 'A')) : c);
    if (at_ == text_.size() || !IsQuantifier(text_[at_])) return true;
    // "ab+" requires "ab", but what follows need not stand right behind it.
    if (text_[at_] != '+') runs_.DropLast();
    runs_.Close();
    return SkipQuantifier();
  }

  bool Escape() {
    if (at_ + 1 == text_.size()) return false;
    const char c = text_[at_ + 1];
    at_ += 2;
    const bool letterOrDigit =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    if (!letterOrDigit) return static_cast<unsigned char>(c) < 0x80 && Plain(c);
    // Classes and word boundaries; everything else may change the meaning of what follows.
    if (std::string_view("wWdDsSbB").find(c) == std::string_view::npos) return false;
    return Opaque();
  }

  bool Opaque() {
    runs_.Close();
    return SkipQuantifier();
  }

  /// After a backslash: quotes what follows, or takes the next character whatever it is.
  static bool ReachesFar(char c) { return c == 'Q' || c == 'E' || c == 'c'; }

  static bool IsQuantifier(char c) { return c == '*' || c == '+' || c == '?' || c == '{'; }

  bool SkipQuantifier() {
    if (at_ == text_.size() || !IsQuantifier(text_[at_])) return true;
    if (text_[at_] == '{') {
      // Only with numbers is it one; else it stands for itself, and an alternative may begin before its end.
      const size_t close = text_.find_first_not_of("0123456789,", at_ + 1);
      if (close == std::string_view::npos || text_[close] != '}' || close == at_ + 1) return false;
      at_ = close;
    }
    ++at_;
    if (at_ < text_.size() && (text_[at_] == '?' || text_[at_] == '+')) ++at_;
    return true;
  }

  bool SkipClass() {
    size_t i = at_ + 1;
    if (i < text_.size() && text_[i] == '^') ++i;
    for (; i < text_.size() && text_[i] != ']'; ++i) {
      if (text_[i] == '[') return false;
      if (text_[i] == '\\') {
        if (i + 1 == text_.size() || ReachesFar(text_[i + 1])) return false;
        ++i;
      }
    }
    if (i >= text_.size()) return false;
    at_ = i + 1;
    return true;
  }

  /// Skips a group. Nothing in it is taken as required.
  bool SkipGroup() {
    int depth = 0;
    do {
      const char c = text_[at_];
      if (c == '[') {
        if (!SkipClass()) return false;
        continue;
      }
      if (c == '\\') {
        if (at_ + 1 == text_.size() || ReachesFar(text_[at_ + 1])) return false;
        at_ += 2;
        continue;
      }
      if (c == '(') {
        ++depth;
        const std::string_view rest = text_.substr(at_ + 1);
        if (rest.starts_with('*')) return false;
        if (rest.starts_with('?') && !rest.starts_with("?:") && !rest.starts_with("?=") &&
            !rest.starts_with("?!"))
          return false;
      }
      if (c == ')') --depth;
      ++at_;
    } while (depth > 0 && at_ < text_.size());
    return depth == 0;
  }

  std::string_view text_;
  bool caseSignificant_;
  size_t at_ = 0;
  bool endsAtEnd_ = false;
  Runs runs_;
};

}  // namespace

RequiredLiteral RequiredLiteralOfWildcard(std::string_view signs) {
  Runs runs;
  runs.BeginAtBeginning();
  for (const char c : signs) {
    if (c == Wildcard::kRun || c == Wildcard::kOne)
      runs.Close();
    else
      runs.Add(c);
  }
  runs.Close(true);
  return runs.Best();
}

std::vector<RequiredLiteral> RequiredLiteralsOfExpression(std::string_view expression, bool caseSignificant) {
  return ExpressionReader(expression, caseSignificant).Read();
}

bool CanStandInAlternation(std::string_view expression) {
  return ExpressionReader(expression, true).IsKnown();
}

}  // namespace korv
