#pragma once

#include <memory>
#include <vector>

#include "app/run/run.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "desktop/results/pictures/picture.h"

namespace korv {

/// The pictures that there are of a run, in the order in which they are offered.
enum class PictureKind { Places, Files, Ranks, Lengths };

/// More phrases are not told apart in one picture.
inline constexpr size_t kMostPicturedPhrases = PictureStyle::kColours;

/// The picture of a run that kept its places; `phrases`, at most kMostPicturedPhrases, matter to the first
/// two. Null when nothing is listed, and when stopped. Cost: the occurrences of the phrases, or a step per
/// phrase of the run. May be called from any thread, for it only reads.
std::shared_ptr<const Picture> MakePicture(PictureKind kind, const CountedRun& run,
                                           const std::vector<PhraseIndex>& phrases,
                                           const NumberFormat& numbers, Yielder& yielder);

}  // namespace korv
