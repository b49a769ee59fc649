#pragma once

#include <filesystem>

#include "base/clock.h"
#include "base/event_loop.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/launcher.h"
#include "platform/messages.h"

class QSettings;

namespace korv {

/// Everything outside the program that its windows touch. The parts outlive the windows.
struct Desktop {
  korv::Messages& Messages;
  korv::Dialogs& Dialogs;
  korv::Clipboard& Clipboard;
  korv::Launcher& Launcher;
  FileSystem& Files;
  EventLoop& Loop;       ///< That of the windows' thread.
  TurnYielder& Yielder;  ///< Of the worker beside the windows.
  const korv::Clock& Clock;
  NumberFormat Numbers;
  std::filesystem::path ProgramText;    ///< The file of the numbered texts.
  std::filesystem::path ProgramFolder;  ///< Where the common-words files lie.
  std::filesystem::path StateFile;
  /// What is kept outside the state file: window geometry, recent sources.
  QSettings& Store;
  CodePage* Encoding = nullptr;  ///< Of output files; null for UTF-8.
};

}  // namespace korv
