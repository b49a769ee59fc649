#pragma once

#include "engine/text/word_rules.h"
#include "platform/messages.h"

namespace korv {

/// Whether the start markers of C comments are safe under the rules: one made of nothing but characters
/// that words may hold could be taken for part of a word. The first such marker is reported, and the run
/// must not start.
bool CommentMarkersOK(const WordRules& rules, Messages& messages);

}  // namespace korv
