#pragma once

#include <cstdint>
#include <string>

#include "base/gauge.h"
#include "base/yielder.h"
#include "platform/files.h"

namespace korv {

/// Why a run cannot be kept.
enum class KeepFault {
  IsSource,    ///< The file is one of those that were counted.
  Unwritable,  ///< The system refuses.
  Stopped,
};
struct KeepError {
  KeepFault Fault;
  std::string Description{};  ///< Of Unwritable: the system's own words.
};

/// Why a file cannot be opened as a kept run.
enum class OpenFault {
  NoKeptRun,   ///< It is something else.
  Newer,       ///< A later version of the program has written it.
  CutShort,    ///< Its end is missing.
  Damaged,     ///< Its contents are not those that were written, or no run's.
  Unreadable,  ///< The system refuses.
  NoMemory,
  Stopped,
};
struct OpenError {
  OpenFault Fault;
  std::string Description{};  ///< Of Unreadable: the system's own words.
};

/// What there is to tell the user, in sentences; empty after a stop.
std::string TextOf(const KeepError& error);
std::string TextOf(const OpenError& error);

/// How far it is, in bytes of the file. Any thread may look at it.
struct KeptProgress {
  Gauge<uint64_t> Done;
  Gauge<uint64_t> Total;
};

struct KeptServices {
  FileSystem& Files;
  korv::Yielder& Yielder;
  KeptProgress& Progress;
};

}  // namespace korv
