#pragma once

#include <cstdint>
#include <string>

#include "engine/run_options.h"

namespace korv {

/// What a finished counting run knows beside its phrases; everything that header, summary and notices say.
struct RunFacts {
  RunOptions Options;              ///< Lengths, minimum frequency, ignore mode, source kind, stopped.
  bool WordsToIgnoreInUse = false; ///< A words-to-ignore list with at least one entry applied.
  std::string InputPath;           ///< As given, trimmed: the file or the folder; empty for clipboard and pipes.
  bool IncludeSubfolders = false;
  uint64_t FilesScanned = 0;       ///< Folder source: files whose text was read.
  uint64_t FoldersScanned = 0;     ///< Folder source: folders entered, the chosen one included.
};

}  // namespace korv
