#include "engine/patterns/pattern.h"

#include <utility>

namespace korv {

namespace {

void ReplaceAll(std::string& text, char what, std::string_view by) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (c == what)
      result += by;
    else
      result += c;
  }
  text.swap(result);
}

}  // namespace

Pattern::Pattern(std::string_view pattern, bool caseSignificant, char anyRun, char anyChar)
    : caseSignificant_(caseSignificant) {
  if (pattern.size() >= 2 && pattern.front() == '<' && pattern.back() == '>') {
    if (pattern.size() > 2) Compile(std::string(pattern.substr(1, pattern.size() - 2)));
    return;
  }
  std::string inner(pattern);
  ReplaceAll(inner, anyRun, ".*");
  ReplaceAll(inner, anyChar, ".");
  if (inner == ".*") {
    form_ = Everything{};
  } else if (auto wildcard = Wildcard::FromExpression(inner, caseSignificant)) {
    form_ = *std::move(wildcard);
  } else {
    Compile("^" + inner + "$");
  }
}

void Pattern::Compile(std::string expression) {
  Regex compiled(expression, caseSignificant_);
  if (compiled.Valid()) form_ = Expression{std::move(expression), std::move(compiled)};
}

bool Pattern::MatchesFolded(std::string_view text, std::string_view folded) const {
  if (const auto* wildcard = std::get_if<Wildcard>(&form_)) return wildcard->Matches(folded);
  if (const auto* expression = std::get_if<Expression>(&form_)) return expression->Compiled.Matches(text);
  return std::holds_alternative<Everything>(form_);
}

std::vector<RequiredLiteral> Pattern::RequiredLiterals() const {
  if (const auto* wildcard = std::get_if<Wildcard>(&form_)) {
    RequiredLiteral needed = RequiredLiteralOfWildcard(wildcard->Signs());
    if (!needed.Text.empty()) return {std::move(needed)};
  }
  if (const auto* expression = std::get_if<Expression>(&form_))
    return RequiredLiteralsOfExpression(expression->Source, caseSignificant_);
  return {};
}

std::string_view Pattern::Alternative() const {
  const auto* expression = std::get_if<Expression>(&form_);
  return expression != nullptr && CanStandInAlternation(expression->Source) ? expression->Source
                                                                            : std::string_view();
}

bool Pattern::IsLiteral(std::string_view& literal) const {
  const auto* wildcard = std::get_if<Wildcard>(&form_);
  if (wildcard == nullptr || !wildcard->IsLiteral()) return false;
  literal = wildcard->Signs();
  return true;
}

}  // namespace korv
