#pragma once

#include <memory>
#include <string_view>

namespace korv {

/// One compiled regular expression with ECMAScript's rules as far as the library offers them, UTF-8,
/// searched anywhere in the text. Matching is bounded by a match limit and a depth limit; beyond them
/// it is no match. Matching is const and may be done from several threads at once.
class Regex {
 public:
  /// An invalid expression gives an object that matches nothing.
  Regex(std::string_view expression, bool caseSignificant);
  ~Regex();
  Regex(Regex&&) noexcept;
  Regex& operator=(Regex&&) noexcept;

  bool Valid() const;
  bool Matches(std::string_view text) const;

 private:
  struct Compiled;
  std::unique_ptr<Compiled> compiled_;
};

}  // namespace korv
