#pragma once

#include <QSettings>
#include <optional>

#include "platform/messages.h"

namespace korv {

/// The questions that the user does not want to be asked again, with what they get instead, in the toolkit's
/// settings store. Reads and writes are cheap; a store that cannot be written forgets when the program ends.

/// What `question` gets without being asked; empty when it is to be asked.
std::optional<Answer> SilencedAnswer(const QSettings& store, Question question);
/// `question` gets `answer` from now on. Nothing happens for an answer that decides nothing: Ok and Cancel.
void Silence(QSettings& store, Question question, Answer answer);
/// Whether any question is silenced.
bool AnySilenced(const QSettings& store);
/// Everything is asked again.
void AskEverythingAgain(QSettings& store);

}  // namespace korv
