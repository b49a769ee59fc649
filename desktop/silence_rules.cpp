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
      // Silenced, it writes nothing: only a user who is asked decides to replace the settings file.
      {questions::kKeepSettings, Answer::No},
      {questions::kLargeDocx},
      {questions::kLargeInput},
      {questions::kLargeWordList},
      {questions::kLoadWordFile},
      {questions::kMinimumFrequency},
      // A user who silences it wants the button to act at once.
      {questions::kReinitialize, Answer::Yes},
      {questions::kTextEncoding},
  };
  return kRules;
}

}  // namespace korv
