#include "app/run/left_out_words.h"

#include "app/settings/settings.h"

namespace korv {

WordRules RulesThatTake(WordRules rules, const WordCounts& leftOut) {
  const auto dropped = [&leftOut](DropReason reason) { return leftOut.DroppedFor(reason) > 0; };
  if (dropped(DropReason::Short)) rules.IgnoreShortWords = false;
  if (dropped(DropReason::Long)) rules.LongWordSize = kMostLongWordSize;
  if (dropped(DropReason::Letterless)) rules.IgnoreNoLetter = false;
  if (dropped(DropReason::Repetition)) rules.IgnoreRepetitions = false;
  if (dropped(DropReason::Not7bit)) rules.Only7bitASCII = false;
  return rules;
}

}  // namespace korv
