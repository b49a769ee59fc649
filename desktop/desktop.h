#pragma once

#include <filesystem>

#include "base/clock.h"
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
  Messages& messages;
  Dialogs& dialogs;
  Clipboard& clipboard;
  Launcher& launcher;
  FileSystem& files;
  Yielder& yielder;
  const Clock& clock;
  NumberFormat numbers;
  std::filesystem::path programText;    ///< The file of the numbered texts.
  std::filesystem::path programFolder;  ///< Where the common-words files lie.
  std::filesystem::path stateFile;
  /// What is kept outside the state file: window geometry, recent sources.
  QSettings& store;
  CodePage* encoding = nullptr;  ///< Of output files; null for UTF-8.
};

}  // namespace korv
