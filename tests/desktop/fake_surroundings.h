#pragma once

#include <QSettings>
#include <QTemporaryDir>
#include <exception>

#include "base/number_format.h"
#include "desktop/desktop.h"
#include "desktop/toolkit/qt_event_loop.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_messages.h"

namespace korv {

/// What windows and views stand on, with nothing behind it: answers are given beforehand, and what is kept
/// goes with the folder. The event loop is the real one; what a task throws ends the test.
struct FakeSurroundings {
  /// The surroundings with these files. Both outlive the views.
  Desktop On(FileSystem& files) { return On(files, Messages, Clock); }
  /// With the messages and the clock of others, who outlive the views, too.
  Desktop On(FileSystem& files, korv::Messages& messages, const korv::Clock& clock) {
    return {.Messages = messages,
            .Dialogs = Dialogs,
            .Clipboard = Clipboard,
            .Launcher = Launcher,
            .Files = files,
            .Loop = Loop,
            .Yielder = Yielder,
            .Clock = clock,
            .Numbers = Numbers,
            .ProgramText = {},
            .ProgramFolder = {},
            .StateFile = {},
            .Store = Store};
  }

  FakeMessages Messages;
  FakeDialogs Dialogs;
  FakeClipboard Clipboard;
  FakeLauncher Launcher;
  FakeClock Clock;
  TurnYielder Yielder;
  NumberFormat Numbers;
  QtEventLoop Loop{[](const std::exception_ptr& thrown) { std::rethrow_exception(thrown); }};
  QTemporaryDir Folder;
  QSettings Store{Folder.filePath(QStringLiteral("store.ini")), QSettings::IniFormat};
};

}  // namespace korv
