#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// How often the parts of phrases occur at all, on either side of each joint between two words. A part is a
/// run of words wherever it stands in the text, whether phrases of its length were counted or not.
struct JointCounts {
  // By PhraseIndex, for listed phrases of two words or more; 0 for others.
  std::vector<uint32_t> WithoutLast;   ///< f(w1..wn-1).
  std::vector<uint32_t> WithoutFirst;  ///< f(w2..wn).
  /// The greatest f(w1..wi) * f(wi+1..wn) of all joints i: that of the weakest one.
  std::vector<uint64_t> Weakest;
};

/// Counts them for the table of a run that keeps places. The text is sorted twice, forwards for the first
/// parts and backwards for the last ones, bucket by bucket as it was for counting; in a bucket the parts of
/// one length are runs of common prefixes. On all threads; takes about twice the time of counting. Memory for
/// the time being: 12 bytes a token, 4 bytes for each word of each phrase, and what SuffixSorter takes; for
/// good 16 bytes an entry, half of them for products that need 64 bits. False when stopped.
bool CountJoints(const PhraseTable& table, Yielder& yielder, JointCounts& counts);

}  // namespace korv
