#pragma once

#include <QSettings>
#include <optional>
#include <span>

#include "platform/messages.h"

namespace korv {

/// The questions that the user does not want to be asked again, with what they get instead, in the toolkit's
/// settings store. Reads and writes are cheap; a store that cannot be written forgets when the program ends.

/// A question that may be silenced: its box offers "Do not ask again".
struct SilenceRule {
  korv::Question Question;
  /// What the question gets from then on; empty: the answer that was given with the tick.
  std::optional<korv::Answer> Answer{};
};

/// The rule for `question`, null where it may not be silenced. Linear in the rules, of which there are few.
const SilenceRule* RuleFor(std::span<const SilenceRule> rules, Question question);

/// What `question` gets without being asked; empty when it is to be asked.
std::optional<Answer> SilencedAnswer(const QSettings& store, Question question);
/// `question` gets `answer` from now on. Nothing happens for an answer that decides nothing: Ok and Cancel.
void Silence(QSettings& store, Question question, Answer answer);
/// Whether any question is silenced.
bool AnySilenced(const QSettings& store);
/// Everything is asked again.
void AskEverythingAgain(QSettings& store);

}  // namespace korv
