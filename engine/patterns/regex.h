#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korv {

/// A compiled regular expression with ECMAScript's rules as far as the library offers them, UTF-8, searched
/// anywhere in the text: "$" stands for the end of the text alone, "\uXXXX" for a character,
/// a reference to a group that has not taken part matches the empty text, "[]" matches nothing, and
/// "\w", "\d" and "\b" know ASCII only. "." matches any character but CR and LF.
///
/// Compiling costs some ten microseconds and some kilobytes; matching a word about 50 ns. Matching is
/// bounded by a match limit and a depth limit per place where a match could begin. Beyond them the text does
/// not match. Const members may be called from several threads at once.
class Regex {
 public:
  /// An invalid expression, or one longer than kMostExpressionBytes, gives an object that matches nothing.
  Regex(std::string_view expression, bool caseSignificant);
  ~Regex();
  Regex(Regex&&) noexcept;
  Regex& operator=(Regex&&) noexcept;

  static constexpr size_t kMostExpressionBytes = 65'536;

  bool Valid() const { return compiled_ != nullptr; }
  /// Why it is not valid, and where: "missing closing parenthesis, at character 8". Empty where it is.
  const std::string& Fault() const { return fault_; }
  bool Matches(std::string_view text) const { return Try(text) == Outcome::Match; }

  enum class Outcome { NoMatch, Match, GaveUp /**< At a limit, or over text that is no UTF-8. */ };
  Outcome Try(std::string_view text) const;

 private:
  struct Compiled;
  struct Memory;

 public:
  /// Memory for the matches of one thread. Without it threads that match at the same time take turns with the
  /// memory that the expression has, which costs more than a match of a short text.
  class Scratch {
   public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

   private:
    friend class Regex;
    std::unique_ptr<Memory> memory_;
  };
  bool Matches(std::string_view text, Scratch& scratch) const;

 private:
  std::unique_ptr<Compiled> compiled_;
  std::string fault_;
};

}  // namespace korv
