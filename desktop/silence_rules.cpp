#include "desktop/silence_rules.h"

#include "app/run/questions.h"
#include "app/settings/questions.h"
#include "desktop/questions.h"
#include "sources/questions.h"

namespace korv {

std::span<const SilenceRule> SilenceRules() {
  static constexpr SilenceRule kRules[] = {
      {questions::kFirstCommonWords},
      {questions::kKeepFilter},
      // Settings that would be lost without a word are never lost: they are kept out of the file, as at "No".
      {questions::kKeepSettings, Answer::No},
      {questions::kLargeDocx},
      {questions::kLargeInput},
      {questions::kLargeWordList},
      {questions::kLoadWordFile},
      {questions::kMinimumFrequency},
      // Whoever silences it wants the button to act.
      {questions::kReinitialize, Answer::Yes},
      {questions::kTextEncoding},
  };
  return kRules;
}

}  // namespace korv
