#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/yielder.h"
#include "engine/counting/phrase_sums.h"
#include "platform/files.h"

namespace korv {

/// A longer line of counts is refused, in bytes.
inline constexpr size_t kMostCountLine = size_t{1} << 16;

enum class CountsFault {
  Unreadable,
  LineTooLong,
  MissingCells,  ///< Fewer than the heading names, or other than two where there is no heading.
  NoFrequency,   ///< No whole number from 1 to kMostFrequency.
  // As PhraseSums::Add() tells:
  NoPhrase,
  HoldsWordToRemove,
  SumTooLarge,
};

/// Why counts were refused.
struct CountsError {
  CountsFault Fault = CountsFault::Unreadable;
  uint64_t Line = 0;        ///< From 1. Of no use where the file is unreadable.
  std::string Description;  ///< The system's own words where the file is unreadable.
};

/// What became of counts that were read.
struct CountsTally {
  uint64_t Counts = 0;        ///< Lines with a phrase and its frequency.
  uint64_t OtherLengths = 0;  ///< Of these, left out for their number of words.
};

/// Reads phrases with their frequencies into `sums`, of tab-separated values in UTF-8 with lines ended by LF
/// or CR LF. Where the first line names the columns "phrase" and "frequency", they are found by these names,
/// and others are passed over; else there are two columns, phrase and frequency. Lines that are "#" or begin
/// with "# " are comments.
///
/// Everything is refused with the first line that is no count. Ends soon after a stop. Cost: linear in the
/// bytes, of which it holds a block and a line. `progress` is told the bytes read now and then.
std::optional<CountsError> ReadCounts(InputFile& file, PhraseSums& sums, Yielder& yielder, CountsTally& tally,
                                      const std::function<void(uint64_t)>& progress);

}  // namespace korv
