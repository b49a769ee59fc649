#pragma once

#include "report/run_summary.h"
#include "sources/read/text_reader.h"

namespace korv {

/// Counts one more text that was read so.
inline void CountReading(ReadAs reading, EncodingCounts& counts) {
  switch (reading) {
    case ReadAs::Ascii:
      ++counts.Ascii;
      break;
    case ReadAs::Ansi:
      ++counts.Ansi;
      break;
    case ReadAs::Utf8:
      ++counts.Utf8;
      break;
  }
}

}  // namespace korv
