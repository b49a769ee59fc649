#pragma once

#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// Finds the C-value of each listed phrase, by PhraseIndex; 0 for others.
///
///     C = log2(n) * f                    where no longer candidate contains the phrase,
///     C = log2(n) * (f - t / c)          else,
///
/// n its words, f its frequency, c the number of longer candidates that contain it, and t the sum of f(b) -
/// t(b) over these candidates b. Candidates are the listed phrases; a phrase contains the runs of its whole
/// words. The more a phrase occurs in one longer phrase only, the lower it is. Frantzi, Ananiadou and Mima
/// 2000.
///
/// All runs of words of each phrase are looked up, longest phrases first, on all threads. Memory: 8 bytes an
/// entry, since lists promise nine digits that count and single precision has seven; and some 30 more for the
/// time being. False when stopped.
bool FindCValues(const PhraseTable& table, Yielder& yielder, std::vector<double>& values);

}  // namespace korv
