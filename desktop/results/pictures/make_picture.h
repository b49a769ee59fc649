#pragma once

#include <memory>
#include <vector>

#include "app/run/run.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "desktop/results/pictures/picture.h"

namespace korv {

/// The pictures that there are of a run, in the order in which they are offered.
enum class PictureKind { Places, Files, Ranks, Lengths, Sides };

/// More phrases are not told apart in one picture.
inline constexpr size_t kMostPicturedPhrases = PictureStyle::kColours;

/// What is to be pictured.
struct PictureChoice {
  PictureKind Kind = PictureKind::Places;
  std::vector<PhraseIndex> Phrases;  ///< At most kMostPicturedPhrases. Matter to Places and Files.
  ComparisonBasis ComparedBy = ComparisonBasis::Words;  ///< Matters to Sides.
};

/// The picture of a run that kept its places, of Sides one that compares. Null when nothing is listed, and
/// when stopped. Cost: the occurrences of the phrases, or a few steps per phrase of the run. May be called
/// from any thread, for it only reads.
std::shared_ptr<const Picture> MakePicture(const PictureChoice& choice, const CountedRun& run,
                                           const NumberFormat& numbers, Yielder& yielder);

}  // namespace korv
