#pragma once

#include "platform/messages.h"

namespace korv {

/// What korv-count answers to a question. No user is asked: what its options leave open is settled here, once
/// for all runs.
Answer AnswerInTerminal(const Message& message);

}  // namespace korv
