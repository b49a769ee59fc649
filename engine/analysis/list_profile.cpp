#include "engine/analysis/list_profile.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace korv {

bool FindListProfile(const PhraseTable& table, Yielder& yielder, ListProfile& profile) {
  std::unordered_map<uint32_t, uint64_t> phrasesOf;
  for (const PhraseIndex i : table.All()) {
    yielder.Yield();
    if (yielder.Stopped()) return false;
    if (!table.Listed(i)) continue;
    ++phrasesOf[table.Count(i)];
    LengthStep& length = profile.Lengths[static_cast<size_t>(table.Words(i))];
    ++length.Phrases;
    length.Occurrences += table.Count(i);
  }
  profile.Frequencies.reserve(phrasesOf.size());
  for (const auto& [frequency, phrases] : phrasesOf) profile.Frequencies.push_back({frequency, phrases});
  std::ranges::sort(profile.Frequencies, std::greater(), &FrequencyStep::Frequency);
  return true;
}

}  // namespace korv
