#include "engine/patterns/regex.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <atomic>
#include <new>

#include "base/translation.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

// A word of 80 characters needs some hundred steps of an honest expression. The limit lets an expression
// that explodes cost milliseconds, not minutes, for each word that sets it off.
constexpr uint32_t kMatchLimit = 100'000;
constexpr uint32_t kDepthLimit = 5'000;
constexpr uint32_t kHeapLimitKilobytes = 16'384;

constexpr uint32_t kOptions = PCRE2_UTF | PCRE2_DOLLAR_ENDONLY | PCRE2_ALT_BSUX | PCRE2_MATCH_UNSET_BACKREF |
                              PCRE2_ALLOW_EMPTY_CLASS | PCRE2_NEVER_BACKSLASH_C;

PCRE2_SPTR Units(std::string_view text) {
  // A null pointer is refused even where the length is 0.
  return reinterpret_cast<PCRE2_SPTR>(text.data() == nullptr ? "" : text.data());
}

template <auto Free>
struct Freer {
  template <typename T>
  void operator()(T* p) const {
    Free(p);
  }
};
template <typename T, auto Free>
using Handle = std::unique_ptr<T, Freer<Free>>;

using CompileContext = Handle<pcre2_compile_context, pcre2_compile_context_free>;
using MatchContext = Handle<pcre2_match_context, pcre2_match_context_free>;
using MatchData = Handle<pcre2_match_data, pcre2_match_data_free>;
using CodeHandle = Handle<pcre2_code, pcre2_code_free>;

template <typename H>
H OrThrow(H handle) {
  if (!handle) throw std::bad_alloc();
  return handle;
}

/// `before` is what stands before the place of the fault.
std::string FaultText(int error, std::string_view before) {
  PCRE2_UCHAR message[256];
  pcre2_get_error_message(error, message, sizeof message);
  return Fill(Tr("%1, at character %2"),
              {reinterpret_cast<const char*>(message), std::to_string(CharacterCount(before) + 1)});
}

}  // namespace

struct Regex::Compiled {
  CodeHandle Code;
  MatchContext Limits;
  /// Memory for one match. A match takes it, or makes its own while another one has it.
  mutable std::atomic<pcre2_match_data*> Spare{nullptr};

  Outcome Try(std::string_view text, pcre2_match_data* data) const;

  ~Compiled() { pcre2_match_data_free(Spare.load()); }
};

Regex::Regex(std::string_view expression, bool caseSignificant) {
  if (expression.size() > kMostExpressionBytes) {
    fault_ = Fill(TrCount("it is longer than %1 byte", "it is longer than %1 bytes", kMostExpressionBytes),
                  {std::to_string(kMostExpressionBytes)});
    return;
  }
  const CompileContext context = OrThrow(CompileContext(pcre2_compile_context_create(nullptr)));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  const uint32_t options = kOptions | (caseSignificant ? 0 : PCRE2_CASELESS);
  int error = 0;
  PCRE2_SIZE at = 0;
  CodeHandle code(pcre2_compile(Units(expression), expression.size(), options, &error, &at, context.get()));
  if (!code) {
    fault_ = FaultText(error, expression.substr(0, at));
    return;
  }
  // Where there is no JIT, or it declines the expression, pcre2_match interprets it.
  pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);

  MatchContext limits = OrThrow(MatchContext(pcre2_match_context_create(nullptr)));
  pcre2_set_match_limit(limits.get(), kMatchLimit);
  pcre2_set_depth_limit(limits.get(), kDepthLimit);
  pcre2_set_heap_limit(limits.get(), kHeapLimitKilobytes);

  compiled_ = std::make_unique<Compiled>();
  compiled_->Code = std::move(code);
  compiled_->Limits = std::move(limits);
}

Regex::~Regex() = default;
Regex::Regex(Regex&&) noexcept = default;
Regex& Regex::operator=(Regex&&) noexcept = default;

struct Regex::Memory {
  MatchData Data = OrThrow(MatchData(pcre2_match_data_create(1, nullptr)));
};

Regex::Scratch::Scratch() : memory_(std::make_unique<Memory>()) {}
Regex::Scratch::~Scratch() = default;

Regex::Outcome Regex::Compiled::Try(std::string_view text, pcre2_match_data* data) const {
  const auto match = [&](uint32_t options) {
    return pcre2_match(Code.get(), Units(text), text.size(), 0, options, data, Limits.get());
  };
  int result = match(0);
  // The JIT's small stack bounds long texts before the limits do; the interpreter goes by the limits alone.
  if (result == PCRE2_ERROR_JIT_STACKLIMIT) result = match(PCRE2_NO_JIT);
  if (result >= 0) return Outcome::Match;
  return result == PCRE2_ERROR_NOMATCH ? Outcome::NoMatch : Outcome::GaveUp;
}

Regex::Outcome Regex::Try(std::string_view text) const {
  if (!compiled_) return Outcome::NoMatch;
  MatchData data(compiled_->Spare.exchange(nullptr, std::memory_order_acquire));
  if (!data) data = OrThrow(MatchData(pcre2_match_data_create(1, nullptr)));
  const Outcome outcome = compiled_->Try(text, data.get());
  const MatchData other(compiled_->Spare.exchange(data.release(), std::memory_order_acq_rel));
  return outcome;
}

bool Regex::Matches(std::string_view text, Scratch& scratch) const {
  return compiled_ && compiled_->Try(text, scratch.memory_->Data.get()) == Outcome::Match;
}

}  // namespace korv
